// Finds the views with which dialogs are shown.
#pragma once

#include "QsUtils/platform/DynamicModule.h"
#include "QsUtils/platform/Mutex.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/ui/Views.h"

namespace QsUi {

/// What there is to show dialogs with.
struct OpenedViews {
    QsPlatform::DynamicModule module;  ///< in which the views stand, if they have one of their own
    IViews* views = nullptr;           ///< null when there are none
    CString reason;                    ///< why there are none, for people
};

/// Each toolkit has its own: finds what it needs, and asks whether a dialog can be shown at all.
OpenedViews OpenViews();

/// The views of the process. They are looked for at the first dialog and never before, so that a host without
/// a screen loads no toolkit. Where there are none, that is told on standard error. Any thread may call
/// anything.
class Toolkit {
public:
    using Opener = OpenedViews (*)();

    explicit Toolkit(Opener open = OpenViews) noexcept : m_open(open) {}

    /// For a modal dialog; null when there are no views, and then a message has been written. The next dialog
    /// looks again.
    IViews* ForDialog();
    /// For the tip, which comes and goes with every move of the mouse: where there were no views once, it
    /// doesn't look again by itself and says nothing more.
    IViews* ForTip();

private:
    IViews* Find(bool looksAgain);

    Opener m_open;
    QsPlatform::Mutex m_search;
    OpenedViews m_opened;
    bool m_hasFailed = false;
};

}  // namespace QsUi
