#include "reports/column_values.h"

#include "reports/profile_bars.h"
#include "shell/conventions/theme.h"

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

void Column_Values::Show_Texts(const QList<Column_Text>& shown) {
    texts = shown;
    raise();
    update();
}

static void Draw_Text(QPainter& painter, const Column_Text& column) {
    const int flags =
        Qt::AlignHCenter | Qt::TextWordWrap | (column.is_value ? Qt::AlignVCenter : Qt::AlignBottom);
    const QRect words = painter.boundingRect(column.place, flags, column.text);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(words.adjusted(-3, column.is_value ? 1 : -1, 3, column.is_value ? -1 : 1), 3, 3);
    painter.setPen(shell::chart_colours::Ink);
    painter.drawText(column.place, flags, column.text);
}

// On white plates: the ground may be of any grey, and a bar of its own colour.
void Column_Values::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::white);
    QFont font = this->font();
    font.setPixelSize(12);
    painter.setFont(font);
    for (const Column_Text& column : texts)
        Draw_Text(painter, column);
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
