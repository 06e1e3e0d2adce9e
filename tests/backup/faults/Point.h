// One point, as the systems' calls ask about it.
#pragma once

namespace FaultPoints {

enum class Outcome { Passes, Killed, DiskFull, Error };

/// With which a killed process ends where the system wants a status of it; no other end has it.
inline constexpr int KilledStatus = 137;

/// What happens at the next point. `takesRoom` says whether the call needs room on the disk.
Outcome NextPoint(bool takesRoom) noexcept;

bool MayExchange() noexcept;
bool RenamesTakeRoom() noexcept;
bool MayMoveFolders() noexcept;

}  // namespace FaultPoints
