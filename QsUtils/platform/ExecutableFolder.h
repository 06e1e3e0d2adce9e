// The folder of the host's executable, beside which the files of an installation stand.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The folder with one backslash at its end; empty when the system doesn't tell it, or when the executable's
/// path doesn't fit the buffers of `PathBuffer` units with which the products lay out an installation. Any
/// thread may call it.
CString ExecutableDirectory();

/// The same without the backslash.
CString ExecutableFolder();

/// From now on `folder` takes the place of the executable's: a path in the library's form, with or without
/// backslashes at its end, made absolute. False, with nothing changed, when it isn't a folder, or doesn't fit
/// the buffers with its backslash. Any thread may call it.
bool SetExecutableFolder(const CString& folder);

}  // namespace QsPlatform
