#include <exception>
#include <memory>

#include "QsUtils/platform/win32/Screen.h"
#include "QsUtils/ui/Toolkit.h"
#include "QsUtils/ui/win32/FolderBrowserView.h"
#include "QsUtils/ui/win32/PickerView.h"
#include "QsUtils/ui/win32/TipWindow.h"

namespace QsUi {

namespace {

// A thread that can't have a dialog for want of memory answers as if the user had cancelled.
class SystemViews final : public IViews {
public:
    bool RunPicker(IPickerDialog& dialog) override try {
        return PickerView(dialog).Run();
    } catch (const std::exception&) {
        return false;
    }

    FolderItem BrowseForFolder(const FolderBrowseInfo& info) override try {
        return QsUi::BrowseForFolder(info);
    } catch (const std::exception&) {
        return nullptr;
    }
    bool GetPath(FolderItem item, char16_t* buffer) override { return GetFolderPath(item, buffer); }
    void Free(FolderItem item) override { FreeFolder(item); }

    ITipWindow* CreateTipWindow(ITipDialog& dialog, const TipFont& font) override try {
        auto window = std::make_unique<TipWindow>(dialog, font);
        return window->IsMade() ? window.release() : nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
};

constinit SystemViews theViews;

}  // namespace

OpenedViews OpenViews() {
    if (!QsPlatform::HasScreen())
        return {{}, nullptr, u"QsUtils: no dialog can be shown: there is no screen."};
    return {{}, &theViews, CString()};
}

}  // namespace QsUi
