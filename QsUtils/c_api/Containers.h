// The lists and maps of the C interface, and the ways between them and those of C++.
#pragma once

#include <cstdint>
#include <iterator>
#include <map>
#include <vector>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Lists.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/text/CStringArray.h"

struct QsTextList {
    std::vector<CString> texts;
};

struct QsIndexList {
    std::vector<std::uint32_t> values;
};

struct QsTextMap {
    std::map<CString, CString> texts;
};

struct QsIndexMap {
    std::map<int, CString> texts;
};

namespace QsCApi {

/// The texts as the container that a function wants.
template <typename Container>
Container Copied(const QsTextList& list) {
    return Container(list.texts.begin(), list.texts.end());
}

template <>
inline CStringArray Copied(const QsTextList& list) {
    CStringArray copy;
    for (const CString& text : list.texts)
        copy.Add(text);
    return copy;
}

/// Puts the texts of a container behind those of a list, or in their place. The list stays as it was when
/// there is no memory.
template <typename Container>
void Append(QsTextList& list, Container&& texts) {
    list.texts.insert(list.texts.end(), std::make_move_iterator(texts.begin()),
                      std::make_move_iterator(texts.end()));
}

template <typename Container>
void Replace(QsTextList& list, Container&& texts) {
    list.texts =
        std::vector<CString>(std::make_move_iterator(texts.begin()), std::make_move_iterator(texts.end()));
}

/// The keys of a map.
template <typename Map>
std::vector<CString> KeysOf(const Map& map) {
    std::vector<CString> keys;
    keys.reserve(map.size());
    for (const auto& entry : map)
        keys.push_back(entry.first);
    return keys;
}

}  // namespace QsCApi
