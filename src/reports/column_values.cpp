#include "reports/column_values.h"

#include "reports/profile_bars.h"
#include "shell/conventions/theme.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace reports {

constexpr int Value_Height = 16; // pixels, as all below
constexpr int Least_Width = 34;  // of a value: a half column and a little
constexpr int Mark_Height = 18;
constexpr int Beside = 2;

Column_Values::Column_Values(const QString& name, QWidget* chart) : QWidget(chart) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(chart->rect());
}

// Only where words were or come: what lies beneath is painted anew with them.
void Column_Values::Show_Texts(const QList<Column_Text>& shown) {
    QRegion changed;
    for (const QList<Column_Text>& each : {texts, shown})
        for (const Column_Text& column : each)
            changed += column.place.adjusted(-3, -1, 3, 1);
    texts = shown;
    update(changed);
}

static void Draw_Plate(QPainter& painter, const QRect& plate) {
    painter.fillRect(plate, Qt::white);
    painter.setPen(shell::chart_colours::Ink);
}

// A value has one line and comes with each pupil: it is placed by hand, which the toolkit's layout of lines
// takes several times as long for.
static void Draw_Value(QPainter& painter, const QFontMetrics& metrics, const Column_Text& column) {
    constexpr int edge = 3;
    const QRect& place = column.place;
    const int width = metrics.horizontalAdvance(column.text);
    const int left = place.left() + (place.width() - width) / 2;
    Draw_Plate(painter, {left - edge, place.top() + 1, width + 2 * edge, place.height() - 2});
    painter.drawText(left, place.top() + (place.height() + metrics.ascent() - metrics.descent()) / 2,
                     column.text);
}

static void Draw_Words(QPainter& painter, const Column_Text& column) {
    constexpr int flags = Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap;
    const QRect words = painter.boundingRect(column.place, flags, column.text);
    Draw_Plate(painter, words.adjusted(-3, -1, 3, 1));
    painter.drawText(column.place, flags, column.text);
}

// On white plates: the ground may be of any grey, and a bar of its own colour.
void Column_Values::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    QFont font = this->font();
    font.setPixelSize(12);
    painter.setFont(font);
    const QFontMetrics metrics(font);
    for (const Column_Text& column : texts) {
        if (!event->region().intersects(column.place)) continue;
        if (column.is_value)
            Draw_Value(painter, metrics, column);
        else
            Draw_Words(painter, column);
    }
}

static int Top_Of_Value(const QRect& bar, bool hangs, int mark_bottom) {
    const int end = bar.top() + bar.height();
    if (hangs) {
        const int below = end + Beside;
        return below + Value_Height <= Chart_Height ? below : end - Beside - Value_Height;
    }
    if (mark_bottom == 0) {
        const int above = bar.top() - Beside - Value_Height;
        return above >= 0 ? above : bar.top() + Beside;
    }
    const int inside = mark_bottom + Beside;
    if (inside + Value_Height <= end) return inside;
    return mark_bottom - Mark_Height - Beside - Value_Height;
}

QRect Value_Place(const QRect& bar, bool hangs, int mark_bottom) {
    const int width = std::max(bar.width(), Least_Width);
    return {bar.center().x() - width / 2, Top_Of_Value(bar, hangs, mark_bottom), width, Value_Height};
}

QRect Foot_Place(int column_left, int column_width) {
    constexpr int rim = 5;
    constexpr int height = 80;
    return {column_left - rim, Chart_Height - height - rim, column_width + 2 * rim, height};
}

} // namespace reports
