// Segments of texts, and searches in texts and arrays. `IQsUtils` documents the operations of the same names.
#pragma once

#include <string>
#include <vector>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/CStringArray.h"

namespace QsText {

bool CutFirstSegment(CString& text, const CString& sep);
bool CutLastSegment(CString& text, const CString& sep);
bool GetFirstSegment(CString& text, const CString& sep);
bool GetLastSegment(CString& text, const CString& sep);

int FindInCStringArray(const CString& text, const CStringArray& array);
/// A null `text` counts as the empty one.
bool StringArrayContains(const CStringArray& array, const wchar_t* text);
int FindSpecStringCount(const CString& text, const CString& sub, CUIntArray& positions);

void Split(const CString& text, CStringArray& out, wchar_t sep);
void TransStrToAry(const CString& text, const CString& sep, std::vector<CString>& out);
void TransAryToStr(const std::vector<CString>& array, CString& out, const CString& sep);

void ChangeSBCtoDBC(CString& text);
CString TakeOutJxxzString(CString& text);

std::wstring AnsiToUnicode(const std::string& text);
std::string UnicodeToAnsi(const std::wstring& text);
std::wstring CStringToWstring(const CString& text);
/// As the two conversions do, it looks at the text up to its first NUL.
int GetCharCount(const CString& text);

}  // namespace QsText
