#include "shell/conventions/look.h"

#include "shell/conventions/theme.h"

#include <QPainter>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <QtMath>
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace shell {
namespace {

constexpr int Cell_Margin = 5; // pixels at the sides of a text in a list or table
constexpr int Indicator_Side = 18;
constexpr qreal Corner = 6;

struct Inks {
    QColor ground;
    QColor edge;
    QColor mark;
};

Inks Inks_Of(const QStyleOption& option) {
    const Colours& colours = Colours_In_Force();
    if (!option.state.testFlag(QStyle::State_Enabled))
        return {colours.Disabled_Ground, colours.Edge, colours.Disabled_Text};
    if (option.state.testFlag(QStyle::State_MouseOver))
        return {colours.Hover_Ground, colours.Accent, colours.Accent};
    return {colours.Card, colours.Edge, colours.Accent};
}

void Draw_Tick_Box(QPainter& painter, const QStyleOption& option) {
    const Inks inks = Inks_Of(option);
    const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(inks.edge, 1.5));
    painter.setBrush(inks.ground);
    painter.drawRoundedRect(box, 3, 3);
    if (!option.state.testFlag(QStyle::State_On)) return;
    painter.setPen(QPen(inks.mark, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&box](qreal x, qreal y) {
        return box.topLeft() + QPointF(x * box.width(), y * box.height());
    };
    painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.43, 0.73), at(0.79, 0.28)});
}

void Draw_Option_Dot(QPainter& painter, const QStyleOption& option) {
    const Inks inks = Inks_Of(option);
    const QRectF ring = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(inks.edge, 1.5));
    painter.setBrush(inks.ground);
    painter.drawEllipse(ring);
    if (!option.state.testFlag(QStyle::State_On)) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(inks.mark);
    painter.drawEllipse(ring.center(), ring.width() * 0.28, ring.height() * 0.28);
}

// The arrow of a list that drops down.
void Draw_Chevron(QPainter& painter, const QPointF& centre, const QColor& ink) {
    painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF{centre + QPointF(-4.5, -2.2), centre + QPointF(0, 2.3), centre + QPointF(4.5, -2.2)});
}

void Draw_Combo(QPainter& painter, const QStyleOptionComplex& option) {
    const Colours& colours = Colours_In_Force();
    const Inks inks = Inks_Of(option);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    Look::Draw_Plate(painter, option.rect, Corner, QPen(enabled ? inks.edge : colours.Faint_Edge, 1),
                     inks.ground);
    Draw_Chevron(painter, {box.right() - 16, box.center().y()},
                 enabled ? colours.Quiet_Text : colours.Disabled_Text);
    if (option.state.testFlag(QStyle::State_HasFocus)) Look::Draw_Focus(painter, option.rect, Corner);
}

void Draw_Whole_Plate(QPainter& painter, const QRectF& place, qreal corner, const QPen& edge,
                      const QColor& ground) {
    painter.setPen(edge);
    painter.setBrush(ground);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
}

QPixmap Small_Plate(int side, qreal corner, const QPen& edge, const QColor& ground, qreal ratio) {
    const QString key = u"plate/%1/%2/%3/%4/%5/%6"_s.arg(side)
                            .arg(corner)
                            .arg(edge.widthF())
                            .arg(edge.color().rgba())
                            .arg(ground.rgba())
                            .arg(ratio);
    QPixmap plate;
    if (QPixmapCache::find(key, &plate)) return plate;
    plate = QPixmap(QSize(side, side) * ratio);
    plate.setDevicePixelRatio(ratio);
    plate.fill(Qt::transparent);
    QPainter painter(&plate);
    painter.setRenderHint(QPainter::Antialiasing);
    Draw_Whole_Plate(painter, QRectF(0, 0, side, side), corner, edge, ground);
    painter.end();
    QPixmapCache::insert(key, plate);
    return plate;
}

} // namespace

