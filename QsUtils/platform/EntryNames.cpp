#include "QsUtils/platform/EntryNames.h"

#include <algorithm>
#include <cstddef>

#include "QsUtils/platform/UpperCase.h"

namespace QsPlatform {

bool StandsBefore(std::u16string_view a, std::u16string_view b) noexcept {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i])
            continue;
        const char16_t upperA = UpperCase(a[i]);
        const char16_t upperB = UpperCase(b[i]);
        if (upperA != upperB)
            return upperA < upperB;
    }
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

NameMask::NameMask(std::u16string_view mask) {
    const std::size_t last = mask.find_last_not_of(u". ");
    for (const char16_t unit : mask.substr(0, last + 1)) {
        if (unit != u'*' || m_mask.empty() || m_mask.back() != u'*')
            m_mask += UpperCase(unit);
    }
}

/// Whether the rest of the mask may stand for nothing at the end of a name.
bool NameMask::MatchesNothingFrom(std::size_t at) const noexcept {
    return m_mask.find_first_not_of(u".*", at) == m_mask.npos;  // points aren't the last of a mask
}

bool NameMask::Matches(std::u16string_view name) const noexcept {
    constexpr std::size_t None = static_cast<std::size_t>(-1);
    std::size_t at = 0;    // in the mask
    std::size_t unit = 0;  // in the name
    // Only the last "*" is ever given more: what an earlier one could take more, the last one can as well.
    std::size_t behindStar = None;
    std::size_t starEnd = 0;
    while (unit < name.size()) {
        if (at < m_mask.size() && m_mask[at] == u'*') {
            behindStar = ++at;
            starEnd = unit;
        } else if (at < m_mask.size() && (m_mask[at] == u'?' || m_mask[at] == UpperCase(name[unit]))) {
            ++at;
            ++unit;
        } else if (behindStar != None) {
            at = behindStar;
            unit = ++starEnd;
        } else {
            return false;
        }
    }
    return MatchesNothingFrom(at);
}

}  // namespace QsPlatform
