#include "platform/basics/csv_text.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace basics {

static QString Quoted(QString field, QChar separator) {
    const bool needs_quotes =
        field.contains(separator) || field.contains(u'"') || field.contains(u'\r') || field.contains(u'\n');
    return needs_quotes ? u'"' + field.replace(u"\""_s, u"\"\""_s) + u'"' : field;
}

static QString Line_Of(const QStringList& fields, QChar separator) {
    QStringList written;
    for (const QString& field : fields)
        written.append(Quoted(field, separator));
    return written.join(separator) + u"\r\n"_s;
}

QString Csv_Line(const QStringList& fields) {
    return Line_Of(fields, u',');
}

// Spreadsheets begin a formula with these, or drop them and look at what follows.
static QString Harmless(const QString& text) {
    static const QString dangerous = u"=+-@\t\r\n"_s;
    return !text.isEmpty() && dangerous.contains(text.front()) ? u'\'' + text : text;
}

static bool Is_Number(const QString& text) {
    static const QRegularExpression number(u"\\A-?\\d+(\\.\\d+)?\\z"_s);
    return number.match(text).hasMatch();
}

QString Spreadsheet_Line(const QStringList& fields, qsizetype texts, Decimal_Mark mark) {
    QStringList cells;
    for (const QString& field : fields) {
        const bool is_number = cells.size() >= texts && Is_Number(field);
        QString cell = is_number ? field : Harmless(field);
        if (is_number && mark == Decimal_Mark::Comma) cell.replace(u'.', u',');
        cells.append(cell);
    }
    return Line_Of(cells, mark == Decimal_Mark::Comma ? u';' : u',');
}

} // namespace basics
