// How many decimals a quantity takes, from the file GB50500-2008.xml of the installation.
#pragma once

#include <map>

#include "QsUtils/text/CString.h"

namespace QsUnits {

/// Decimals by unit, exactly as the file spells the unit. Constant once it is loaded, so any thread may ask
/// it.
class CUnitMantissa {
public:
    virtual ~CUnitMantissa() = default;

    /// The file beside the executable.
    static CString FilePath();
    /// Takes the rows of a file; a later row of the same unit wins. A file that is missing or isn't
    /// well-formed leaves the table empty and the default at 2.
    void Load(const CString& path);

    /// The decimals of a unit, the default for a unit that has no row.
    int GetUnitMantissa(const CString& unit) const;

private:
    std::map<CString, int> m_mapUnitDecimal;
    int m_nDefaultDecimal = 2;
};

}  // namespace QsUnits
