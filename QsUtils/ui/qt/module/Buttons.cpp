#include "QsUtils/ui/qt/module/Buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/qt/module/Text.h"

namespace QsQt {

DialogButtons MakeButtons(QWidget* parent) {
    const DialogButtons buttons{new QHBoxLayout, new QPushButton(ToQString(QsUi::Picker::Confirm), parent),
                                new QPushButton(ToQString(QsUi::Picker::Cancel), parent)};
    buttons.confirm->setObjectName(QStringLiteral("confirm"));
    buttons.confirm->setDefault(true);
    buttons.cancel->setObjectName(QStringLiteral("cancel"));
    buttons.layout->addStretch(1);
    buttons.layout->addWidget(buttons.confirm);
    buttons.layout->addStretch(2);
    buttons.layout->addWidget(buttons.cancel);
    buttons.layout->addStretch(1);
    return buttons;
}

}  // namespace QsQt
