// What the modal dialogs have in common.
#pragma once

#include <QSize>

class QHBoxLayout;
class QPushButton;
class QWidget;

namespace QsQt {

struct DialogButtons {
    QHBoxLayout* layout;
    QPushButton* confirm;  ///< the default button
    QPushButton* cancel;
};

/// The two buttons, each in its half of the width.
DialogButtons MakeButtons(QWidget* parent);

/// Pixels for dialog units of a font of 8 points, whose base is 6 by 13 pixels.
inline QSize FromDialogUnits(int width, int height) {
    return {width * 6 / 4, height * 13 / 8};
}

}  // namespace QsQt
