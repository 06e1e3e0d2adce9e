// The views of Qt.
#pragma once

#include "QsUtils/ui/Views.h"

namespace QsQt {

/// Keeps nothing; one object serves everybody.
class QtViews : public QsUi::IViews {
public:
    bool RunPicker(QsUi::IPickerDialog& dialog) override;
    QsUi::FolderItem BrowseForFolder(const QsUi::FolderBrowseInfo& info) override;
    bool GetPath(QsUi::FolderItem item, char16_t* buffer) override;
    void Free(QsUi::FolderItem item) override;
    QsUi::ITipWindow* CreateTipWindow(QsUi::ITipDialog& dialog, const QsUi::TipFont& font) override;
};

}  // namespace QsQt
