// Bills of any size.
#pragma once

#include <cstddef>
#include <ostream>

/// Writes a bill of `rows` rows below its headings: bill items in random order of their codes, each with four
/// quota rows; the same for the same `rows`. At most two million bill items differ in their codes.
void GenerateBill(std::ostream& out, std::size_t rows);
