// A bill of quantities from a CSV file.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace Desktop {

struct Bill {
    QStringList columns;
    QVector<QStringList> rows;
};

/// Reads a file in UTF-8 whose first row names the columns. Without columns when it can't be read.
Bill ReadBill(const QString& path);

}  // namespace Desktop
