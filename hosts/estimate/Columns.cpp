#include "Columns.h"

#include <algorithm>

namespace Estimate {
namespace {

constexpr std::string_view Spaces[] = {" ", "\t", "\r", "\n", "\v", "\f", "\u00A0", "\u3000"};

std::string Plain(std::string_view heading) {
    std::string plain(heading.substr(0, std::min(heading.find('('), heading.find("（"))));
    for (const std::string_view space : Spaces)
        for (std::size_t at = plain.find(space); at != std::string::npos; at = plain.find(space, at))
            plain.erase(at, space.size());
    for (char& byte : plain)
        if (byte >= 'A' && byte <= 'Z')
            byte = static_cast<char>(byte - 'A' + 'a');
    std::erase(plain, '_');
    return plain;
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
    for (bool again = true; again;) {
        again = false;
        for (const std::string_view space : Spaces) {
            if (text.starts_with(space)) {
                text.remove_prefix(space.size());
                again = true;
            }
            if (text.ends_with(space)) {
                text.remove_suffix(space.size());
                again = true;
            }
        }
    }
    return text;
}

bool Columns::TryHeadings(const CsvRow& row) {
    std::vector<std::size_t> places(m_specs.size(), 0);
    for (std::size_t at = 0; at < row.fields.size(); ++at) {
        const std::string heading = Plain(row.fields[at]);
        for (std::size_t i = 0; i < m_specs.size(); ++i)
            if (places[i] == 0 &&
                std::ranges::find(m_specs[i].headings, heading) != m_specs[i].headings.end())
                places[i] = at + 1;
    }
    const auto count = m_specs.size() - static_cast<std::size_t>(std::ranges::count(places, std::size_t{0}));
    if (m_best.empty() || count > m_bestCount) {
        m_best = places;
        m_bestCount = count;
    }
    m_known = true;
    for (std::size_t i = 0; i < m_specs.size(); ++i)
        m_known = m_known && (places[i] > 0 || !m_specs[i].required);
    if (m_known) {
        m_places = std::move(places);
        m_width = row.fields.size();
    }
    return m_known;
}

Message Columns::Missing() const {
    Message titles;
    for (std::size_t i = 0; i < m_specs.size(); ++i) {
        if (!m_specs[i].required || (!m_best.empty() && m_best[i] > 0))
            continue;
        const Message title = Message::Of(m_specs[i].title);
        titles = titles.empty() ? title : Say<Text::Listed>(titles, title);
    }
    return titles;
}

std::string_view Columns::Field(const CsvRow& row, std::size_t column) const {
    const std::size_t place = m_places[column];
    return place == 0 || place > row.fields.size() ? std::string_view() : Trimmed(row.fields[place - 1]);
}

}  // namespace Estimate
