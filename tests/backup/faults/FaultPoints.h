// Faults at the calls by which the library changes files. Every such call of the library's objects is led
// here by the linker, in this program alone, and counts as one point.
#pragma once

#include <string>
#include <string_view>

namespace FaultPoints {

enum class Fault {
    None,
    Killed,    ///< the process is killed in front of the call, or behind half of a write
    DiskFull,  ///< the call, and each one behind it that takes room, finds the disk full
    Error,     ///< this one call fails
};

struct Plan {
    Fault fault = Fault::None;
    int point = 0;                ///< from 1 on
    bool exchanges = true;        ///< whether the system can exchange two entries, where it can at all
    bool renamesTakeRoom = true;  ///< whether a full disk keeps entries from being renamed
    bool movesFolders = true;     ///< whether entries in use elsewhere don't stand in the way of moving
};

/// Begins to count.
void Arm(const Plan& plan) noexcept;

/// Ends it; how many points there were.
int Disarm() noexcept;

/// As a text that is an argument of a program, and back.
std::string TextOf(const Plan& plan);
Plan PlanOf(std::string_view text);

}  // namespace FaultPoints
