#include "QsUtils/platform/ModuleFolder.h"
#include "QsUtils/ui/Toolkit.h"
#include "QsUtils/ui/qt/ViewsModule.h"

namespace QsUi {

namespace {

/// People look for a file under the path that the system knows.
CString SystemForm(CString path) {
    path.Replace(u'\\', u'/');
    return path;
}

}  // namespace

OpenedViews OpenViews() {
    const CString path = QsPlatform::ModuleFolder() + ViewsModule::FileName;
    OpenedViews opened{QsPlatform::DynamicModule(path), nullptr, CString()};
    if (!opened.module.IsLoaded()) {
        opened.reason = u"QsUtils: no dialog can be shown: " + SystemForm(path) + u" can't be loaded.";
        return opened;
    }
    const auto entry = opened.module.Function<ViewsModule::Entry>(ViewsModule::EntryName);
    char16_t reason[ViewsModule::ReasonBuffer] = {};
    if (entry != nullptr)
        opened.views = entry(ViewsModule::Version, reason);
    if (opened.views == nullptr)
        opened.reason =
            u"QsUtils: no dialog can be shown: " +
            CString(entry != nullptr ? reason : u"the module of the views is of another version.");
    return opened;
}

}  // namespace QsUi
