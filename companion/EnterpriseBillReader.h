// The enterprise bill libraries of one family from their file.
#pragma once

#include "companion/Catalogue.h"
#include "companion/Disk.h"
#include "companion/Faults.h"

namespace Companion {

/// Reads `family.billsFile` into the family. False when the file can't be used at all.
bool ReadEnterpriseBills(const Disk& disk, Family& family, Faults& faults);

}  // namespace Companion
