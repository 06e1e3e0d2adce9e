// The text of the tip: its face, its lines as they are measured, and its one line as it is painted.
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <string_view>

#include "QsUtils/ui/Views.h"

namespace QsQt {

/// The font with the face that is wanted, or with the likest one for Chinese texts that is installed.
QFont TipFontFor(const QsUi::TipFont& wanted);

/// The lines that count in measuring: CR, LF and CR LF end one, and the last end opens no further line. A "&"
/// in front of a character is left out, and of two the first.
QStringList MeasuredLines(std::u16string_view text);

/// The text as one line; a control character takes the place of a blank.
QString PaintedLine(std::u16string_view text);

}  // namespace QsQt
