// A user made of code: acts on the windows of a process through its event loop, as keys and clicks come in.
#pragma once

#include <functional>
#include <string>

class QDialog;
class QString;
class QWidget;

namespace Robot {

/// Looks for what it waits for every few milliseconds, for ten seconds at most, and then acts; `find` gives
/// null as long as it isn't there. To be called on the thread of the windows. When the time is over the
/// process ends.
void When(const std::function<QWidget*()>& find, const std::function<void(QWidget*)>& act);

/// The visible dialog that has a child of that name; the message box on top.
QWidget* WindowWith(const char* childName);
QWidget* MessageBox();

/// Goes down to a row of the picker with the arrow key; -1 leaves the list alone.
void GoToRow(QWidget* picker, int row);
void DoubleClickRow(QWidget* picker, int row);
void Press(QWidget* window, int key);
void Click(QWidget* window, const char* button);

/// The texts of the rows, a tab between the cells and a line feed behind each row.
std::string Rows(QWidget* picker);
std::string StatusText(QWidget* browser);
/// Makes a folder (with slashes) of the browser the current one.
void GoToFolder(QWidget* browser, const std::string& path);
std::string Utf8(const QString& text);

}  // namespace Robot
