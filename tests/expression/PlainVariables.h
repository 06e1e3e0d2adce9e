// The scans for variables written down as plainly as they can be.
#pragma once

#include <list>
#include <map>
#include <string>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/CString.h"

namespace PlainVariables {

inline bool IsLetter(char16_t unit) {
    const unsigned low = unit & 0xFFu;
    return (low >= 0x81 && low <= 0xFE) || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

inline bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

inline void RemoveToken(CString& text, CString token) {
    if (text.IsEmpty() || text.GetLength() < token.GetLength())
        return;
    text.MakeUpper();
    token.MakeUpper();
    for (int at = text.Find(token); at >= 0; at = text.Find(token))
        text.Delete(at, token.GetLength());
}

inline bool IsVariable(const CString& text) {
    if (text.Find(u'[') >= 0 && text.Find(u']') >= 0)
        return true;
    CString rest = text;
    if (text.GetLength() > 1)
        for (const char16_t* head : {u"SIN(", u"COS(", u"ASIN(", u"ACOS(", u"SQRT(", u"ATAN(", u"TAN(",
                                     u"EXP(", u"LOG(", u"SQR(", u"RAD(", u"LN("})
            RemoveToken(rest, head);
    for (int i = 0; i < rest.GetLength(); ++i)
        if (IsLetter(rest[i]))
            return true;
    return false;
}

inline bool IsFunctionName(CString token) {
    token.MakeUpper();
    for (const char16_t* name :
         {u"SIN", u"COS", u"ASIN", u"ACOS", u"TAN", u"ATAN", u"SQRT", u"COS", u"LOG", u"SQR", u"RAD", u"LN"})
        if (token == name)
            return true;
    return false;
}

inline bool Holds(const std::list<CString>& list, const CString& text) {
    for (const CString& entry : list)
        if (entry == text)
            return true;
    return false;
}

inline bool FindVariable(const CString& text, std::list<CString>& out, bool unique) {
    if (!IsVariable(text))
        return false;
    CString token;
    bool inBraces = false;
    for (int i = 0; i < text.GetLength(); ++i) {
        const char16_t unit = text[i];
        if (inBraces) {
            if (unit == u'}')
                inBraces = false;
        } else if (unit == u'{') {
            inBraces = true;
        } else if (IsLetter(unit) || unit == u'[') {
            token += unit;
        } else if (IsDigit(unit)) {
            if (!token.IsEmpty())
                token += unit;
        } else if (unit == u']') {
            if (IsFunctionName(token)) {
                token.Empty();
            } else if (!(unique && Holds(out, token))) {
                token += unit;
                out.push_back(token);
                token.Empty();
            }
        } else if (!token.IsEmpty()) {
            if (IsFunctionName(token) || (unique && Holds(out, token)))
                continue;
            out.push_back(token);
            token.Empty();
        }
    }
    if (!token.IsEmpty() && !IsFunctionName(token) && !Holds(out, token))
        out.push_back(token);
    return true;
}

inline bool FindVariable(const CString& text, std::map<int, CString>& out) {
    if (!IsVariable(text))
        return false;
    CString token;
    bool inBraces = false;
    for (int i = 0; i < text.GetLength(); ++i) {
        const char16_t unit = text[i];
        if (inBraces) {
            if (unit == u'}')
                inBraces = false;
        } else if (unit == u'{') {
            inBraces = true;
        } else if (IsLetter(unit) || unit == u'[') {
            token += unit;
        } else if (IsDigit(unit)) {
            if (!token.IsEmpty())
                token += unit;
        } else if (unit == u']') {
            if (!IsFunctionName(token)) {
                token += unit;
                out[i] = token;
            }
            token.Empty();
        } else if (!token.IsEmpty()) {
            if (!IsFunctionName(token))
                out[i - 1] = token;
            token.Empty();
        }
    }
    if (!token.IsEmpty() && !IsFunctionName(token))
        out[text.GetLength() - 1] = token;
    return true;
}

inline void ReplaceVarString(CString& text, const CString& variable, const CString& value) {
    if (text.IsEmpty() || variable.IsEmpty() || !IsVariable(text))
        return;
    std::map<int, CString> found;
    FindVariable(text, found);
    for (auto entry = found.rbegin(); entry != found.rend(); ++entry)
        if (entry->second == variable)
            text = text.Left(entry->first - variable.GetLength() + 1) + value + text.Mid(entry->first + 1);
}

inline bool TrimTrailingZeros(CString& text) {
    if (text.Find(u'.') < 0)
        return false;
    while (text[text.GetLength() - 1] == u'0')
        text.Delete(text.GetLength() - 1);
    if (text[text.GetLength() - 1] == u'.')
        text.Delete(text.GetLength() - 1);
    return true;
}

}  // namespace PlainVariables
