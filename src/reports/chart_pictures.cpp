#include "reports/chart_pictures.h"

#include "shell/conventions/theme.h"

#include <QApplication>
#include <QPainter>

namespace reports {

using namespace shell;

static QPixmap Blank(const QSize& size, qreal ratio) {
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

QPixmap Scale_Picture(const QString& title, const QSize& size, qreal ratio) {
    QPixmap picture = Blank(size, ratio);
    QPainter painter(&picture);
    painter.setPen(Colours_In_Force().Quiet_Text);
    QFont font = QApplication::font();
    font.setPixelSize(13);
    painter.setFont(font);
    painter.translate(0, size.height());
    painter.rotate(-90);
    painter.drawText(QRect(0, 0, size.height(), size.width()), Qt::AlignCenter, title);
    return picture;
}

QPixmap Switch_Picture(bool on, const QSize& size, qreal ratio) {
    const Colours& colours = Colours_In_Force();
    QPixmap picture = Blank(size, ratio);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = QRectF(QPointF(0, 0), size).adjusted(1, 1, -1, -1);
    const qreal radius = track.height() / 2;
    painter.setPen(QPen(on ? colours.Accent_Text : colours.Quiet_Text, 1.5));
    painter.setBrush(on ? chart_colours::Time_Bar : colours.Disabled_Ground);
    painter.drawRoundedRect(track, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(on ? QColor(Qt::white) : colours.Quiet_Text);
    const qreal knob = on ? track.right() - radius : track.left() + radius;
    painter.drawEllipse(QPointF(knob, track.center().y()), radius - 3.5, radius - 3.5);
    return picture;
}

} // namespace reports
