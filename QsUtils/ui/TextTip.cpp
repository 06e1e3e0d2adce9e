#include "QsUtils/ui/TextTip.h"

#include "QsUtils/frame/Services.h"
#include "QsUtils/ui/CShowTextDlg.h"

namespace texttip {

void SetTextColor(unsigned long color) {
    QsFrame::TipDialog().SetTextColor(static_cast<QsUi::Colour>(color));
}

void SetBackgroundColor(unsigned long color) {
    QsFrame::TipDialog().SetBackgroundColor(static_cast<QsUi::Colour>(color));
}

void SetShowText(const CString& text) {
    QsFrame::TipDialog().SetShowText(text);
}

bool IsTextLonger(CRect& rect) {
    return QsFrame::TipDialog().IsTextLonger(rect);
}

void SetWindowPosition(POINT point) {
    QsFrame::TipDialog().SetWindowPosition(point);
}

void ShowWindowDelay(unsigned int milliseconds) {
    QsFrame::TipDialog().ShowWindowDelay(milliseconds);
}

void CloseWindowNow() {
    QsFrame::TipDialog().CloseWindowNow();
}

}  // namespace texttip
