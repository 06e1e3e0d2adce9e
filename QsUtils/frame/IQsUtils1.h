// IQsUtils1, the second of the two facades.
#pragma once

#include "QsUtils/material/CommonMaterialKey.h"
#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Static functions that every module of the product shares, continued from `IQsUtils`; the same rules hold.
class QSUTILS_API IQsUtils1 {
public:
    IQsUtils1();
    IQsUtils1(const IQsUtils1&);
    IQsUtils1& operator=(const IQsUtils1&);
    virtual ~IQsUtils1();

    /// How many characters the text has after a way through the ANSI code page and back.
    static int GetCharCount(const CString& text);

    /// Whether a rate of price transfer is 0 or more; a text without a number counts as 0.
    static bool IsValidRateOfTransPrice(const CString& text);
    /// The number that a rate of price transfer begins with; "免税" and a text without a number are 0.
    static double GetFormatedRateOfTransPrice(const CString& text);

    /// How many decimals a quantity in this unit takes, by the file GB50500-2008.xml beside the executable,
    /// which is read at the first call. The unit is looked for as it stands; one that the file lacks takes 2
    /// decimals if the file states a default, whatever it states, and 0 if it doesn't. Without a good file
    /// every unit takes 2.
    static int GetUnitMantissa(CString const& strUnit);

    /// The canonical indicator unit of a unit: "kg" is counted in "吨". False, with the output left alone,
    /// for a unit that has none.
    static bool GetIndicatorsUnit(CString const& strUnit, CString& strIndicatorUnit);
    /// How many of the second unit make one of the first: "吨" and "公斤" give 1000. Also for a second unit
    /// with a multiple in front: "m2" and "100m2" give 0.01. False, with 1.0, for units of different kinds.
    static bool GetIndicatorsFactor(CString const& strFirst, CString const& strSecond, double& dFactor);

    /// `IQsUtils::FindPath` with a memory: a find is remembered by the exact folder, name and tail, and given
    /// again without a look at the disk. What isn't found is searched for anew. For one thread at a time.
    static void FindPath(CString& strPath, CString const& strFolder, CString const& strFileName,
                         CString const& strTail);

    /// The digest of a material's identity, as 32 lower-case hexadecimal digits: its ten fields joined by
    /// tabs, the flags as "1" and "0", through `IQsUtils::GetStreamMD5`. `pKey` must not be null.
    static CString GenerateMaterialMD5(CommonMaterialKey* pKey);
};
