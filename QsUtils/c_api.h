/// @file
/// The library for hosts in other languages, and for those of other compilers: functions of C, opaque handles
/// and plain numbers. docs/c-api.md has the rules and examples. They hold for every function, unless it says
/// otherwise:
///
/// - A function gives a status; what it finds it writes through its last parameters, which must not be null,
/// and are null or 0 whenever the status isn't QS_OK. Nothing is raised, and callbacks must raise nothing
/// either.
/// - A text comes in as UTF-16 units with their number; -1 stands for "up to the NUL". Null with 0 or -1 is
/// the empty text. A text goes out as a `QsString`, which is the caller's and goes by `QsString_Free`.
/// - A handle that a function hands out is the caller's, who ends it with the `..._Free` of its kind, unless
/// it is said to be borrowed. A null handle is an invalid argument, but `..._Free` takes it. Lists and maps
/// that a function adds to are the caller's from the start.
/// - A yes or no is an int32_t, 1 or 0; as an argument anything but 0 is yes.
/// - Functions may be called from any thread, handles are for one thread at a time.
#pragma once

#include "QsUtils/c_api/Basics.h"
#include "QsUtils/c_api/Codes.h"
#include "QsUtils/c_api/Configuration.h"
#include "QsUtils/c_api/Dialogs.h"
#include "QsUtils/c_api/Directories.h"
#include "QsUtils/c_api/Files.h"
#include "QsUtils/c_api/Formulas.h"
#include "QsUtils/c_api/Frame.h"
#include "QsUtils/c_api/Libraries.h"
#include "QsUtils/c_api/Lists.h"
#include "QsUtils/c_api/Materials.h"
#include "QsUtils/c_api/Overview.h"
#include "QsUtils/c_api/Tasks.h"
#include "QsUtils/c_api/Texts.h"
#include "QsUtils/c_api/Units.h"
#include "QsUtils/c_api/Xml.h"
