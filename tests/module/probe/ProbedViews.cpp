// The module of the views as the probed library finds it beside itself: a tip whose window tells of its end.
#include <cstdio>

#include "QsUtils/ui/qt/ViewsModule.h"

namespace {

class Window final : public QsUi::ITipWindow {
public:
    ~Window() override {
        std::puts("tip's window ends");
        std::fflush(stdout);
    }
    bool Run(const std::function<void()>& work) override {
        work();
        return true;
    }
    int Measure(std::u16string_view, CRect&) override { return 0; }
    CRect WindowRect() const override { return {}; }
    CRect ClientRect() const override { return {}; }
    void Place(int, int, int, int) override {}
    bool IsVisible() const override { return false; }
    void ShowInactive() override {}
    void Hide() override {}
    void Repaint() override {}
    void StartTimer(unsigned int) override {}
    void StopTimer() override {}
};

class Views final : public QsUi::IViews {
public:
    bool RunPicker(QsUi::IPickerDialog&) override { return false; }
    QsUi::FolderItem BrowseForFolder(const QsUi::FolderBrowseInfo&) override { return nullptr; }
    bool GetPath(QsUi::FolderItem, char16_t*) override { return false; }
    void Free(QsUi::FolderItem) override {}
    QsUi::ITipWindow* CreateTipWindow(QsUi::ITipDialog&, const QsUi::TipFont&) override { return new Window; }
};

constinit Views theViews;

}  // namespace

extern "C" TEST_EXPORT QsUi::IViews* QsUtilsQtViews(int version, char16_t*) {
    return version == QsUi::ViewsModule::Version ? &theViews : nullptr;
}
