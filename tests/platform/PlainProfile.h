// Profile files the plain way: the whole file is decoded, cut into lines, and kept as lists of sections and
// keys; an edit changes the list of lines and writes all of them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/Utf8.h"

namespace PlainProfile {

inline bool IsSpace(char16_t unit) {
    return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 26;
}

inline std::u16string Trim(std::u16string text) {
    while (!text.empty() && IsSpace(text.back()))
        text.pop_back();
    while (!text.empty() && IsSpace(text.front()))
        text.erase(0, 1);
    return text;
}

inline std::u16string UpToNul(const std::u16string& text) {
    return std::u16string(text.c_str());
}

inline std::u16string Lower(std::u16string text) {
    for (char16_t& unit : text)
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit + 32);
    return text;
}

inline bool IsUtf16(const std::string& bytes) {
    return bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF";
}

inline std::u16string Decode(const std::string& bytes) {
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        return QsPlatform::DecodeUtf8(bytes.substr(3));
    if (!IsUtf16(bytes))
        return QsPlatform::DecodeAnsi(bytes);
    const bool little = bytes[0] == '\xFF';
    std::u16string text;
    for (std::size_t i = 2; i < bytes.size(); i += 2) {
        const unsigned first = static_cast<unsigned char>(bytes[i]);
        if (i + 1 == bytes.size())
            text += static_cast<char16_t>(first);
        else
            text += static_cast<char16_t>(little ? first | static_cast<unsigned char>(bytes[i + 1]) * 256U
                                                 : first * 256U | static_cast<unsigned char>(bytes[i + 1]));
    }
    return text;
}

/// A whole text in the encoding that `like` has, with its mark.
inline std::string Encode(const std::u16string& text, const std::string& like) {
    if (like.substr(0, 3) == "\xEF\xBB\xBF")
        return "\xEF\xBB\xBF" + QsPlatform::EncodeUtf8(text);
    if (!IsUtf16(like))
        return QsPlatform::EncodeAnsi(text);
    std::string bytes = like.substr(0, 2);
    for (const char16_t unit : text) {
        const std::string both = {static_cast<char>(unit % 256), static_cast<char>(unit / 256)};
        bytes += like[0] == '\xFF' ? both : std::string(both.rbegin(), both.rend());
    }
    return bytes;
}

/// Lines with their ends.
inline std::vector<std::u16string> Lines(const std::u16string& text) {
    std::vector<std::u16string> lines;
    std::u16string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        line += text[i];
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            continue;
        if (text[i] == u'\n' || text[i] == u'\r') {
            lines.push_back(line);
            line.clear();
        }
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

struct Key {
    std::u16string name;
    std::optional<std::u16string> value;
};

struct Section {
    std::u16string name;
    std::vector<Key> keys;
};

inline std::optional<std::u16string> SectionName(const std::u16string& line) {
    const std::u16string text = Trim(line);
    if (text.substr(0, 1) != u"[" || text.find(u']') == text.npos)
        return std::nullopt;
    return UpToNul(Trim(text.substr(1, text.rfind(u']') - 1)));
}

inline Key KeyOf(const std::u16string& line) {
    const std::u16string text = Trim(line);
    const std::size_t equals = text.find(u'=');
    Key key;
    key.name = UpToNul(equals == text.npos ? text : Trim(text.substr(0, equals)));
    if (equals != text.npos)
        key.value = UpToNul(Trim(text.substr(equals + 1)));
    return key;
}

inline std::vector<Section> Parse(const std::string& bytes) {
    std::vector<Section> sections(1);
    for (const std::u16string& line : Lines(Decode(bytes))) {
        if (Trim(line).empty())
            continue;
        if (const auto name = SectionName(line))
            sections.push_back({*name, {}});
        else
            sections.back().keys.push_back(KeyOf(line));
    }
    return sections;
}

/// The value as the file has it.
inline std::optional<std::u16string> Find(const std::string& bytes, const std::u16string& section,
                                          const std::u16string& key) {
    for (const Section& each : Parse(bytes)) {
        if (Lower(each.name) != Lower(Trim(UpToNul(section))))
            continue;
        for (const Key& candidate : each.keys)
            if (Lower(candidate.name) == Lower(Trim(UpToNul(key))))
                return candidate.value;
        return std::nullopt;
    }
    return std::nullopt;
}

inline std::u16string Text(const std::string& bytes, const std::u16string& section, const std::u16string& key,
                           const std::u16string& fallback, int size) {
    std::u16string text = UpToNul(fallback);
    while (text.size() > 1 && text.back() == u' ')
        text.pop_back();
    if (const auto value = Find(bytes, section, key))
        text = *value;
    if (text.size() >= 2 && text.front() == text.back() && (text.front() == u'"' || text.front() == u'\''))
        text = text.substr(1, text.size() - 2);
    return text.substr(0, size < 1 ? 0 : static_cast<std::size_t>(size) - 1);
}

inline std::u16string EndOf(const std::u16string& line) {
    return line.substr(line.find_last_not_of(u"\r\n") + 1);
}

/// The line of a key with another value.
inline std::u16string WithValue(const std::u16string& line, const std::u16string& value) {
    const std::u16string ending = EndOf(line);
    std::u16string text = line.substr(0, line.size() - ending.size());
    std::size_t from = text.find(u'=');
    if (from == text.npos) {
        while (!text.empty() && IsSpace(text.back()))
            text.pop_back();
        return text + u"=" + value + ending;
    }
    do
        ++from;
    while (from < text.size() && IsSpace(text[from]));
    return text.substr(0, from) + value + ending;
}

/// Puts new lines behind the first `behind` ones.
inline void InsertLines(std::vector<std::u16string>& lines, std::size_t behind,
                        const std::vector<std::u16string>& added) {
    const std::u16string first = lines.empty() ? u"" : EndOf(lines[0]);
    std::u16string ending = first.empty() ? u"\r\n" : first;
    if (behind > 0 && EndOf(lines[behind - 1]).empty())
        lines[behind - 1] += ending;
    if (behind > 0)
        ending = EndOf(lines[behind - 1]);
    for (const std::u16string& line : added)
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(behind++), line + ending);
}

inline std::string Joined(const std::vector<std::u16string>& lines, const std::string& like) {
    std::u16string text;
    for (const std::u16string& line : lines)
        text += line;
    return Encode(text, like);
}

/// For files that are well encoded, and names and values that the encoding has.
inline std::string Set(const std::string& bytes, const std::u16string& section, const std::u16string& key,
                       const std::u16string& value) {
    std::vector<std::u16string> lines = Lines(Decode(bytes));
    bool inside = section.empty();
    std::size_t behind = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (Trim(lines[i]).empty())
            continue;
        const auto name = SectionName(lines[i]);
        if (inside && name)
            break;
        if (name)
            inside = Lower(*name) == Lower(section);
        if (inside && !name && Lower(KeyOf(lines[i]).name) == Lower(key)) {
            if (KeyOf(lines[i]).value == value)
                return bytes;
            lines[i] = WithValue(lines[i], value);
            return Joined(lines, bytes);
        }
        if (inside)
            behind = i + 1;
    }
    const std::u16string line = key + u"=" + value;
    if (inside)
        InsertLines(lines, behind, {line});
    else
        InsertLines(lines, lines.size(), {u"[" + section + u"]", line});
    return Joined(lines, bytes);
}

}  // namespace PlainProfile
