/// @file
/// The project overview: the form of named fields that describes a project.
#pragma once

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// The overview of a project. See docs/config-data.md.
namespace QS_ProjectOverView {

/// One field of the overview. Names in backticks are those of its attributes in files.
struct stuColInfo {
    CString strCode;        ///< `Code`
    CString strName;        ///< `Name`
    CString strValue;       ///< for the host; neither read nor written
    CString strType;        ///< `Type`; the library only carries it
    int nBelongType = 1;    ///< `BelongType`: 1 general information, 2 characteristics, 3 electronic
                            ///< tendering, 0 anything else
    bool bPrint = false;    ///< `Print`: the field is printed
    bool bUserDef = false;  ///< `UserDef`: the user has defined the field
    bool bShow = false;     ///< the opposite of `Hide`: the field is shown
    int nMantissa = 0;      ///< `Mantissa`: decimals of the field
    int nIndex1 = 1;        ///< `Index1`: order number
    int nIndex2 = 1;        ///< `Index2`: second order number
};

/// Kept for hosts that derive from it or hold one; it does nothing.
class QSUTILS_API CProjectOverViewFactory {
public:
    CProjectOverViewFactory();
    CProjectOverViewFactory(const CProjectOverViewFactory&) = default;   ///< There is nothing to copy.
    CProjectOverViewFactory& operator=(const CProjectOverViewFactory&);  ///< There is nothing to copy.
};

}  // namespace QS_ProjectOverView
