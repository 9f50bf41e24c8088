#pragma once

#include <QPen>
#include <QProxyStyle>

namespace shell {

// Draws what the style sheet can't: ticks, dots and arrows that are sharp at every resolution, and the mark
// of the keyboard's focus, which is the same on every control.
class Look final : public QProxyStyle {
    Q_OBJECT
public:
    Look();

    // The mark of the focus along the inner edge of a place.
    static void Draw_Focus(QPainter& painter, const QRectF& place, qreal corner);
    // The ground of a button or a list with its rounded edge, which goes along the outermost pixels.
    static void Draw_Plate(QPainter& painter, const QRect& place, qreal corner, const QPen& edge,
                           const QColor& ground);

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
};

} // namespace shell
