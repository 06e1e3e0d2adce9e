// What the module exports.
#include <algorithm>
#include <string>

#include "QsUtils/ui/qt/ViewsModule.h"
#include "QsUtils/ui/qt/module/QtViews.h"
#include "QsUtils/ui/qt/module/UiThread.h"

namespace {

using QsUi::ViewsModule::ReasonBuffer;

constinit QsQt::QtViews theViews;

QsUi::IViews* Refuse(std::u16string_view reason, char16_t* buffer) {
    const std::size_t length = std::min<std::size_t>(reason.size(), ReasonBuffer - 1);
    *std::copy_n(reason.data(), length, buffer) = u'\0';
    return nullptr;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) QsUi::IViews* QsUtilsQtViews(int version,
                                                                               char16_t* reason) {
    if (version != QsUi::ViewsModule::Version)
        return Refuse(u"the module of the views is of another version.", reason);
    std::u16string failure;
    return QsQt::UiThread::Start(failure) ? &theViews : Refuse(failure, reason);
}
