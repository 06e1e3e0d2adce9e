// The orders of item codes. `IQsUtils` documents the operations of the same names.
#pragma once

#include <cstddef>
#include <string_view>

#include "QsUtils/text/CString.h"

namespace QsCodes {

/// A quota code of this many units or more compares below every other code, and every other below it.
inline constexpr std::size_t QuotaCodeLimit = 500;

int CompareDECode(const CString& a, const CString& b);
int CompareQDCode(const CString& a, const CString& b);
int CompareStringW(const CString& a, const CString& b);
int CompareStringW(const CString& a, const CString& b, wchar_t sep);
bool SortItem(const CString& a, const CString& b);

/// The pieces of a text between separators, as `IQsUtils::Split` gives them: a last empty piece is left out.
class Pieces {
public:
    Pieces(std::u16string_view text, std::u16string_view separator) : m_rest(text), m_separator(separator) {}

    /// Moves `piece` to the next piece; false when there is none.
    bool Next(std::u16string_view& piece) {
        const std::size_t end = m_rest.find(m_separator);
        if (end == std::u16string_view::npos) {
            piece = m_rest;
            m_rest = {};
            return !piece.empty();
        }
        piece = m_rest.substr(0, end);
        m_rest.remove_prefix(end + m_separator.size());
        return true;
    }

private:
    std::u16string_view m_rest;
    std::u16string_view m_separator;
};

}  // namespace QsCodes
