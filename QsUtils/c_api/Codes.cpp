#include "QsUtils/c_api/Codes.h"

#include <utility>
#include <vector>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"
#include "QsUtils/codes/CCodeParser.h"
#include "QsUtils/frame/IQsUtils.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::TextOf;

struct QsItemList {
    std::vector<std::pair<CString, void*>> items;
};

// --- The form of a code

QsStatus QsCodeParser_GetSeparator(QsString** separator) {
    return Call([&] { Give(separator, CCodeParser::GetSeparator()); }, separator);
}

QsStatus QsCodeParser_GetIdx(const QsChar* code, std::int32_t length, std::int32_t* index) {
    return Call([&] { *index = CCodeParser::GetIdx(TextOf(code, length)); }, index);
}

QsStatus QsCodeParser_GetPrefix(const QsChar* code, std::int32_t length, QsString** prefix) {
    return Call([&] { Give(prefix, CCodeParser::GetPrefix(TextOf(code, length))); }, prefix);
}

QsStatus QsCodeParser_ParseCode(const QsChar* code, std::int32_t length, QsString** prefix,
                                std::int32_t* index, std::int32_t* isValid) {
    return Call(
        [&] {
            CString head;
            int number = 0;
            const bool isGood = CCodeParser::ParseCode(TextOf(code, length), head, number);
            Give(prefix, std::move(head));
            *index = number;
            *isValid = isGood;
        },
        prefix, index, isValid);
}

QsStatus QsCodeParser_MakeCode(const QsChar* prefix, std::int32_t prefixLength, std::int32_t index,
                               QsString** code) {
    return Call([&] { Give(code, CCodeParser::MakeCode(TextOf(prefix, prefixLength), index)); }, code);
}

QsStatus QsCodeParser_IsIdxValid(std::int32_t index, std::int32_t* isValid) {
    return Call([&] { *isValid = CCodeParser::IsIdxValid(index); }, isValid);
}

// --- The order of codes

QsStatus QsCompareDECode(const QsChar* a, std::int32_t aLength, const QsChar* b, std::int32_t bLength,
                         std::int32_t* order) {
    return Call([&] { *order = IQsUtils::CompareDECode(TextOf(a, aLength), TextOf(b, bLength)); }, order);
}

QsStatus QsCompareQDCode(const QsChar* a, std::int32_t aLength, const QsChar* b, std::int32_t bLength,
                         std::int32_t* order) {
    return Call([&] { *order = IQsUtils::CompareQDCode(TextOf(a, aLength), TextOf(b, bLength)); }, order);
}

QsStatus QsCompareStringW(const QsChar* a, std::int32_t aLength, const QsChar* b, std::int32_t bLength,
                          std::int32_t* order) {
    return Call([&] { *order = IQsUtils::CompareStringW(TextOf(a, aLength), TextOf(b, bLength)); }, order);
}

QsStatus QsCompareStringWByParts(const QsChar* a, std::int32_t aLength, const QsChar* b, std::int32_t bLength,
                                 QsChar separator, std::int32_t* order) {
    return Call(
        [&] {
            *order = IQsUtils::CompareStringW(TextOf(a, aLength), TextOf(b, bLength),
                                              static_cast<wchar_t>(separator));
        },
        order);
}

QsStatus QsSortItem(const QsChar* a, std::int32_t aLength, const QsChar* b, std::int32_t bLength,
                    std::int32_t* isBelow) {
    return Call([&] { *isBelow = IQsUtils::SortItem(TextOf(a, aLength), TextOf(b, bLength)); }, isBelow);
}

QsStatus QsItemList_Create(QsItemList** list) {
    return Call([&] { *list = new QsItemList; }, list);
}

QsStatus QsItemList_Add(QsItemList* list, const QsChar* code, std::int32_t length, void* item) {
    return Call([&] { Checked(list).items.emplace_back(TextOf(code, length), item); });
}

QsStatus QsItemList_Count(const QsItemList* list, std::int32_t* count) {
    return Call([&] { *count = QsCApi::CountOf(Checked(list).items.size()); }, count);
}

QsStatus QsItemList_Get(const QsItemList* list, std::int32_t index, const QsChar** units,
                        std::int32_t* length, void** item) {
    return Call(
        [&] {
            const auto& [code, pointer] = QsCApi::At(Checked(list).items, index);
            QsCApi::Lend(code, units, length);
            *item = pointer;
        },
        units, length, item);
}

QsStatus QsItemList_Clear(QsItemList* list) {
    return Call([&] { Checked(list).items.clear(); });
}

void QsItemList_Free(QsItemList* list) {
    delete list;
}

QsStatus QsSortDeItemCodes(QsItemList* list) {
    return Call([&] { IQsUtils::SortDeItemCodes(Checked(list).items); });
}

QsStatus QsSortQdItemCodes(QsItemList* list) {
    return Call([&] { IQsUtils::SortQdItemCodes(Checked(list).items); });
}

QsStatus QsSortItemCodes(QsItemList* list) {
    return Call([&] { IQsUtils::SortItemCodes(Checked(list).items); });
}

// --- Majors

QsStatus QsGetMajorCodeByName(const QsChar* name, std::int32_t length, QsString** code) {
    return Call(
        [&] {
            CString found;
            IQsUtils::GetMajorCodeByName(TextOf(name, length), found);
            Give(code, std::move(found));
        },
        code);
}

QsStatus QsGetMajorByCode(const QsChar* code, std::int32_t length, QsString** name) {
    return Call(
        [&] {
            CString found;
            IQsUtils::GetMajorByCode(TextOf(code, length), found);
            Give(name, std::move(found));
        },
        name);
}

QsStatus QsGetAllMajorName(QsTextList* names) {
    return Call([&] {
        CStringArray all;
        IQsUtils::GetAllMajorName(all);
        QsCApi::Append(Checked(names), all);
    });
}
