#include "QsUtils/ui/qt/module/QtViews.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/qt/module/FolderView.h"
#include "QsUtils/ui/qt/module/PickerView.h"
#include "QsUtils/ui/qt/module/Text.h"
#include "QsUtils/ui/qt/module/TipWindow.h"
#include "QsUtils/ui/qt/module/UiThread.h"

namespace QsQt {

namespace {

const FolderChoice& ChoiceOf(QsUi::FolderItem item) {
    return *static_cast<const FolderChoice*>(item);
}

/// The host may have ended its application since the views were found.
bool CanShow() {
    std::u16string reason;
    if (UiThread::Start(reason))
        return true;
    std::fprintf(stderr, "QsUtils: no dialog can be shown: %s\n", ToQString(reason).toUtf8().constData());
    return false;
}

/// Puts a text into a buffer for a path if it fits; otherwise the empty text.
bool Put(std::u16string_view text, char16_t* buffer) {
    const bool fits = text.size() < static_cast<std::size_t>(QsUi::FolderBrowser::PathBuffer);
    *std::copy_n(text.data(), fits ? text.size() : 0, buffer) = u'\0';
    return fits && !text.empty();
}

}  // namespace

bool QtViews::RunPicker(QsUi::IPickerDialog& dialog) {
    return CanShow() && UiThread::RunDialog([&](QWidget* parent) { return new PickerView(dialog, parent); },
                                            [](const QDialog&) {});
}

QsUi::FolderItem QtViews::BrowseForFolder(const QsUi::FolderBrowseInfo& info) {
    auto choice = std::make_unique<FolderChoice>();
    const bool isChosen =
        CanShow() && UiThread::RunDialog([&](QWidget* parent) { return new FolderView(info, parent); },
                                         [&](const QDialog& view) {
                                             *choice = static_cast<const FolderView&>(view).Choice();
                                         });
    if (!isChosen)
        return nullptr;
    const std::u16string_view path = choice->path;
    Put(path.substr(path.rfind(u'\\') + 1), info.displayName);
    return choice.release();
}

bool QtViews::GetPath(QsUi::FolderItem item, char16_t* buffer) {
    return Put(ChoiceOf(item).path, buffer);
}

void QtViews::Free(QsUi::FolderItem item) {
    delete &ChoiceOf(item);
}

QsUi::ITipWindow* QtViews::CreateTipWindow(QsUi::ITipDialog& dialog, const QsUi::TipFont& font) {
    std::u16string ignored;
    return UiThread::Start(ignored) ? new TipWindow(dialog, font) : nullptr;
}

}  // namespace QsQt
