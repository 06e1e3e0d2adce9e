#include "QsUtils/c_api/LibraryTables.h"

#include <iterator>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::CountOf;
using QsCApi::TextOf;

namespace QsCApi {

BillLibraryRule RuleOf(const QsBillLibraryRule& rule) {
    return {rule.nCount1, rule.nCount2, rule.bFlag1 != 0, rule.bFlag2 != 0};
}

QsBillLibraryRule RuleOf(const BillLibraryRule& rule) {
    return {rule.nCount1, rule.nCount2, rule.bFlag1, rule.bFlag2};
}

}  // namespace QsCApi

// --- Rules by the names of libraries

QsStatus QsRuleMap_Create(QsRuleMap** map) {
    return Call([&] { *map = new QsRuleMap; }, map);
}

QsStatus QsRuleMap_Set(QsRuleMap* map, const QsChar* name, std::int32_t length,
                       const QsBillLibraryRule* rule) {
    return Call(
        [&] { Checked(map).rules.insert_or_assign(TextOf(name, length), QsCApi::RuleOf(Checked(rule))); });
}

QsStatus QsRuleMap_Count(const QsRuleMap* map, std::int32_t* count) {
    return Call([&] { *count = CountOf(Checked(map).rules.size()); }, count);
}

QsStatus QsRuleMap_Find(const QsRuleMap* map, const QsChar* name, std::int32_t length,
                        QsBillLibraryRule* rule) {
    return Call(
        [&] {
            const auto found = Checked(map).rules.find(TextOf(name, length));
            if (found == map->rules.end())
                return QsStatus{QS_NOT_FOUND};
            *rule = QsCApi::RuleOf(found->second);
            return QsStatus{QS_OK};
        },
        rule);
}

QsStatus QsRuleMap_Keys(const QsRuleMap* map, QsTextList* names) {
    return Call([&] { QsCApi::Replace(Checked(names), QsCApi::KeysOf(Checked(map).rules)); });
}

QsStatus QsRuleMap_Clear(QsRuleMap* map) {
    return Call([&] { Checked(map).rules.clear(); });
}

void QsRuleMap_Free(QsRuleMap* map) {
    delete map;
}

// --- Quota libraries in order

QsStatus QsLibraryEntryList_Create(QsLibraryEntryList** list) {
    return Call([&] { *list = new QsLibraryEntryList; }, list);
}

QsStatus QsLibraryEntryList_Count(const QsLibraryEntryList* list, std::int32_t* count) {
    return Call([&] { *count = CountOf(Checked(list).entries.size()); }, count);
}

QsStatus QsLibraryEntryList_Get(const QsLibraryEntryList* list, std::int32_t index, std::int32_t which,
                                const QsChar** units, std::int32_t* length) {
    // In the order of their numbers.
    static constexpr CString LibraryEntryInfo::*Texts[] = {
        &LibraryEntryInfo::Name, &LibraryEntryInfo::LibraryFile, &LibraryEntryInfo::FirstItemTag};
    return Call(
        [&] {
            QsCApi::Require(which >= 0 && static_cast<std::size_t>(which) < std::size(Texts));
            QsCApi::Lend(QsCApi::At(Checked(list).entries, index).*Texts[which], units, length);
        },
        units, length);
}

QsStatus QsLibraryEntryList_Clear(QsLibraryEntryList* list) {
    return Call([&] { Checked(list).entries.clear(); });
}

void QsLibraryEntryList_Free(QsLibraryEntryList* list) {
    delete list;
}
