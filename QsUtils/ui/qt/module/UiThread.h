// The thread of Qt's windows: that of the host's application, or one of the module's own.
#pragma once

#include <functional>
#include <string>

class QDialog;
class QWidget;

namespace QsQt::UiThread {

/// Sees to it that there is an application with windows. A host's own is used, with its thread; where there
/// is none, one is made on a thread that runs it as long as the process lives. False, with the reason, when
/// there can't be one. Any thread may call it.
bool Start(std::u16string& reason);

/// Whether windows may still be touched: an application is there, and the process isn't ending.
bool IsAlive();

/// Runs work on the thread of the windows and waits for its end. When the application ends meanwhile the work
/// isn't done. Any thread may call it; work on that thread itself is done at once.
void Run(const std::function<void()>& work);

/// Runs a modal dialog to its end. `make` gives a new dialog on the parent that it is to have, if any; `read`
/// is called when it has been closed as accepted, which is the result. Any thread may call it. On the thread
/// of the windows a loop of its own runs meanwhile; other threads wait.
bool RunDialog(const std::function<QDialog*(QWidget* parent)>& make,
               const std::function<void(const QDialog&)>& read);

}  // namespace QsQt::UiThread
