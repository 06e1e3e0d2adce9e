#include "BillFile.h"

#include <QFile>

#include <csv.h>

namespace Desktop {

namespace {

/// Spreadsheets write it in front.
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

struct Rows {
    QVector<QStringList> rows;
    QStringList row;
};

void EndField(void* field, std::size_t length, void* rows) {
    const QByteArray bytes(static_cast<const char*>(field), static_cast<qsizetype>(length));
    static_cast<Rows*>(rows)->row.append(QString::fromUtf8(bytes));
}

void EndRow(int, void* target) {
    Rows& rows = *static_cast<Rows*>(target);
    rows.rows.append(rows.row);
    rows.row.clear();
}

}  // namespace

Bill ReadBill(const QString& path) {
    QFile file(path);
    csv_parser parser;
    if (!file.open(QIODevice::ReadOnly) || ::csv_init(&parser, 0) != 0)
        return {};
    QByteArray bytes = file.readAll();
    if (bytes.startsWith(ByteOrderMark))
        bytes.remove(0, static_cast<qsizetype>(sizeof ByteOrderMark - 1));
    Rows rows;
    ::csv_parse(&parser, bytes.constData(), static_cast<std::size_t>(bytes.size()), EndField, EndRow, &rows);
    ::csv_fini(&parser, EndField, EndRow, &rows);
    ::csv_free(&parser);
    if (rows.rows.isEmpty())
        return {};
    Bill bill;
    bill.columns = rows.rows.takeFirst();
    bill.rows = rows.rows;
    return bill;
}

}  // namespace Desktop
