/// @file
/// The kinds of budget documents.
#pragma once

/// What a budget is made for. Any int may stand in a variable of the type.
enum eYsType : int {
    eYsType_Normal = 0,    ///< an ordinary budget, "Normal"
    eYsType_SongShen = 1,  ///< submitted for review, "SongShen"
    eYsType_ShenDing = 2,  ///< as settled by the review, "ShenDing"
};
