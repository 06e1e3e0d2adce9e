#include "QsUtils/config/InputHistory.h"

#include <algorithm>
#include <utility>

#include "QsUtils/platform/ProfileFile.h"

namespace QsConfig {

namespace {

constexpr std::size_t MostEntries = 10;
constexpr int Buffer = 128;

CString KeyOf(int number) {
    CString key;
    key.Format(u"%d", number);
    return key;
}

/// The reader begins at 0 and the writer at 1, so that the tenth entry doesn't come back in the next process.
/// Files that are in use rest on both.
void ReadEntries(const CString& path, const CString& section, std::list<CString>& entries) {
    const QsPlatform::ProfileDocument file(path);
    for (int number = 0; number <= 9; ++number) {
        CString value = file.Text(section, KeyOf(number), CString(), Buffer);
        if (!value.IsEmpty())
            entries.push_back(std::move(value));
    }
}

void WriteEntries(const CString& path, const CString& section, const std::list<CString>& entries) {
    QsPlatform::ProfileValues values;
    int number = 0;
    for (const CString& entry : entries)
        values.emplace_back(KeyOf(++number), entry);
    // Nobody is told of a failure: the entries then last as long as the process.
    QsPlatform::WriteProfileValues(path, section, values);
}

}  // namespace

void GetHistory(HistoryMap& kept, const CString& path, const CString& section, std::list<CString>& history) {
    const auto found = kept.find(section);
    if (found != kept.end()) {
        history = found->second;
        return;
    }
    ReadEntries(path, section, history);
    kept[section] = history;
}

void WriteHistory(HistoryMap& kept, const CString& path, const CString& section, const CString& value) {
    if (value.IsEmpty())
        return;
    std::list<CString> entries;
    GetHistory(kept, path, section, entries);
    const auto found = std::find(entries.begin(), entries.end(), value);
    if (found != entries.end()) {
        if (found == entries.begin())
            return;
        entries.erase(found);
    }
    entries.push_front(value);
    if (entries.size() > MostEntries)
        entries.pop_back();
    WriteEntries(path, section, entries);
    kept[section] = std::move(entries);
}

}  // namespace QsConfig
