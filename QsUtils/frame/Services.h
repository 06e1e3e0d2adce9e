// One accessor for each service of the module. Any thread may call any of them, at any time between the
// load and the end of the module.
#pragma once

#include "QsUtils/codes/CConvertMajorAndCode.h"
#include "QsUtils/config/CExtraCostRead.h"
#include "QsUtils/expression/COprateString.h"
#include "QsUtils/ui/CShowTextDlg.h"
#include "QsUtils/ui/Toolkit.h"
#include "QsUtils/units/CUnitMantissa.h"

namespace QsFrame {

/// The reader of the configuration files, which has read none at first; the first to be ended.
CExtraCostRead& ConfigurationReader();

/// The tip, without a window at first; the end sequence destroys its window, and it dies with the static
/// objects.
CShowTextDlg& TipDialog();

/// The views of the dialogs, which are looked for when they are asked for; the end sequence releases their
/// module.
QsUi::Toolkit& DialogToolkit();

/// The majors and their codes, loaded at the first call; they die with the static objects.
QsCodes::CConvertMajorAndCode& Majors();

/// The scanner of formula variables; it dies with the static objects.
COprateString& FormulaVariables();

/// The decimals of units, loaded at the first call; they die with the static objects.
QsUnits::CUnitMantissa& UnitDecimals();

}  // namespace QsFrame
