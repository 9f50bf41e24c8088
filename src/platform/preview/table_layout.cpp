#include "platform/preview/table_layout.h"

#include "platform/preview/text_metrics.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace preview {
namespace {

constexpr int Clear_Of_Border = 15;
constexpr double Tightest_In_Borders = 0.95;

QStringList Words_Cut_To_Fit(const Text_Style& style, const QString& text, double width) {
    QStringList words = text.split(u' ');
    for (QString& word : words)
        word = Elided(style, word, width);
    return words;
}

} // namespace

QList<int> Column_Widths(const QString& table_format) {
    QList<int> widths;
    if (table_format.isEmpty()) return widths;
    for (const QString& width : table_format.split(u'|'))
        widths.append(std::max(0, width.trimmed().toInt()));
    return widths;
}

QList<QStringList> Table_Rows(const QString& table_text) {
    QStringList rows = table_text.split(u';');
    if (rows.last().isEmpty()) rows.removeLast();
    QList<QStringList> cells;
    for (const QString& row : rows)
        cells.append(row.split(u'|'));
    return cells;
}

int Widest_Line(const Cell_Room& room) {
    return std::max(0, room.width - 2 * std::min(room.padding, Clear_Of_Border));
}

QStringList Cell_Lines(const Text_Style& style, const QString& text, const Cell_Room& room) {
    const QString line = Printable(text).trimmed();
    if (Widest_Line(room) == 0) return {};
    const double tightest = room.bordered ? Tightest_In_Borders : Tightest_Letters;
    if (Fits_On_One_Line(style, line, Widest_Line(room), tightest)) return {line};
    const double width = std::max(0, room.width - 2 * room.padding);
    return Wrapped(style, Words_Cut_To_Fit(style, line, width).join(u' '), width);
}

} // namespace preview
