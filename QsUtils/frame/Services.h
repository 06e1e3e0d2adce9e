// One accessor for each service of the module. Any thread may call any of them, at any time between the
// load and the end of the module.
#pragma once

#include "QsUtils/codes/CConvertMajorAndCode.h"
#include "QsUtils/config/CExtraCostRead.h"
#include "QsUtils/expression/COprateString.h"
#include "QsUtils/units/CUnitMantissa.h"

namespace QsFrame {

/// The configuration reader; the end sequence ends it first.
CExtraCostRead& ConfigurationReader();

/// The majors and their codes, loaded at the first call; they die with the static objects.
QsCodes::CConvertMajorAndCode& Majors();

/// The scanner of formula variables; it dies with the static objects.
COprateString& FormulaVariables();

/// The decimals of units, loaded at the first call; they die with the static objects.
QsUnits::CUnitMantissa& UnitDecimals();

}  // namespace QsFrame
