#include "reports/profile_chart.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "shell/conventions/theme.h"

#include <QPainter>

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

static QFrame* Make_Bar(const QString& name, const QColor& colour, QWidget* parent) {
    auto* bar = new QFrame(parent);
    bar->setObjectName(name);
    bar->setStyleSheet(u"background: %1; border: 1px solid white;"_s.arg(colour.name()));
    bar->hide();
    return bar;
}

Profile_Chart::Profile_Chart(const QString& name, QWidget* parent) : QFrame(parent) {
    setObjectName(name);
    setAccessibleName(u"Cognitive Profile"_s);
    setFixedSize(Size);
    for (int t = 1; t <= 8; ++t) {
        accuracy[static_cast<std::size_t>(t)] = Make_Bar(u"Shape%1"_s.arg(t), colours::Accuracy_Bar, this);
        time[static_cast<std::size_t>(t)] = Make_Bar(u"Shape12(%1)"_s.arg(t - 1), colours::Time_Bar, this);
        Shape(t)->setGeometry(Column_Left(t), 0, Column_Width, 0);
        Time_Shape(t)->setGeometry(Column_Left(t) + Column_Width / 2, 0, Column_Width / 2, 0);
    }
    Image12 = new Terminated_Mark(u"Image12"_s, this);
    Image13 = new Terminated_Mark(u"Image13"_s, this);
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
