// Whether a window can be shown, found out without Qt, which ends the process when it can't.
#pragma once

#include <memory>
#include <string>

namespace QsQt {

/// The platform that Qt is to be started with. With an empty `name` there is none, and `reason` says why.
struct Platform {
    std::string name;
    std::u16string reason;
    /// The connection with which the display was asked, to be kept until Qt has its own: an X server may
    /// begin anew, and refuse others meanwhile, when its last client leaves.
    std::shared_ptr<void> connection;
};

/// Takes the platforms that QT_QPA_PLATFORM names, else those of the session (WAYLAND_DISPLAY, DISPLAY), and
/// gives the first one that is installed and answers.
Platform FindPlatform();

}  // namespace QsQt
