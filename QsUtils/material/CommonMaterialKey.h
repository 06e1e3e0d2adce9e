/// @file
/// The identity of a material.
#pragma once

#include "QsUtils/text/CString.h"

/// The fields that tell one material from another, in the order in which they enter its digest. What each
/// field means is the host's affair; numbers come as text, formatted by the host.
struct CommonMaterialKey {
    CString strKeyText1;     ///< first field
    CString strKeyText2;     ///< second field
    CString strKeyText3;     ///< third field
    CString strKeyText4;     ///< fourth field
    CString strKeyText5;     ///< fifth field
    CString strKeyText6;     ///< sixth field
    CString strKeyText7;     ///< seventh field
    bool bKeyFlag1 = false;  ///< eighth field, "1" or "0" in the digest
    bool bKeyFlag2 = false;  ///< ninth field, likewise
    CString strKeyText8;     ///< tenth and last field
};
