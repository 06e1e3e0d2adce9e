// A catalogue from its files.
#pragma once

#include <memory>
#include <string>

#include "companion/Catalogue.h"
#include "companion/Disk.h"
#include "companion/Faults.h"

namespace Companion {

/// Reads `Catalogue.xml` in a folder, which is absolute, and all files that it names. What is wrong in them
/// is reported and left out. Null when the main file itself can't be used.
std::unique_ptr<Catalogue> ReadCatalogue(const Disk& disk, const std::wstring& folder, Faults& faults);

}  // namespace Companion
