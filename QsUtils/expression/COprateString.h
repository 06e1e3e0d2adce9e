// The variables in the text of a formula; nothing is calculated here.
#pragma once

#include <list>
#include <map>

#include "QsUtils/text/CString.h"

/// Scans formula texts. A letter is an ASCII letter, or a unit whose low byte is a lead byte of the ANSI code
/// page. No state; any thread. `IQsUtils` documents the operations of the same names. All take time linear in
/// the text, a list scan with `unique` nearly so.
class COprateString {
public:
    virtual ~COprateString() = default;

    bool IsVariable(const CString& text) const;
    bool FindVariable(const CString& text, std::list<CString>& out, bool unique) const;
    bool FindVariable(const CString& text, std::map<int, CString>& out) const;
    bool IsIncludeQ(const CString& text) const;
    void ReplaceQWithProjectAmount(CString& text, const CString& amount) const;
    void ReplaceVarString(CString& text, const CString& variable, const CString& value) const;

    /// Deletes the zeros at the end of a text that has a point, and the point when it is then the last.
    /// False, with the text unchanged, when it has none.
    static bool TrimTrailingZeros(CString& text);
};
