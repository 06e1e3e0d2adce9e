#include <utility>

#include <dlfcn.h>

#include "QsUtils/platform/ModuleFolder.h"
#include "QsUtils/platform/posix/Environment.h"
#include "QsUtils/ui/Toolkit.h"
#include "QsUtils/ui/qt/ViewsModule.h"

namespace QsUi {

namespace {

/// People look for a file under the path that the system knows.
CString SystemForm(CString path) {
    path.Replace(u'\\', u'/');
    return path;
}

/// Whether Qt may find a display, or the host has shown it one; where neither is so, Qt isn't even loaded.
bool MayHaveDisplay() {
    for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!QsPlatform::EnvironmentVariable(variable).empty())
            return true;
    }
    void* const qt = ::dlopen("libQt6Widgets.so.6", RTLD_LAZY | RTLD_NOLOAD);
    if (qt != nullptr)
        ::dlclose(qt);
    return qt != nullptr;
}

OpenedViews Refuse(const CString& reason) {
    return {{}, nullptr, u"QsUtils: no dialog can be shown: " + reason};
}

}  // namespace

OpenedViews OpenViews() {
    if (!MayHaveDisplay())
        return Refuse(u"there is no display.");
    const CString path = QsPlatform::ModuleFolder() + ViewsModule::FileName;
    OpenedViews opened{QsPlatform::DynamicModule(path), nullptr, CString()};
    if (!opened.module.IsLoaded())
        return Refuse(SystemForm(path) + u" can't be loaded.");
    const auto entry = opened.module.Function<ViewsModule::Entry>(ViewsModule::EntryName);
    if (entry == nullptr)
        return Refuse(u"the module of the views is of another version.");
    char16_t reason[ViewsModule::ReasonBuffer] = {};
    opened.views = entry(ViewsModule::Version, reason);
    return opened.views != nullptr ? std::move(opened) : Refuse(reason);
}

}  // namespace QsUi
