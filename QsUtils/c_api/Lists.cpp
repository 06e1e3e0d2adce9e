#include "QsUtils/c_api/Lists.h"

#include <iterator>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"

using QsCApi::At;
using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::CountOf;
using QsCApi::Lend;
using QsCApi::TextOf;

// --- Texts in order

QsStatus QsTextList_Create(QsTextList** list) {
    return Call([&] { *list = new QsTextList; }, list);
}

QsStatus QsTextList_Add(QsTextList* list, const QsChar* text, std::int32_t length) {
    return Call([&] { Checked(list).texts.push_back(TextOf(text, length)); });
}

QsStatus QsTextList_Count(const QsTextList* list, std::int32_t* count) {
    return Call([&] { *count = CountOf(Checked(list).texts.size()); }, count);
}

QsStatus QsTextList_Get(const QsTextList* list, std::int32_t index, const QsChar** units,
                        std::int32_t* length) {
    return Call([&] { Lend(At(Checked(list).texts, index), units, length); }, units, length);
}

QsStatus QsTextList_Clear(QsTextList* list) {
    return Call([&] { Checked(list).texts.clear(); });
}

void QsTextList_Free(QsTextList* list) {
    delete list;
}

// --- Numbers in order

QsStatus QsIndexList_Create(QsIndexList** list) {
    return Call([&] { *list = new QsIndexList; }, list);
}

QsStatus QsIndexList_Add(QsIndexList* list, std::uint32_t value) {
    return Call([&] { Checked(list).values.push_back(value); });
}

QsStatus QsIndexList_Count(const QsIndexList* list, std::int32_t* count) {
    return Call([&] { *count = CountOf(Checked(list).values.size()); }, count);
}

QsStatus QsIndexList_Get(const QsIndexList* list, std::int32_t index, std::uint32_t* value) {
    return Call([&] { *value = At(Checked(list).values, index); }, value);
}

QsStatus QsIndexList_Clear(QsIndexList* list) {
    return Call([&] { Checked(list).values.clear(); });
}

void QsIndexList_Free(QsIndexList* list) {
    delete list;
}

// --- Texts by texts

QsStatus QsTextMap_Create(QsTextMap** map) {
    return Call([&] { *map = new QsTextMap; }, map);
}

QsStatus QsTextMap_Set(QsTextMap* map, const QsChar* key, std::int32_t keyLength, const QsChar* value,
                       std::int32_t valueLength) {
    return Call(
        [&] { Checked(map).texts.insert_or_assign(TextOf(key, keyLength), TextOf(value, valueLength)); });
}

QsStatus QsTextMap_Count(const QsTextMap* map, std::int32_t* count) {
    return Call([&] { *count = CountOf(Checked(map).texts.size()); }, count);
}

QsStatus QsTextMap_Find(const QsTextMap* map, const QsChar* key, std::int32_t keyLength, const QsChar** units,
                        std::int32_t* length) {
    return Call(
        [&] {
            const auto found = Checked(map).texts.find(TextOf(key, keyLength));
            if (found == map->texts.end())
                return QsStatus{QS_NOT_FOUND};
            Lend(found->second, units, length);
            return QsStatus{QS_OK};
        },
        units, length);
}

QsStatus QsTextMap_Keys(const QsTextMap* map, QsTextList* keys) {
    return Call([&] { QsCApi::Replace(Checked(keys), QsCApi::KeysOf(Checked(map).texts)); });
}

QsStatus QsTextMap_Clear(QsTextMap* map) {
    return Call([&] { Checked(map).texts.clear(); });
}

void QsTextMap_Free(QsTextMap* map) {
    delete map;
}

// --- Texts by numbers

QsStatus QsIndexMap_Create(QsIndexMap** map) {
    return Call([&] { *map = new QsIndexMap; }, map);
}

QsStatus QsIndexMap_Set(QsIndexMap* map, std::int32_t key, const QsChar* value, std::int32_t valueLength) {
    return Call([&] { Checked(map).texts.insert_or_assign(key, TextOf(value, valueLength)); });
}

QsStatus QsIndexMap_Count(const QsIndexMap* map, std::int32_t* count) {
    return Call([&] { *count = CountOf(Checked(map).texts.size()); }, count);
}

QsStatus QsIndexMap_Find(const QsIndexMap* map, std::int32_t key, const QsChar** units,
                         std::int32_t* length) {
    return Call(
        [&] {
            const auto found = Checked(map).texts.find(key);
            if (found == map->texts.end())
                return QsStatus{QS_NOT_FOUND};
            Lend(found->second, units, length);
            return QsStatus{QS_OK};
        },
        units, length);
}

QsStatus QsIndexMap_Keys(const QsIndexMap* map, QsIndexList* keys) {
    return Call([&] {
        std::vector<std::uint32_t> values;
        for (const auto& entry : Checked(map).texts)
            values.push_back(static_cast<std::uint32_t>(entry.first));
        Checked(keys).values = std::move(values);
    });
}

QsStatus QsIndexMap_Clear(QsIndexMap* map) {
    return Call([&] { Checked(map).texts.clear(); });
}

void QsIndexMap_Free(QsIndexMap* map) {
    delete map;
}
