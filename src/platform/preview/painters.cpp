#include "platform/preview/painters.h"

#include "platform/basics/twips.h"
#include "platform/preview/text_metrics.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <cmath>

namespace preview {
namespace {

constexpr double Metres_Per_Inch = 0.0254;

QPen Painted_Pen(const Pen& pen) {
    return QPen(pen.colour, pen.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
}

void Paint_Operation(const Text_Operation& text, QPainter& painter) {
    painter.save();
    painter.translate(text.x, text.y);
    painter.rotate(-text.angle / 10.0);
    painter.scale(text.squeeze, 1);
    painter.setFont(Font_Of(text.style));
    painter.setPen(text.colour);
    painter.drawText(QPointF(0, Ascent(text.style)), text.text);
    painter.restore();
}

void Paint_Operation(const Line_Operation& line, QPainter& painter) {
    painter.setPen(Painted_Pen(line.pen));
    painter.drawLine(line.x1, line.y1, line.x2, line.y2);
}

void Paint_Operation(const Rectangle_Operation& rectangle, QPainter& painter) {
    painter.setPen(rectangle.outline ? Painted_Pen(*rectangle.outline) : QPen(Qt::NoPen));
    painter.setBrush(rectangle.fill ? QBrush(*rectangle.fill) : QBrush(Qt::NoBrush));
    painter.drawRect(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
}

} // namespace

void Paint(const Drawing& drawing, QPainter& painter) {
    painter.save();
    // All lines run along the page's edges: on whole pixels they are sharper than smoothed ones.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    for (const Operation& operation : drawing.operations)
        std::visit([&painter](const auto& kind) { Paint_Operation(kind, painter); }, operation);
    painter.restore();
}

QByteArray Svg_Of(const Drawing& drawing) {
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(basics::Twips_Per_Inch);
    generator.setSize(QSize(drawing.width, drawing.height));
    generator.setViewBox(QRect(0, 0, drawing.width, drawing.height));
    QPainter painter(&generator);
    painter.fillRect(0, 0, drawing.width, drawing.height, Qt::white);
    Paint(drawing, painter);
    painter.end();
    return buffer.data();
}

QImage Picture_Of(const Drawing& drawing, int dots_per_inch) {
    const double scale = double(dots_per_inch) / basics::Twips_Per_Inch;
    QImage picture(int(std::ceil(drawing.width * scale)), int(std::ceil(drawing.height * scale)),
                   QImage::Format_RGB32);
    picture.setDotsPerMeterX(int(std::lround(dots_per_inch / Metres_Per_Inch)));
    picture.setDotsPerMeterY(picture.dotsPerMeterX());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    Paint(drawing, painter);
    return picture;
}

} // namespace preview
