#include "QsUtils/c_api/Texts.h"

#include <memory>
#include <string>

#include "QsUtils/c_api/Bytes.h"
#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/IQsUtils1.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::TextOf;

namespace {

/// One of the four that change a text in place and tell whether they have.
QsStatus Segment(bool (*change)(CString&, const CString&), const QsChar* text, std::int32_t length,
                 const QsChar* separator, std::int32_t separatorLength, QsString** result,
                 std::int32_t* done) {
    return Call(
        [&] {
            CString changed = TextOf(text, length);
            const bool isDone = change(changed, TextOf(separator, separatorLength));
            Give(result, std::move(changed));
            *done = isDone;
        },
        result, done);
}

}  // namespace

// --- Segments

QsStatus QsCutFirstSegment(const QsChar* text, std::int32_t length, const QsChar* separator,
                           std::int32_t separatorLength, QsString** result, std::int32_t* done) {
    return Segment(IQsUtils::CutFirstSegment, text, length, separator, separatorLength, result, done);
}

QsStatus QsCutLastSegment(const QsChar* text, std::int32_t length, const QsChar* separator,
                          std::int32_t separatorLength, QsString** result, std::int32_t* done) {
    return Segment(IQsUtils::CutLastSegment, text, length, separator, separatorLength, result, done);
}

QsStatus QsGetFirstSegment(const QsChar* text, std::int32_t length, const QsChar* separator,
                           std::int32_t separatorLength, QsString** result, std::int32_t* done) {
    return Segment(IQsUtils::GetFirstSegment, text, length, separator, separatorLength, result, done);
}

QsStatus QsGetLastSegment(const QsChar* text, std::int32_t length, const QsChar* separator,
                          std::int32_t separatorLength, QsString** result, std::int32_t* done) {
    return Segment(IQsUtils::GetLastSegment, text, length, separator, separatorLength, result, done);
}

// --- Searching, splitting, joining

QsStatus QsFindInCStringArray(const QsChar* text, std::int32_t length, const QsTextList* list,
                              std::int32_t* index) {
    return Call(
        [&] {
            *index = IQsUtils::FindInCStringArray(TextOf(text, length),
                                                  QsCApi::Copied<CStringArray>(Checked(list)));
        },
        index);
}

QsStatus QsStringArrayContains(const QsTextList* list, const QsChar* text, std::int32_t length,
                               std::int32_t* contains) {
    return Call(
        [&] {
            const std::wstring sought = TextOf(text, length).ToWide();
            *contains =
                IQsUtils::StringArrayContains(QsCApi::Copied<CStringArray>(Checked(list)), sought.c_str());
        },
        contains);
}

QsStatus QsFindSpecStringCount(const QsChar* text, std::int32_t length, const QsChar* part,
                               std::int32_t partLength, QsIndexList* positions, std::int32_t* count) {
    return Call(
        [&] {
            std::vector<std::uint32_t>& values = Checked(positions).values;
            CUIntArray found;
            const int times =
                IQsUtils::FindSpecStringCount(TextOf(text, length), TextOf(part, partLength), found);
            if (!found.IsEmpty())
                values.assign(found.begin(), found.end());
            *count = times;
        },
        count);
}

QsStatus QsSplit(const QsChar* text, std::int32_t length, QsChar separator, QsTextList* list) {
    return Call([&] {
        CStringArray pieces;
        IQsUtils::Split(TextOf(text, length), pieces, static_cast<wchar_t>(separator));
        QsCApi::Append(Checked(list), pieces);
    });
}

QsStatus QsTransStrToAry(const QsChar* text, std::int32_t length, const QsChar* separator,
                         std::int32_t separatorLength, QsTextList* list) {
    return Call([&] {
        const CString between = TextOf(separator, separatorLength);
        const CString joined = TextOf(text, length);
        IQsUtils::TransStrToAry(joined, between, Checked(list).texts);
    });
}

QsStatus QsTransAryToStr(const QsTextList* list, const QsChar* separator, std::int32_t separatorLength,
                         QsString** result) {
    return Call(
        [&] {
            CString joined;
            IQsUtils::TransAryToStr(Checked(list).texts, joined, TextOf(separator, separatorLength));
            Give(result, std::move(joined));
        },
        result);
}

QsStatus QsChangeSBCtoDBC(const QsChar* text, std::int32_t length, QsString** result) {
    return Call(
        [&] {
            CString changed = TextOf(text, length);
            IQsUtils::ChangeSBCtoDBC(changed);
            Give(result, std::move(changed));
        },
        result);
}

QsStatus QsTakeOutJxxzString(const QsChar* text, std::int32_t length, QsString** result, QsString** part) {
    return Call(
        [&] {
            CString rest = TextOf(text, length);
            CString taken = IQsUtils::TakeOutJxxzString(rest);
            auto first = std::make_unique<QsString>(QsString{std::move(rest)});
            Give(part, std::move(taken));
            *result = first.release();
        },
        result, part);
}

// --- The ANSI code page

QsStatus QsAnsiToUnicode(const char* bytes, std::int32_t length, QsString** result) {
    return Call(
        [&] {
            const std::size_t size = QsCApi::SizeOf(bytes, length);
            Give(result, IQsUtils::AnsiToUnicode(size == 0 ? std::string() : std::string(bytes, size)));
        },
        result);
}

QsStatus QsUnicodeToAnsi(const QsChar* text, std::int32_t length, QsBytes** result) {
    return Call([&] { *result = new QsBytes{IQsUtils::UnicodeToAnsi(TextOf(text, length).ToWide())}; },
                result);
}

QsStatus QsCStringToWstring(const QsChar* text, std::int32_t length, QsString** result) {
    return Call(
        [&] {
            CString whole = TextOf(text, length);
            Give(result, IQsUtils::CStringToWstring(whole));
        },
        result);
}

QsStatus QsGetCharCount(const QsChar* text, std::int32_t length, std::int32_t* count) {
    return Call([&] { *count = IQsUtils1::GetCharCount(TextOf(text, length)); }, count);
}

// --- Numbers

QsStatus QsParseToInteger(const QsChar* text, std::int32_t length, std::int32_t* value,
                          std::int32_t* isNumber) {
    return Call([&] { *isNumber = IQsUtils::ParseToInteger(TextOf(text, length), *value); }, value, isNumber);
}

QsStatus QsParseToDouble(const QsChar* text, std::int32_t length, double* value, std::int32_t* isNumber) {
    return Call([&] { *isNumber = IQsUtils::ParseToDouble(TextOf(text, length), *value); }, value, isNumber);
}

QsStatus QsbIsNum(const QsChar* text, std::int32_t length, std::int32_t* isNumber) {
    return Call([&] { *isNumber = IQsUtils::bIsNum(TextOf(text, length)); }, isNumber);
}

QsStatus QsDoubleToCString(double value, std::int32_t decimals, std::int32_t trimZeros, QsString** result) {
    return Call([&] { Give(result, IQsUtils::DoubleToCString(value, decimals, trimZeros != 0)); }, result);
}

QsStatus QsNumToRMBStr(double value, QsString** result) {
    return Call([&] { Give(result, IQsUtils::NumToRMBStr(value)); }, result);
}

QsStatus QsTransIntToUpper(std::int32_t value, QsString** result) {
    return Call([&] { Give(result, IQsUtils::TransIntToUpper(value)); }, result);
}
