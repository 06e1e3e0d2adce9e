// One engine for every system, though one of them has the calls that this follows: those rewrite the whole
// file on a change, in place. So both systems write the same bytes, and a test holds the reading to the
// answers of the calls.
#include "QsUtils/platform/ProfileFile.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "QsUtils/platform/FileContent.h"
#include "QsUtils/platform/FileReplacement.h"
#include "QsUtils/platform/ProfileText.h"
#include "QsUtils/text/TextSearch.h"

namespace QsPlatform {

namespace {

std::u16string_view WithoutQuotes(std::u16string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// One unit stays, even if it is a blank.
std::u16string_view WithoutTrailingBlanks(std::u16string_view text) {
    text = QsText::UpToNul(text);
    while (text.size() > 1 && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

CString Ask(std::string_view bytes, const CString& section, const CString& key, const CString& fallback,
            int size) {
    const std::optional<std::u16string> value =
        FindProfileValue(ProfileText(bytes), TrimProfileName(section.View()), TrimProfileName(key.View()));
    const std::u16string_view whole = value ? *value : WithoutTrailingBlanks(fallback.View());
    return CString(WithoutQuotes(whole).substr(0, static_cast<std::size_t>(std::max(size - 1, 0))));
}

}  // namespace

ProfileDocument::ProfileDocument(const CString& path) {
    if (std::optional<std::string> bytes = ReadWholeFile(path))
        m_bytes = std::move(*bytes);
}

ProfileDocument ProfileDocument::FromBytes(std::string bytes) {
    ProfileDocument document;
    document.m_bytes = std::move(bytes);
    return document;
}

CString ProfileDocument::Text(const CString& section, const CString& key, const CString& fallback,
                              int size) const {
    return Ask(m_bytes, section, key, fallback, size);
}

CString ReadProfileValue(const CString& path, const CString& section, const CString& key,
                         const CString& fallback, int size) {
    return ProfileDocument(path).Text(section, key, fallback, size);
}

bool WriteProfileValues(const CString& path, const CString& section, const ProfileValues& values,
                        FileFailure* failure) {
    const auto fail = [failure](FileFailure reason) {
        if (failure != nullptr)
            *failure = reason;
        return false;
    };
    FileFailure reading = FileFailure::None;
    const std::optional<std::string> before = ReadWholeFile(path, &reading);
    if (!before && reading != FileFailure::MissingFile)
        return fail(reading);
    std::string after = before.value_or(std::string());
    for (const auto& [key, value] : values) {
        std::optional<std::string> changed = SetProfileValue(after, section.View(), key.View(), value.View());
        if (!changed)
            return fail(FileFailure::Other);
        after = std::move(*changed);
    }
    if (before && after == *before)
        return true;
    FileReplacement file(path);
    return (file.Write(after.data(), after.size()) && file.Commit()) || fail(file.Failure());
}

bool WriteProfileValue(const CString& path, const CString& section, const CString& key,
                       const CString& value) {
    return WriteProfileValues(path, section, {{key, value}});
}

}  // namespace QsPlatform
