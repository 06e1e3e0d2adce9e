// Whether there is somebody to look at windows.
#pragma once

namespace QsPlatform {

/// Whether a window of this process can be seen by somebody: a service and a login without a desktop have
/// none, and where no display is connected windows can't be made at all. Any thread may call it.
bool HasScreen() noexcept;

}  // namespace QsPlatform
