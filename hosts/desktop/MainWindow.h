// The window of the host: a bill, and a menu that opens every dialog of the library.
#pragma once

#include <QMainWindow>
#include <functional>

#include <QsUtils/QsUtils.h>

#include "BillTable.h"

namespace Desktop {

class MainWindow : public QMainWindow {
public:
    explicit MainWindow(const Bill& bill);

    BillTable& Table() { return *m_table; }
    /// The entry of a menu with that name of an object; null when there is none.
    QAction* Entry(const char* name) const;

private:
    void AddTemplates();
    void AddFolders();
    void AddEntry(QMenu& menu, const char* name, const QString& text, const std::function<CString()>& open);

    BillTable* m_table;
};

}  // namespace Desktop
