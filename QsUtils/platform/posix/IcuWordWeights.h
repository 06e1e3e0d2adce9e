// Weights of the word order beyond ASCII, from ICU.
#pragma once

#include <array>

#include "QsUtils/platform/posix/WordWeights.h"

namespace QsPlatform {

/// Fills in what the 256 units from `first` on weigh. Where ICU has no collation by pinyin, units weigh by
/// their numbers. Leaves no ICU object open.
void FillWordWeights(char16_t first, std::array<UnitWeight, 0x100>& weights);

}  // namespace QsPlatform
