#include "QsUtils/c_api/Configuration.h"

#include <list>
#include <map>
#include <new>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"
#include "QsUtils/frame/IQsUtils1.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::TextOf;

// --- Extra costs

QsStatus QsInitOverHeight(const QsChar* file, std::int32_t fileLength, const QsChar* family,
                          std::int32_t familyLength, std::int32_t* isThere) {
    return Call(
        [&] { *isThere = IQsUtils1::InitOverHeight(TextOf(file, fileLength), TextOf(family, familyLength)); },
        isThere);
}

QsStatus QsGetOverHeightList(const QsChar* file, std::int32_t fileLength, const QsChar* family,
                             std::int32_t familyLength, QsTextList* options) {
    return Call([&] {
        QsTextList& list = Checked(options);
        const std::list<CString>* found =
            IQsUtils1::GetOverHeightList(TextOf(file, fileLength), TextOf(family, familyLength));
        if (found == nullptr)
            return QsStatus{QS_NOT_FOUND};
        QsCApi::Replace(list, std::list<CString>(*found));
        return QsStatus{QS_OK};
    });
}

QsStatus QsGetExtraCostTypeList(const QsChar* file, std::int32_t fileLength, const QsChar* family,
                                std::int32_t familyLength, QsTextMap* types) {
    return Call([&] {
        QsTextMap& map = Checked(types);
        const std::map<CString, CString>* found =
            IQsUtils1::GetExtraCostTypeList(TextOf(file, fileLength), TextOf(family, familyLength));
        if (found == nullptr)
            return QsStatus{QS_NOT_FOUND};
        map.texts = std::map<CString, CString>(*found);
        return QsStatus{QS_OK};
    });
}

QsStatus QsGetExtraCostCalType(const QsChar* file, std::int32_t fileLength, const QsChar* typeName,
                               std::int32_t typeNameLength, const QsChar* family, std::int32_t familyLength,
                               std::int32_t* coefficientType) {
    return Call(
        [&] {
            *coefficientType = IQsUtils1::GetExtraCostCalType(
                TextOf(file, fileLength), TextOf(typeName, typeNameLength), TextOf(family, familyLength));
        },
        coefficientType);
}

QsStatus QsAllocateExtraCostData(std::size_t bytes, void** block) {
    return Call([&] { *block = IQsUtils1::AllocateExtraCostData(bytes); }, block);
}

void QsFreeExtraCostData(void* block) {
    ::operator delete(block);
}

QsStatus QsSetExtraCostData(const QsChar* key, std::int32_t length, void* block) {
    return Call([&] { IQsUtils1::SetExtraCostData(TextOf(key, length), block); });
}

QsStatus QsGetExtraCostDataByKey(const QsChar* key, std::int32_t length, void** block) {
    return Call(
        [&] {
            *block = IQsUtils1::GetExtraCostDataByKey(TextOf(key, length));
            return QsStatus{*block == nullptr ? QS_NOT_FOUND : QS_OK};
        },
        block);
}

// --- What users typed last

QsStatus QsWriteHistory(const QsChar* section, std::int32_t sectionLength, const QsChar* value,
                        std::int32_t valueLength) {
    return Call([&] { IQsUtils1::WriteHistory(TextOf(section, sectionLength), TextOf(value, valueLength)); });
}

QsStatus QsGetHistory(const QsChar* section, std::int32_t sectionLength, QsTextList* values) {
    return Call([&] {
        auto all = QsCApi::Copied<std::list<CString>>(Checked(values));
        IQsUtils1::GetHistory(TextOf(section, sectionLength), all);
        QsCApi::Replace(*values, all);
    });
}

// --- The marks that items can bear

QsStatus QsGetMarkMap(const QsChar* folder, std::int32_t folderLength, std::int32_t billMode,
                      const QsChar* group, std::int32_t groupLength, QsTextMap* marks) {
    return Call([&] {
        IQsUtils1::GetMarkMap(TextOf(folder, folderLength), billMode != 0, TextOf(group, groupLength),
                              Checked(marks).texts);
    });
}

QsStatus QsGetMarkList(const QsChar* folder, std::int32_t folderLength, std::int32_t billMode,
                       const QsChar* group, std::int32_t groupLength, QsTextList* marks) {
    return Call([&] {
        QsTextList& list = Checked(marks);
        std::list<CString> found;
        IQsUtils1::GetMarkList(TextOf(folder, folderLength), billMode != 0, TextOf(group, groupLength),
                               found);
        QsCApi::Append(list, found);
    });
}
