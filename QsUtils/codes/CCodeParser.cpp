#include "QsUtils/codes/CCodeParser.h"

#include <string_view>

#include "QsUtils/text/Numbers.h"

namespace {

/// Where prefix and index are parted: at the last separator. -1 without one.
int SplitPoint(const CString& code) {
    return code.ReverseFind(CCodeParser::GetSeparator().GetAt(0));
}

int IndexBehind(const CString& code, int separator) {
    return QsText::ReadInt(code.View().substr(static_cast<std::size_t>(separator) + 1));
}

}  // namespace

CCodeParser::CCodeParser() = default;

CCodeParser::~CCodeParser() = default;

CString CCodeParser::GetSeparator() {
    return CString(u".");
}

int CCodeParser::GetIdx(const CString& code) {
    const int separator = SplitPoint(code);
    return separator < 0 ? 0 : IndexBehind(code, separator);
}

CString CCodeParser::GetPrefix(const CString& code) {
    const int separator = SplitPoint(code);
    return separator < 0 ? CString() : code.Left(separator);
}

bool CCodeParser::ParseCode(const CString& code, CString& prefix, int& idx) {
    const int separator = SplitPoint(code);
    if (separator < 0)
        return false;
    // Read first: the host may pass the same text as code and as prefix.
    const int index = IndexBehind(code, separator);
    prefix = code.Left(separator);
    idx = index;
    return !prefix.IsEmpty() && IsIdxValid(idx);
}

CString CCodeParser::MakeCode(const CString& prefix, int idx) {
    CString index;
    index.Format(u"%d", idx);
    return prefix + GetSeparator() + index;
}

bool CCodeParser::IsIdxValid(int idx) {
    return idx > 0;
}
