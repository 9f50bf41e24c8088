#include "reports/profile_chart.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "shell/conventions/look.h"
#include "shell/conventions/theme.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace reports {

using namespace shell;

constexpr int Mark_Size = 18;

Terminated_Mark::Terminated_Mark(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAccessibleName(u"Terminated"_s);
    setFixedSize(Mark_Size, 2 * Mark_Size);
    hide();
}

void Terminated_Mark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int cut_off = std::clamp(-y(), 0, Mark_Size);
    const QRectF badge(1, cut_off + 1, Mark_Size - 2, Mark_Size - 2);
    painter.setPen(QPen(colours::Text, 1.5));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(badge, 3, 3);
    QFont font = this->font();
    font.setPixelSize(12);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(badge, Qt::AlignCenter, u"T"_s);
}

namespace {

class Bar_Frame final : public QFrame {
public:
    Bar_Frame(Measure measure, QWidget* parent) : QFrame(parent), measure(measure) {}

protected:
    void paintEvent(QPaintEvent*) override {
        const bool time = measure == Measure::Time;
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        const QRect inside = rect().adjusted(1, 1, -1, -1);
        painter.fillRect(inside, time ? colours::Time_Bar : colours::Accuracy_Bar);
        if (time) Hatch(painter, inside);
    }

private:
    void Hatch(QPainter& painter, const QRect& inside) const {
        constexpr int step = 7;
        painter.setClipRect(inside);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colours::Time_Hatch, 1.5));
        for (int x = inside.left() - inside.height(); x < inside.right(); x += step)
            painter.drawLine(x, inside.bottom() + 1, x + inside.height(), inside.top());
    }

    Measure measure;
};

// The chart as a list of its columns. The bars, being drawings, aren't told of.
class Chart_Interface final : public QAccessibleWidget {
public:
    explicit Chart_Interface(Profile_Chart* chart)
        : QAccessibleWidget(chart, QAccessible::List), chart(chart) {}

    int childCount() const override { return 8; }
    QAccessibleInterface* child(int index) const override {
        return index < 0 || index >= childCount()
                   ? nullptr
                   : QAccessible::queryAccessibleInterface(chart->Row(index + 1));
    }
    int indexOfChild(const QAccessibleInterface* item) const override {
        for (int t = 1; t <= childCount(); ++t)
            if (item && item->object() == chart->Row(t)) return t - 1;
        return -1;
    }

private:
    Profile_Chart* chart;
};

QAccessibleInterface* Interface_Of(const QString&, QObject* object) {
    if (auto* chart = qobject_cast<Profile_Chart*>(object)) return new Chart_Interface(chart);
    if (auto* row = qobject_cast<Chart_Row*>(object))
        return new QAccessibleWidget(row, QAccessible::ListItem);
    return nullptr;
}

} // namespace

QFrame* Make_Bar(const QString& name, Measure measure, QWidget* parent) {
    auto* bar = new Bar_Frame(measure, parent);
    bar->setObjectName(name);
    return bar;
}

Chart_Row::Chart_Row(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Chart_Row::paintEvent(QPaintEvent*) {
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    shell::Look::Draw_Focus(painter, rect(), 4);
}

void Chart_Row::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        Q_EMIT Left_By(event->key());
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void Chart_Row::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    raise(); // its mark stands before the bars
}

Profile_Chart::Profile_Chart(const QString& name, QWidget* parent) : QFrame(parent) {
    QAccessible::installFactory(Interface_Of);
    setObjectName(name);
    setAccessibleName(u"Cognitive Profile"_s);
    setFixedSize(Size);
    for (int t = 1; t <= 8; ++t) {
        const auto i = static_cast<std::size_t>(t);
        accuracy[i] = Make_Bar(u"Shape%1"_s.arg(t), Measure::Accuracy, this);
        time[i] = Make_Bar(u"Shape12(%1)"_s.arg(t - 1), Measure::Time, this);
        Shape(t)->setGeometry(Column_Left(t), 0, Column_Width, 0);
        Time_Shape(t)->setGeometry(Column_Left(t) + Column_Width / 2, 0, Column_Width / 2, 0);
        // An accuracy bar without a height is there all the same, as its test's button asks for it.
        Time_Shape(t)->hide();
        constexpr int around = 5;
        rows[i] = new Chart_Row(u"Row%1"_s.arg(t), this);
        rows[i]->setGeometry(Column_Left(t) - around, 0, Column_Width + 2 * around, Chart_Height);
        connect(rows[i], &Chart_Row::Left_By, this, [this, t](int key) { Move_From(t, key); });
    }
    Row(1)->setFocusPolicy(Qt::TabFocus);
    Image12 = new Terminated_Mark(u"Image12"_s, this);
    Image13 = new Terminated_Mark(u"Image13"_s, this);
}

void Profile_Chart::Move_From(int t, int key) {
    int to = t;
    if (key == Qt::Key_Home)
        to = 1;
    else if (key == Qt::Key_End)
        to = 8;
    else
        to += key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    to = std::clamp(to, 1, 8);
    if (to == t) return;
    Row(to)->setFocusPolicy(Qt::TabFocus);
    Row(to)->setFocus(Qt::TabFocusReason);
    Row(t)->setFocusPolicy(Qt::NoFocus);
}

void Profile_Chart::Load_Picture(const QString& file) {
    if (!ground.load(basics::Native_Path(file)))
        throw basics::Run_Time_Error(basics::errors::File_Not_Found, u"Mevo"_s, u"File not found: "_s + file);
    update();
}

void Profile_Chart::Place(QFrame* bar, const Bar& place) {
    bar->setGeometry(bar->x(), place.Top, bar->width(), place.Height);
}

void Profile_Chart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(rect(), ground);
}

} // namespace reports
