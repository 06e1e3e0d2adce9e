#include "QsUtils/ui/Toolkit.h"

#include <mutex>

#include "QsUtils/platform/Process.h"

namespace QsUi {

IViews* Toolkit::ForDialog() {
    return Find(true);
}

IViews* Toolkit::ForTip() {
    return Find(false);
}

IViews* Toolkit::Find(bool looksAgain) {
    const std::lock_guard lock(m_search);
    if (m_opened.views != nullptr || (m_hasFailed && !looksAgain))
        return m_opened.views;
    m_opened = m_open();
    if (m_opened.views == nullptr) {
        m_hasFailed = true;
        QsPlatform::ShowMessage(m_opened.reason);
    }
    return m_opened.views;
}

}  // namespace QsUi
