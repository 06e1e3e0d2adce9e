// The system's word compare in the locale zh-CN: contract.
#pragma once

#include <string>
#include <string_view>

namespace QsPlatform {

/// Compares as `lstrcmpW` does in zh-CN: -1, 0 or 1. Letters of all kinds come by their alphabet and hanzi by
/// pinyin; case counts only when the letters are alike, lower case first; hyphen and apostrophe count only
/// when all else is alike, the text without one first, then the one that has it later. It is a total
/// preorder: transitive, and 0 also for texts that differ in units without weight. A text ends at its first
/// NUL. Any thread may call it.
int CompareWords(std::u16string_view a, std::u16string_view b);

/// Appends to `key` bytes whose unsigned, lexicographic order (a proper prefix first) is that of
/// `CompareWords`, so that a sort looks at each text once. A text needs no more than a small multiple of its
/// length. Any thread may call it.
void AppendWordKey(std::u16string_view text, std::string& key);

}  // namespace QsPlatform
