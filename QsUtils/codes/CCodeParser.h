/// @file
/// The form of an item code: prefix, separator, index.
#pragma once

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Takes item codes apart and puts them together. A code is a prefix, the separator "." and an index: the
/// last separator counts, so "A.B.3" has the prefix "A.B" and the index 3. The index text is read as the C
/// runtime reads an int: white space, a sign, digits up to the first other character. No state; any thread.
class QSUTILS_API CCodeParser {
public:
    CCodeParser();
    ~CCodeParser();

    /// The separator, ".".
    static CString GetSeparator();
    /// The number behind the last separator, valid or not; 0 without a separator.
    static int GetIdx(const CString& code);
    /// The text before the last separator; empty without one.
    static CString GetPrefix(const CString& code);
    /// Splits a code. Without a separator the result is false and nothing is written; otherwise both outputs
    /// are written, and the result tells whether the prefix has text and the index is above 0.
    static bool ParseCode(const CString& code, CString& prefix, int& idx);
    /// Joins prefix, separator and index, without a check of either.
    static CString MakeCode(const CString& prefix, int idx);
    /// Whether an index is one that items have: above 0.
    static bool IsIdxValid(int idx);
};
