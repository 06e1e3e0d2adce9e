/// @file
/// How an extra cost is charged.
#pragma once

/// How an extra cost type applies its coefficient; the texts are those of ".ec" files.
enum eExtraCost_CoefficientType : int {
    eExtraCost_Unknown = 0,               ///< another text, or no such type
    eExtraCost_ItemCoefficient = 1,       ///< "子目系数": to the single item
    eExtraCost_ProjectCoefficient = 2,    ///< "工程系数": to the project
    eExtraCost_CompositeCoefficient = 3,  ///< "综合系数": to what the other two come to
};
