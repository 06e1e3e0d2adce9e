// Where a search with a tail may find something.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// How much of "\tail\" the units of a path end in, unit by unit (Knuth, Morris and Pratt, 1977); once it has
/// been met whole it stays so.
class TailProgress {
public:
    explicit TailProgress(const CString& tail) {
        if (tail.IsEmpty())
            return;
        m_wanted = u'\\' + std::u16string(tail.View()) + u'\\';
        m_borders.resize(m_wanted.size(), 0);
        for (std::size_t i = 1; i < m_wanted.size(); ++i)
            m_borders[i] = Behind(m_borders[i - 1], m_wanted[i]);
    }

    std::size_t Advance(std::size_t progress, std::u16string_view units) const {
        for (const char16_t unit : units) {
            if (IsMet(progress))
                break;
            progress = Behind(progress, unit);
        }
        return progress;
    }
    bool IsMet(std::size_t progress) const noexcept { return progress == m_wanted.size(); }

private:
    std::size_t Behind(std::size_t progress, char16_t unit) const {
        while (progress > 0 && m_wanted[progress] != unit)
            progress = m_borders[progress - 1];
        return m_wanted[progress] == unit ? progress + 1 : 0;
    }

    std::u16string m_wanted;
    std::vector<std::size_t> m_borders;
};

}  // namespace QsPlatform
