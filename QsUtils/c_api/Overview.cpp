#include "QsUtils/c_api/Overview.h"

#include <iterator>
#include <list>
#include <utility>
#include <vector>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/config/ProjectOverview.h"
#include "QsUtils/frame/IQsUtils1.h"

using QS_ProjectOverView::stuColInfo;
using QsCApi::At;
using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::TextOf;

struct QsOverviewList {
    std::vector<stuColInfo> fields;
};

namespace {

// In the order of their numbers.
constexpr CString stuColInfo::*Texts[] = {&stuColInfo::strCode, &stuColInfo::strName, &stuColInfo::strValue,
                                          &stuColInfo::strType};

/// A number or a flag of a field.
struct Number {
    int stuColInfo::*number = nullptr;
    bool stuColInfo::*flag = nullptr;
};

constexpr Number Numbers[] = {
    {&stuColInfo::nBelongType},    {nullptr, &stuColInfo::bPrint}, {nullptr, &stuColInfo::bUserDef},
    {nullptr, &stuColInfo::bShow}, {&stuColInfo::nMantissa},       {&stuColInfo::nIndex1},
    {&stuColInfo::nIndex2}};

template <typename Table>
const auto& Entry(const Table& table, std::int32_t which) {
    QsCApi::Require(which >= 0 && static_cast<std::size_t>(which) < std::size(table));
    return table[which];
}

std::list<stuColInfo*> PointersTo(std::vector<stuColInfo>& fields) {
    std::list<stuColInfo*> pointers;
    for (stuColInfo& field : fields)
        pointers.push_back(&field);
    return pointers;
}

/// Fields that were handed over with their ownership.
struct OwnedFields {
    std::list<stuColInfo*> fields;

    OwnedFields() = default;
    OwnedFields(const OwnedFields&) = delete;
    OwnedFields& operator=(const OwnedFields&) = delete;
    ~OwnedFields() {
        for (const stuColInfo* field : fields)
            delete field;
    }
};

}  // namespace

QsStatus QsOverviewList_Create(QsOverviewList** list) {
    return Call([&] { *list = new QsOverviewList; }, list);
}

QsStatus QsOverviewList_Add(QsOverviewList* list, std::int32_t* index) {
    return Call(
        [&] {
            *index = QsCApi::CountOf(Checked(list).fields.size());
            list->fields.emplace_back();
        },
        index);
}

QsStatus QsOverviewList_Count(const QsOverviewList* list, std::int32_t* count) {
    return Call([&] { *count = QsCApi::CountOf(Checked(list).fields.size()); }, count);
}

QsStatus QsOverviewList_GetText(const QsOverviewList* list, std::int32_t index, std::int32_t which,
                                const QsChar** units, std::int32_t* length) {
    return Call([&] { QsCApi::Lend(At(Checked(list).fields, index).*Entry(Texts, which), units, length); },
                units, length);
}

QsStatus QsOverviewList_SetText(QsOverviewList* list, std::int32_t index, std::int32_t which,
                                const QsChar* text, std::int32_t length) {
    return Call([&] { At(Checked(list).fields, index).*Entry(Texts, which) = TextOf(text, length); });
}

QsStatus QsOverviewList_GetNumber(const QsOverviewList* list, std::int32_t index, std::int32_t which,
                                  std::int32_t* value) {
    return Call(
        [&] {
            const stuColInfo& field = At(Checked(list).fields, index);
            const Number& entry = Entry(Numbers, which);
            *value = entry.number != nullptr ? field.*entry.number : field.*entry.flag;
        },
        value);
}

QsStatus QsOverviewList_SetNumber(QsOverviewList* list, std::int32_t index, std::int32_t which,
                                  std::int32_t value) {
    return Call([&] {
        stuColInfo& field = At(Checked(list).fields, index);
        const Number& entry = Entry(Numbers, which);
        if (entry.number != nullptr)
            field.*entry.number = value;
        else
            field.*entry.flag = value != 0;
    });
}

QsStatus QsOverviewList_Clear(QsOverviewList* list) {
    return Call([&] { Checked(list).fields.clear(); });
}

void QsOverviewList_Free(QsOverviewList* list) {
    delete list;
}

QsStatus QsGetProjOverViewInfo(QsOverviewList* list) {
    return Call([&] {
        // Whether the fields come behind those of the list or in their place shows in the pointers.
        std::list<stuColInfo*> pointers = PointersTo(Checked(list).fields);
        IQsUtils1::GetProjOverViewInfo(pointers);
        std::vector<stuColInfo> fields;
        fields.reserve(pointers.size());
        for (const stuColInfo* field : pointers)
            fields.push_back(*field);
        list->fields = std::move(fields);
    });
}

QsStatus QsGetProjOverViewInfoOfFile(const QsChar* file, std::int32_t length, QsOverviewList* list) {
    return Call([&] {
        std::vector<stuColInfo>& fields = Checked(list).fields;
        OwnedFields found;
        IQsUtils1::GetProjOverViewInfo(TextOf(file, length), found.fields);
        std::vector<stuColInfo> records;
        for (stuColInfo* field : found.fields)
            records.push_back(std::move(*field));
        fields.insert(fields.end(), std::make_move_iterator(records.begin()),
                      std::make_move_iterator(records.end()));
    });
}

QsStatus QsCreateProjOverViewInfo(const QsChar* file, std::int32_t length, const QsOverviewList* list,
                                  std::int32_t* isOpened) {
    return Call(
        [&] {
            std::vector<stuColInfo> fields = Checked(list).fields;
            *isOpened = IQsUtils1::CreateProjOverViewInfo(TextOf(file, length), PointersTo(fields));
        },
        isOpened);
}
