#include "QsUtils/ui/Toolkit.h"

namespace QsUi {

OpenedViews OpenViews() {
    return {{}, nullptr, u"QsUtils: this build has no dialogs."};
}

}  // namespace QsUi
