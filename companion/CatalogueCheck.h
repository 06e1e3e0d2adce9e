// Whether what a catalogue names is on disk.
#pragma once

#include "companion/Catalogue.h"
#include "companion/Disk.h"
#include "companion/Faults.h"

namespace Companion {

/// Reports missing folders and files. They aren't left out: they may be put there later, and the library
/// looks for each file itself.
void CheckFiles(const Disk& disk, const Catalogue& catalogue, Faults& faults);

}  // namespace Companion
