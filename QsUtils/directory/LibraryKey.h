/// @file
/// A place in the tree of cost libraries.
#pragma once

#include "QsUtils/text/CString.h"

/// A library family, a section of it and an item of that section, each by the name of its folder. What a call
/// doesn't need may be empty.
struct LibraryKey {
    CString Family;   ///< such as 安徽2018
    CString Section;  ///< such as 土建
    CString Item;     ///< such as 装饰
};
