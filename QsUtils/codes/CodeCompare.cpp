#include "QsUtils/codes/CodeCompare.h"

#include <algorithm>

#include "QsUtils/platform/WordCompare.h"
#include "QsUtils/text/Numbers.h"

namespace QsCodes {

namespace {

using View = std::u16string_view;

int Sign(int order) {
    return (order > 0) - (order < 0);
}

int ComparePlain(View a, View b) {
    return Sign(a.compare(b));
}

/// Takes the run of digits, or of other units, that `rest` begins with.
View TakeRun(View& rest, bool digits) {
    std::size_t length = 1;
    while (length < rest.size() && QsText::IsDigit(rest[length]) == digits)
        ++length;
    const View run = rest.substr(0, length);
    rest.remove_prefix(length);
    return run;
}

bool BeginsWithDigit(View text) {
    return !text.empty() && QsText::IsDigit(text.front());
}

int CompareLeadingNumbers(View a, View b) {
    if (!BeginsWithDigit(a) || !BeginsWithDigit(b))
        return ComparePlain(a, b);
    const double x = QsText::ReadDouble(a);
    const double y = QsText::ReadDouble(b);
    if (x != y)
        return x < y ? -1 : 1;
    return ComparePlain(a, b);
}

template <typename ComparePart>
int CompareParts(View a, View b, View separator, ComparePart comparePart) {
    if (a == b)
        return 0;
    if (a.find(separator) == View::npos || b.find(separator) == View::npos)
        return CompareLeadingNumbers(a, b);
    Pieces left(a, separator);
    Pieces right(b, separator);
    View x;
    View y;
    while (left.Next(x) && right.Next(y)) {
        if (const int order = comparePart(x, y); order != 0)
            return order;
    }
    return 0;  // also with a part left over: the length of a code breaks no tie
}

}  // namespace

int CompareDECode(const CString& a, const CString& b) {
    View x = a.View();
    View y = b.View();
    if (x.size() >= QuotaCodeLimit || y.size() >= QuotaCodeLimit)
        return -1;
    while (!x.empty() && !y.empty()) {
        const bool isNumber = QsText::IsDigit(x.front());
        if (isNumber != QsText::IsDigit(y.front()))
            return isNumber ? -1 : 1;
        const View runX = TakeRun(x, isNumber);
        const View runY = TakeRun(y, isNumber);
        if (isNumber) {
            const int numberX = QsText::ReadInt(runX);
            const int numberY = QsText::ReadInt(runY);
            if (numberX != numberY)
                return numberX < numberY ? -1 : 1;
        } else if (const int order = ComparePlain(runX, runY); order != 0) {
            return order;
        }
    }
    return static_cast<int>(y.empty()) - static_cast<int>(x.empty());
}

int CompareQDCode(const CString& a, const CString& b) {
    if (a.GetLength() != b.GetLength())
        return a.GetLength() < b.GetLength() ? -1 : 1;
    return QsPlatform::CompareWords(a.View(), b.View());
}

int CompareStringW(const CString& a, const CString& b) {
    return CompareLeadingNumbers(a.View(), b.View());
}

int CompareStringW(const CString& a, const CString& b, wchar_t sep) {
    const CString separator(sep);
    if (sep != L'/')
        return CompareParts(a.View(), b.View(), separator.View(), CompareLeadingNumbers);
    return CompareParts(a.View(), b.View(), separator.View(),
                        [](View x, View y) { return CompareParts(x, y, u"-", CompareLeadingNumbers); });
}

bool SortItem(const CString& a, const CString& b) {
    return QsText::ReadInt(a.View()) < QsText::ReadInt(b.View());
}

}  // namespace QsCodes
