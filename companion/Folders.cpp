#include "companion/Folders.h"

#include <algorithm>

#include "companion/Paths.h"
#include "companion/Text.h"

namespace Companion {

namespace {

struct KindOfFolder {
    const wchar_t* pattern;  ///< by default
    PatternFields fields;    ///< the last one that the pattern may use
};

constexpr KindOfFolder Kinds[Folders::KindCount] = {
    {L"", PatternFields::None},
    {L"{Family}", PatternFields::Family},
    {L"{Family}\\{Section}\\定额库", PatternFields::Section},
    {L"清单库\\{Family}\\{Section}", PatternFields::Section},
    {L"{Family}\\{Section}", PatternFields::Item},
    {L"清单库\\企业清单\\{Family}", PatternFields::Family},
    {L"{Family}\\{Section}\\配套文件", PatternFields::Section},
    {L"{Family}\\{Section}\\子库", PatternFields::Section},
    {L"{Family}\\{Section}\\说明", PatternFields::Item},
    {L"{Family}\\{Section}\\信息价", PatternFields::Item},
    {L"{Family}\\{Section}\\工料机库", PatternFields::Item},
    {L"{Family}\\{Section}\\取费模板", PatternFields::Section},
    {L"{Family}\\{Section}\\报表模板", PatternFields::Section},
    {L"{Family}\\{Section}\\子库\\{Item}", PatternFields::Item},
};

struct Field {
    std::wstring_view placeholder;
    PatternFields field;
    std::wstring LibraryPathQuery::*name;
};

constexpr Field Fields[] = {
    {L"{Family}", PatternFields::Family, &LibraryPathQuery::Family},
    {L"{Section}", PatternFields::Section, &LibraryPathQuery::Section},
    {L"{Item}", PatternFields::Item, &LibraryPathQuery::Item},
};

// In the kept patterns a field is one control character, which no text of a catalogue holds: braces may stand
// in the name of the folder that the catalogue lies in.
constexpr wchar_t FirstMark = 1;
constexpr wchar_t Marks[] = L"\x01\x02\x03";

/// The place in `Fields` of the field whose placeholder stands at the beginning of a text; their number for
/// another text.
std::size_t FieldAt(std::wstring_view text) noexcept {
    const auto* const found = std::find_if(std::begin(Fields), std::end(Fields), [&](const Field& each) {
        return text.starts_with(each.placeholder);
    });
    return static_cast<std::size_t>(found - std::begin(Fields));
}

std::wstring Marked(std::wstring_view pattern) {
    std::wstring marked;
    for (std::size_t at = 0; at < pattern.size();) {
        const std::size_t field = FieldAt(pattern.substr(at));
        const bool isField = field < std::size(Fields);
        marked += isField ? static_cast<wchar_t>(FirstMark + field) : pattern[at];
        at += isField ? Fields[field].placeholder.size() : 1;
    }
    return marked;
}

std::string WrongWith(std::wstring_view pattern, PatternFields allowed) {
    for (std::size_t at = pattern.find(L'{'); at != std::wstring_view::npos;
         at = pattern.find(L'{', at + 1)) {
        const std::size_t field = FieldAt(pattern.substr(at));
        if (field == std::size(Fields))
            return "a \"{\" that begins none of {Family}, {Section} and {Item}";
        if (Fields[field].field > allowed)
            return ToUtf8(Fields[field].placeholder) + " isn't known where this kind of folder is asked for";
    }
    return {};
}

}  // namespace

Folders::Folders(std::wstring root) : m_root(std::move(root)) {
    for (std::int32_t kind = 0; kind < KindCount; ++kind)
        Set(kind, Kinds[kind].pattern);
}

void Folders::Set(std::int32_t kind, std::wstring_view pattern) {
    m_patterns[static_cast<std::size_t>(kind)] = AsFolder(Resolve(m_root, Marked(pattern)));
}

std::string Folders::SetPattern(std::int32_t kind, std::wstring_view pattern) {
    std::string wrong = WrongWith(pattern, Kinds[kind].fields);
    if (!wrong.empty())
        return wrong;
    Set(kind, pattern);
    m_itemsAreSet = m_itemsAreSet || kind == LibraryPath_SubLibrary;
    if (kind == LibraryPath_SubLibraryRoot && !m_itemsAreSet)
        Set(LibraryPath_SubLibrary, std::wstring(pattern) + L"\\{Item}");
    return {};
}

std::wstring Folders::Path(const LibraryPathQuery& query) const {
    if (query.PathKind < 0 || query.PathKind >= KindCount)
        return {};
    const std::wstring_view pattern = m_patterns[static_cast<std::size_t>(query.PathKind)];
    std::wstring path;
    for (std::size_t at = 0; at < pattern.size();) {
        const std::size_t mark = std::min(pattern.find_first_of(Marks, at), pattern.size());
        path += pattern.substr(at, mark - at);
        if (mark < pattern.size()) {
            const std::wstring& name = query.*(Fields[pattern[mark] - FirstMark].name);
            if (!IsEntryName(name))
                return {};
            path += name;
        }
        at = mark + 1;
    }
    return path;
}

std::wstring Folders::Path(std::int32_t kind, const std::wstring& family, const std::wstring& section,
                           const std::wstring& item) const {
    return Path(LibraryPathQuery{family, section, item, {}, kind});
}

}  // namespace Companion
