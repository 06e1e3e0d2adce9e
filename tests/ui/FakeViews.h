// Views that a test looks through: what they were told stands in them, and what the user does stands in the
// test.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/Views.h"

/// A folder in the fake tree; without a path when it has none.
struct FakeFolder {
    std::u16string path;
};

class FakeTipWindow final : public QsUi::ITipWindow {
public:
    explicit FakeTipWindow(QsUi::ITipDialog& owner, std::vector<std::string>& log)
        : dialog(owner), calls(log) {}
    ~FakeTipWindow() override { calls.emplace_back("destroy"); }

    bool Run(const std::function<void()>& work) override {
        if (isAlive)
            work();
        return isAlive;
    }
    /// Ten pixels a unit, and lines of twenty.
    int Measure(std::u16string_view text, CRect& rect) override {
        rect.right = rect.left + 10 * static_cast<int>(text.size());
        rect.bottom = rect.top + (text.empty() ? 0 : 20);
        return 20;
    }
    CRect WindowRect() const override { return window; }
    CRect ClientRect() const override { return CRect(0, 0, window.Width(), window.Height()); }
    void Place(int left, int top, int width, int height) override {
        placed = {left, top, width, height};
        window = CRect(left, top, static_cast<int>(std::int64_t{left} + width),
                       static_cast<int>(std::int64_t{top} + height));
        calls.emplace_back("place");
    }
    bool IsVisible() const override { return isVisible; }
    void ShowInactive() override {
        isVisible = true;
        calls.emplace_back("show");
    }
    void Hide() override {
        isVisible = false;
        calls.emplace_back("hide");
    }
    void Repaint() override { calls.emplace_back("repaint"); }
    void StartTimer(unsigned int milliseconds) override {
        timer = milliseconds;
        calls.emplace_back("start " + std::to_string(milliseconds));
    }
    void StopTimer() override {
        timer = 0;
        calls.emplace_back("stop");
    }

    QsUi::ITipDialog& dialog;
    std::vector<std::string>& calls;
    CRect window{100, 200, 379, 246};
    std::vector<int> placed;
    bool isVisible = false;
    bool isAlive = true;
    unsigned int timer = 0;
};

class FakeViews final : public QsUi::IViews, public QsUi::IFolderBrowserWindow {
public:
    bool RunPicker(QsUi::IPickerDialog& dialog) override { return onPicker && onPicker(dialog); }

    QsUi::FolderItem BrowseForFolder(const QsUi::FolderBrowseInfo& info) override {
        browseInfo = info;
        Tell(QsUi::FolderBrowserMessage::Initialized, nullptr);
        if (onBrowse)
            onBrowse();
        return chosen;
    }
    bool GetPath(QsUi::FolderItem item, char16_t* buffer) override {
        const std::u16string& path = static_cast<const FakeFolder*>(item)->path;
        const bool fits = path.size() < static_cast<std::size_t>(QsUi::FolderBrowser::PathBuffer);
        *std::copy_n(path.data(), fits ? path.size() : 0, buffer) = u'\0';
        return fits && !path.empty();
    }
    void Free(QsUi::FolderItem item) override { freed.push_back(item); }
    QsUi::ITipWindow* CreateTipWindow(QsUi::ITipDialog& dialog, const QsUi::TipFont& font) override {
        ++tipsMade;
        tipFont = font;
        return hasTip ? tip = new FakeTipWindow(dialog, tipCalls) : nullptr;
    }

    void SetSelection(std::u16string_view path) override { selections.emplace_back(path); }
    void SetStatusText(std::u16string_view text) override { statusTexts.emplace_back(text); }

    int Tell(QsUi::FolderBrowserMessage message, QsUi::FolderItem item) {
        return browseInfo.callback(this, message, item, browseInfo.object);
    }

    std::function<bool(QsUi::IPickerDialog&)> onPicker;
    QsUi::FolderBrowseInfo browseInfo;
    std::function<void()> onBrowse;
    QsUi::FolderItem chosen = nullptr;
    std::vector<QsUi::FolderItem> freed;
    std::vector<std::u16string> selections;
    std::vector<std::u16string> statusTexts;
    bool hasTip = true;
    int tipsMade = 0;
    QsUi::TipFont tipFont{};
    FakeTipWindow* tip = nullptr;
    std::vector<std::string> tipCalls;
};
