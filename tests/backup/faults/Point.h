// One point, as the systems' calls ask about it.
#pragma once

namespace FaultPoints {

enum class Outcome { Passes, Killed, DiskFull, Error };

/// What happens at the next point. `takesRoom` says whether the call needs room on the disk.
Outcome NextPoint(bool takesRoom) noexcept;

bool MayExchange() noexcept;
bool RenamesTakeRoom() noexcept;
bool MayMoveFolders() noexcept;

}  // namespace FaultPoints
