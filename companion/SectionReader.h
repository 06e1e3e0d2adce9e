// The libraries of one section from their file.
#pragma once

#include "companion/Catalogue.h"
#include "companion/Disk.h"
#include "companion/Faults.h"

namespace Companion {

/// Reads `section.file` into the section; `itemTags` are the tags that libraries may name. False when the
/// file can't be used at all.
bool ReadSection(const Disk& disk, const std::set<std::wstring>& itemTags, Section& section, Faults& faults);

}  // namespace Companion
