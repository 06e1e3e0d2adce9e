// The application of a host that has none.
#pragma once

#include <string>

class QWidget;

namespace QsQt {

/// Starts an application on a thread of its own, where it runs until the process ends. At that end the thread
/// is held in place, so that nothing of Qt runs while Qt's static objects go. The locale of the process stays
/// what it was. False, with the reason, when no window can be shown; to be called until it has been true
/// once.
///
/// Qt takes the thread that first meets it for its main one and leaves objects to it that stay until the end;
/// so the caller's, which may end before, does nothing of Qt until then.
bool StartOwnApplication(std::u16string& reason);

/// To be called now and then when work has been done on that thread: at the end of the process it is held in
/// place before anything goes that Qt has made by now. Nothing happens for a host with its own application.
void PrepareForEnd();

/// To be called on that thread before a dialog is shown, during which the process may end: the thread then
/// sees to that itself, each time that it comes to rest. Nothing happens for a host with its own application.
void PrepareForDialog(QWidget& dialog);

/// Whether the thread is held in place.
bool IsOwnApplicationHeld() noexcept;

}  // namespace QsQt
