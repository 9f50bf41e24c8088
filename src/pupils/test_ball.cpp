#include "pupils/test_ball.h"

#include "shell/conventions/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace pupils {

namespace {

constexpr QColor Ball_Light{0xF2, 0x7A, 0x6E};
constexpr QColor Ball{0xC6, 0x28, 0x28};
constexpr QColor Ball_Edge{0x8E, 0x14, 0x14};
constexpr QColor Disc{0x1E, 0x7D, 0x32};
constexpr QColor Disc_Edge{0x10, 0x55, 0x1F};

// All are drawn within a square of this side, and scaled.
constexpr qreal Side = 40;
constexpr QPointF Centre{Side / 2, Side / 2};

void Draw_Ring(QPainter& painter) {
    painter.setBrush(Qt::NoBrush);
    QPen dashes(shell::Colours_In_Force().Quiet_Text, 2);
    dashes.setDashPattern({3, 2.5});
    painter.setPen(dashes);
    painter.drawEllipse(Centre, 15, 15);
}

void Draw_Ball(QPainter& painter) {
    QRadialGradient shine(QPointF(15, 14), 20);
    shine.setColorAt(0, Ball_Light);
    shine.setColorAt(0.7, Ball);
    painter.setBrush(shine);
    painter.setPen(QPen(Ball_Edge, 1.5));
    painter.drawEllipse(Centre, 16, 16);
}

// Three quarters of a circle that end in an arrow's head.
void Draw_Turning_Arrow(QPainter& painter) {
    constexpr qreal radius = 8.5;
    constexpr qreal sixteenths = 16; // the toolkit counts angles in sixteenths of a degree
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(QRectF(Centre.x() - radius, Centre.y() - radius, 2 * radius, 2 * radius),
                    qRound(30 * sixteenths), qRound(280 * sixteenths));
    const QPointF tip =
        Centre + QPointF(radius * qCos(qDegreesToRadians(30.0)), -radius * qSin(qDegreesToRadians(30.0)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF{tip + QPointF(-6.5, 0.5), tip + QPointF(4, 3.5), tip + QPointF(2.5, -7)});
}

void Draw_Disc(QPainter& painter) {
    painter.setBrush(Disc);
    painter.setPen(QPen(Disc_Edge, 1.5));
    painter.drawEllipse(Centre, 16, 16);
    Draw_Turning_Arrow(painter);
}

void Draw(QPainter& painter, Test_State state) {
    painter.setRenderHint(QPainter::Antialiasing);
    switch (state) {
    case Test_State::Not_Attempted:
        return Draw_Ring(painter);
    case Test_State::Completed:
        return Draw_Ball(painter);
    case Test_State::Allow_Retest:
        return Draw_Disc(painter);
    }
}

} // namespace

QString Words_Of(Test_State state) {
    switch (state) {
    case Test_State::Not_Attempted:
        return u"Test not attempted"_s;
    case Test_State::Completed:
        return u"Test completed"_s;
    case Test_State::Allow_Retest:
        break;
    }
    return u"Allow retest"_s;
}

QPixmap Picture_Of(Test_State state, int side, qreal ratio) {
    QPixmap picture(QSize(side, side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(side / Side, side / Side);
    Draw(painter, state);
    return picture;
}

Test_Ball::Test_Ball(const QString& name, const QString& test, QWidget* parent)
    : QAbstractButton(parent), test(test) {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    Set_State(state);
}

void Test_Ball::Set_State(Test_State shown) {
    state = shown;
    setAccessibleName(test + u": "_s + Words_Of(state));
    update();
}

void Test_Ball::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(shell::Colours_In_Force().Focus, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    }
    const int side = qMin(width(), height()) - 4; // room for the mark of the focus
    painter.translate((width() - side) / 2.0, (height() - side) / 2.0);
    painter.scale(side / Side, side / Side);
    Draw(painter, state);
}

} // namespace pupils
