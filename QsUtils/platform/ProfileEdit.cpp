// How a profile file changes when one value is set.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/platform/ProfileText.h"

namespace QsPlatform {

namespace {

using Kind = ProfileEntry::Kind;

constexpr std::u16string_view NewFileLineEnd = u"\r\n";

/// Where the key stands, or where it would be put.
struct Place {
    bool hasSection = false;
    bool hasKey = false;
    ProfileLine line;  ///< the key's; without one the last of the section that isn't blank
};

Place FindPlace(const ProfileText& text, std::u16string_view section, std::u16string_view key) {
    Place place;
    place.hasSection = section.empty();
    place.line = {text.Begin(), text.Begin(), text.Begin()};
    ProfileLine line;
    for (std::size_t at = text.Begin(); text.LineAt(at, line); at = line.next) {
        const std::size_t first = text.SkipSpace(line.begin, line.end);
        if (first == line.end || (!place.hasSection && text.CharacterAt(first) != u'['))
            continue;
        const std::u16string decoded = text.Decode(first, line.end);
        const ProfileEntry entry = ParseProfileLine(decoded);
        if (entry.kind == Kind::Section) {
            if (place.hasSection)
                return place;
            place.hasSection = SameProfileName(entry.name, section);
        } else if (place.hasSection && SameProfileName(entry.name, key)) {
            place.hasKey = true;
            place.line = line;
            return place;
        }
        if (place.hasSection)
            place.line = line;
    }
    return place;
}

/// The text as it comes back from the file.
std::u16string RoundTrip(ProfileEncoding encoding, std::u16string_view text) {
    return encoding == ProfileEncoding::Ansi ? DecodeAnsi(EncodeAnsi(text)) : std::u16string(text);
}

/// A value as it will be read, but for quotes: on one line, without white space around it.
std::u16string Storable(ProfileEncoding encoding, std::u16string_view value) {
    const std::u16string kept = RoundTrip(encoding, TrimProfileName(value));
    return std::u16string(TrimProfileName(kept.substr(0, kept.find_first_of(u"\r\n"))));
}

/// Whether the last line of the file ends with half a character, which takes the next byte along.
bool EndsTorn(const ProfileText& text, const ProfileLine& line) {
    std::size_t last = line.end;
    for (std::size_t at = line.begin; at < line.end; at = text.After(at))
        last = at;
    return text.Encoding() == ProfileEncoding::Ansi && last < line.end && text.After(last) == last + 1 &&
           text.CharacterAt(last) == ProfileText::NotAscii;
}

/// How lines end in this file: as `line` does, or the first one, or as in a new file.
std::u16string LineEnd(const ProfileText& text, const ProfileLine& line) {
    if (line.next > line.end)
        return text.Decode(line.end, line.next);
    ProfileLine first;
    // Of CR LF half a character takes the CR, and the LF still ends the line.
    if (!EndsTorn(text, line) && text.LineAt(text.Begin(), first) && first.next > first.end)
        return text.Decode(first.end, first.next);
    return std::u16string(NewFileLineEnd);
}

/// The line of the key with the new value; the same bytes when the value is there already.
std::string ChangedLine(const ProfileText& text, std::string_view bytes, const ProfileLine& line,
                        std::u16string_view value) {
    const std::u16string decoded = text.Decode(line.begin, line.end);
    const ProfileEntry entry = ParseProfileLine(decoded);
    if (entry.kind == Kind::Value) {
        if (entry.value == value)
            return std::string(bytes.substr(line.begin, line.end - line.begin));
        const std::size_t equals = text.Find(u'=', line.begin, line.end);
        const std::size_t from = text.SkipSpace(text.After(equals), line.end);
        return std::string(bytes.substr(line.begin, from - line.begin)) +
               EncodeProfileText(text.Encoding(), value);
    }
    // Encoded anew, because at the end of a file half a character would take the "=" along.
    const std::u16string named = decoded.substr(0, decoded.find_last_not_of(u" \t\v\f\x1A") + 1);
    return EncodeProfileText(text.Encoding(), named + u'=' + std::u16string(value));
}

/// Puts whole lines behind `line`, or in front of everything when it is empty and the first.
std::string WithLinesBehind(const ProfileText& text, std::string_view bytes, const ProfileLine& line,
                            std::u16string_view first, std::u16string_view second) {
    const std::u16string end = LineEnd(text, line);
    std::u16string added;
    // The last line of a file may lack its end.
    if (line.next == line.end && line.end > text.Begin())
        added += end;
    added.append(first).append(first.empty() ? u"" : end).append(second).append(end);
    return std::string(bytes.substr(0, line.next)) + EncodeProfileText(text.Encoding(), added) +
           std::string(bytes.substr(line.next));
}

ProfileLine LastLine(const ProfileText& text) {
    ProfileLine last{text.Begin(), text.Begin(), text.Begin()};
    for (std::size_t at = text.Begin(); text.LineAt(at, last); at = last.next) {
    }
    return last;
}

/// In the two-byte encodings a byte left over at the end becomes the unit that it counts as, so that what is
/// written behind it isn't torn.
std::string WholeUnits(std::string_view bytes) {
    const ProfileText text(bytes);
    std::string whole(bytes);
    const bool wide =
        text.Encoding() == ProfileEncoding::Utf16Little || text.Encoding() == ProfileEncoding::Utf16Big;
    if (wide && bytes.size() % 2 != 0)
        whole.insert(text.Encoding() == ProfileEncoding::Utf16Little ? whole.end() : whole.end() - 1, '\0');
    return whole;
}

std::string Edited(std::string_view bytes, std::u16string_view section, std::u16string_view key,
                   std::u16string_view value) {
    const std::string whole = WholeUnits(bytes);
    const ProfileText text(whole);
    const Place place = FindPlace(text, section, key);
    if (place.hasKey) {
        const std::string line = ChangedLine(text, whole, place.line, value);
        if (line == std::string_view(whole).substr(place.line.begin, place.line.end - place.line.begin))
            return std::string(bytes);
        return whole.substr(0, place.line.begin) + line + whole.substr(place.line.end);
    }
    const std::u16string line = std::u16string(key) + u'=' + std::u16string(value);
    if (place.hasSection)
        return WithLinesBehind(text, whole, place.line, {}, line);
    const std::u16string head = u'[' + std::u16string(section) + u']';
    return WithLinesBehind(text, whole, LastLine(text), head, line);
}

}  // namespace

std::optional<std::string> SetProfileValue(std::string_view bytes, std::u16string_view section,
                                           std::u16string_view key, std::u16string_view value) {
    section = TrimProfileName(section);
    key = TrimProfileName(key);
    const std::u16string stored = Storable(ProfileText(bytes).Encoding(), value);
    std::string edited = Edited(bytes, section, key, stored);
    // A name may be torn by the syntax or changed by the encoding. Such lines would pile up, one a call, and
    // never be found.
    if (FindProfileValue(ProfileText(edited), section, key) != stored)
        return std::nullopt;
    return edited;
}

}  // namespace QsPlatform
