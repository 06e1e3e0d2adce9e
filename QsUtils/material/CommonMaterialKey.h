// The identity of a material.
#pragma once

#include "QsUtils/text/CString.h"

/// The fields that tell one material from another, in the order in which they enter its digest. What each
/// field means is the host's affair; numbers come as text, formatted by the host.
struct CommonMaterialKey {
    CString strKeyText1;
    CString strKeyText2;
    CString strKeyText3;
    CString strKeyText4;
    CString strKeyText5;
    CString strKeyText6;
    CString strKeyText7;
    bool bKeyFlag1 = false;
    bool bKeyFlag2 = false;
    CString strKeyText8;
};
