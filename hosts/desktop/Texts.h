// Between the texts of Qt and those of the library.
#pragma once

#include <QString>

#include <QsUtils/QsUtils.h>

namespace Desktop {

inline CString ToCString(const QString& text) {
    return CString(text.toStdU16String());
}

inline QString ToQString(const CString& text) {
    return QString::fromStdU16String(std::u16string(text.View()));
}

}  // namespace Desktop
