// What a mask matches, by trying everything; for short masks and names.
#pragma once

#include <string>
#include <string_view>

#include "QsUtils/platform/UpperCase.h"

class PlainNameMask {
public:
    explicit PlainNameMask(std::u16string_view mask) : m_mask(mask) {
        while (!m_mask.empty() && (m_mask.back() == u'.' || m_mask.back() == u' '))
            m_mask.pop_back();
    }
    bool Matches(std::u16string_view name) const { return Match(m_mask, name); }

private:
    static bool Match(std::u16string_view mask, std::u16string_view name) {
        if (mask.empty())
            return name.empty();
        if (mask[0] == u'*')
            return Match(mask.substr(1), name) || (!name.empty() && Match(mask, name.substr(1)));
        if (name.empty())
            return mask[0] == u'.' && IsBeforeStar(mask) && Match(mask.substr(1), name);
        return (mask[0] == u'?' || QsPlatform::UpperCase(mask[0]) == QsPlatform::UpperCase(name[0])) &&
               Match(mask.substr(1), name.substr(1));
    }
    static bool IsBeforeStar(std::u16string_view mask) {
        const std::size_t next = mask.find_first_not_of(u'.');
        return next != mask.npos && mask[next] == u'*';
    }

    std::u16string m_mask;
};