// Rounded edges are what takes longest on a page of many fields: they are drawn once for all sizes, as a
// small plate whose middle row and column are stretched. A dashed edge, and one that doesn't lie on whole
// pixels, can't be put together so.
void Look::Draw_Plate(QPainter& painter, const QRect& place, qreal corner, const QPen& edge,
                      const QColor& ground) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const int piece = qCeil(corner) + 2;
    const int side = 2 * piece + 1;
    const bool is_whole = edge.style() == Qt::SolidLine && ratio == qRound(ratio) &&
                          painter.worldTransform().type() <= QTransform::TxTranslate &&
                          std::min(place.width(), place.height()) >= side;
    if (!is_whole) return Draw_Whole_Plate(painter, place, corner, edge, ground);
    const QPixmap plate = Small_Plate(side, corner, edge, ground, ratio);
    const auto parts = [piece](int start, int length) {
        return std::array{std::pair(start, piece), std::pair(start + piece, length - 2 * piece),
                          std::pair(start + length - piece, piece)};
    };
    const auto rows = parts(place.top(), place.height());
    const auto columns = parts(place.left(), place.width());
    const auto from = parts(0, side);
    painter.fillRect(place.adjusted(piece, piece, -piece, -piece), ground);
    for (std::size_t row = 0; row < from.size(); ++row)
        for (std::size_t column = 0; column < from.size(); ++column) {
            if (row == 1 && column == 1) continue; // the middle has no edge
            const QRectF source(from[column].first, from[row].first, from[column].second, from[row].second);
            painter.drawPixmap(
                QRectF(columns[column].first, rows[row].first, columns[column].second, rows[row].second),
                plate, QRectF(source.topLeft() * ratio, source.size() * ratio));
        }
}

Look::Look() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) { // the same on every system
}

// A line of the ground's colour goes with it, so that it stands out from a chosen entry's ground as well.
void Look::Draw_Focus(QPainter& painter, const QRectF& place, qreal corner) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Colours_In_Force().Card, 1));
    painter.drawRoundedRect(place.adjusted(2.5, 2.5, -2.5, -2.5), corner - 1, corner - 1);
    painter.setPen(QPen(Colours_In_Force().Focus, 2));
    painter.drawRoundedRect(place.adjusted(1, 1, -1, -1), corner, corner);
}

int Look::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_FocusFrameHMargin:
        return Cell_Margin;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return Indicator_Side;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Look::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                    QStyleHintReturn* data) const {
    if (hint == SH_ComboBox_Popup) return 0; // a list beneath the field, not one that covers it
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void Look::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    switch (element) {
    case PE_FrameFocusRect:
        Draw_Focus(*painter, option->rect, 4);
        break;
    case PE_IndicatorCheckBox:
        Draw_Tick_Box(*painter, *option);
        break;
    case PE_IndicatorRadioButton:
        Draw_Option_Dot(*painter, *option);
        break;
    default:
        painter->setRenderHint(QPainter::Antialiasing, false);
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    painter->restore();
}

void Look::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                              const QWidget* widget) const {
    if (control != CC_ComboBox) return QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    Draw_Combo(*painter, *option);
    painter->restore();
}

// A check box or option has the mark of the focus around the whole of it, which needs room at the left.
QRect Look::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    constexpr int room = 4;
    const QRect usual = QProxyStyle::subElementRect(element, option, widget);
    switch (element) {
    case SE_CheckBoxIndicator:
    case SE_RadioButtonIndicator:
        return usual.translated(room, 0);
    case SE_CheckBoxContents:
    case SE_RadioButtonContents:
        return usual.adjusted(room, 0, 0, 0);
    case SE_CheckBoxFocusRect:
    case SE_RadioButtonFocusRect:
        return option->rect;
    default:
        return usual;
    }
}

QRect Look::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                           const QWidget* widget) const {
    if (control == CC_ComboBox && part == SC_ComboBoxEditField) return option->rect.adjusted(6, 1, -26, -1);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

} // namespace shell
