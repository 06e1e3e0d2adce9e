// What keeps ICU in the process once it has been used.
#pragma once

namespace QsPlatform {

/// Keeps the ICU libraries mapped until the process ends. To be called before ICU is used for the first time.
///
/// ICU holds caches that only a call for the whole process would free, and that call is the host's to make.
/// If ICU left the process together with this module, each load and unload would lose those caches anew.
void PinIcu() noexcept;

}  // namespace QsPlatform
