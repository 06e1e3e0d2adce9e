// Pictures of the window and of every dialog.
#pragma once

#include <QString>

#include "MainWindow.h"

namespace Desktop {

/// Opens one dialog after the other and writes a picture of each to `folder`: tip.png, picker.png,
/// message.png and browser.png; then ends the application.
void TakeScreenshots(MainWindow& window, const QString& folder);

}  // namespace Desktop
