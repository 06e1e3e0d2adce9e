// The folders of the libraries, each by a pattern.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "QsUtils/directory/LibraryVisitor.h"

namespace Companion {

/// The fields of a query that a kind of folder may use in its pattern.
enum class PatternFields { None, Family, Section, Item };

/// A pattern is a path below the root, or an absolute one, in which "{Family}", "{Section}" and "{Item}"
/// stand for the names of a query.
class Folders {
public:
    static constexpr std::int32_t KindCount = 14;

    /// The default patterns below an absolute root folder.
    explicit Folders(std::wstring root = {});

    /// Replaces the pattern of a kind, 0 to 13. A new pattern of the items' parent is that of the items too,
    /// as long as they have none of their own. What is wrong with the pattern, in UTF-8; empty if it is
    /// taken.
    std::string SetPattern(std::int32_t kind, std::wstring_view pattern);

    const std::wstring& Root() const noexcept { return m_root; }
    /// The folder with a backslash at its end; empty for an unknown kind, and when the pattern needs a name
    /// that the query lacks or that can't be the name of one folder.
    std::wstring Path(const LibraryPathQuery& query) const;
    std::wstring Path(std::int32_t kind, const std::wstring& family = {}, const std::wstring& section = {},
                      const std::wstring& item = {}) const;

private:
    void Set(std::int32_t kind, std::wstring_view pattern);

    std::wstring m_root;
    std::array<std::wstring, KindCount> m_patterns;  // absolute, with a backslash at the end
    bool m_itemsAreSet = false;
};

}  // namespace Companion
