#include "platform/preview/painters.h"

#include "platform/basics/twips.h"
#include "platform/preview/text_metrics.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace preview {
namespace {

constexpr double Metres_Per_Inch = 0.0254;

QPen Painted_Pen(const Pen& pen) {
    return QPen(pen.colour, pen.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
}

// Paints one operation after the other. A sheet's texts have few styles, whose font and ascent are asked for
// once.
class Operation_Painter {
public:
    explicit Operation_Painter(QPainter& painter) : painter(painter) {}

    void operator()(const Text_Operation& text) {
        const std::size_t place = Place_Of_Face(text.style);
        const Face& face = faces[place];
        if (place != face_set) painter.setFont(face.font); // the painter would look it up anew
        face_set = place;
        painter.setPen(text.colour);
        if (text.angle == 0 && text.squeeze == 1) {
            painter.drawText(QPointF(text.x, text.y + face.ascent), text.text);
            return;
        }
        painter.save();
        painter.translate(text.x, text.y);
        painter.rotate(-text.angle / 10.0);
        painter.scale(text.squeeze, 1);
        painter.drawText(QPointF(0, face.ascent), text.text);
        painter.restore();
    }

    void operator()(const Line_Operation& line) {
        painter.setPen(Painted_Pen(line.pen));
        painter.drawLine(line.x1, line.y1, line.x2, line.y2);
    }

    void operator()(const Rectangle_Operation& rectangle) {
        painter.setPen(rectangle.outline ? Painted_Pen(*rectangle.outline) : QPen(Qt::NoPen));
        painter.setBrush(rectangle.fill ? QBrush(*rectangle.fill) : QBrush(Qt::NoBrush));
        painter.drawRect(rectangle.x, rectangle.y, rectangle.width, rectangle.height);
    }

private:
    struct Face {
        Text_Style style;
        QFont font;
        double ascent;
    };

    std::size_t Place_Of_Face(const Text_Style& style) {
        const auto found = std::find_if(faces.begin(), faces.end(),
                                        [&style](const Face& face) { return face.style == style; });
        const auto place = static_cast<std::size_t>(found - faces.begin());
        if (found == faces.end()) faces.push_back({style, Font_Of(style), Ascent(style)});
        return place;
    }

    QPainter& painter;
    std::vector<Face> faces;
    std::size_t face_set = static_cast<std::size_t>(-1); // none so far
};

// Measuring a text takes long, and nearly all stand on lines of their own: none is higher than twice its
// size.
bool Is_Far_From(const QRectF& ink, const Text_Operation& text) {
    const int highest = 2 * text.style.font_size * basics::Twips_Per_Point;
    if (text.angle == 0) return text.y > ink.bottom() || text.y + highest < ink.top();
    return text.x > ink.right() || text.x + highest < ink.left();
}

bool Reaches(const Text_Operation& text, const QRectF& ink) {
    return !Is_Far_From(ink, text) && Ink_Of(text).intersects(ink);
}

QRectF Place_Of(const Line_Operation& line) {
    const double half = std::max(1, line.pen.width) / 2.0;
    const QRectF between(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    return between.normalized().adjusted(-half, -half, half, half);
}

QRectF Place_Of(const Rectangle_Operation& rectangle) {
    const double half = rectangle.outline ? rectangle.outline->width / 2.0 : 0;
    return QRectF(rectangle.x, rectangle.y, rectangle.width, rectangle.height)
        .adjusted(-half, -half, half, half);
}

template<class Shape>
bool Reaches(const Shape& shape, const QRectF& ink) {
    return Place_Of(shape).intersects(ink);
}

using Operations = std::vector<Operation>;

// Whether the text of that number is the same as an earlier one, and nothing came over it in between.
bool Stands_Already(const Operations& operations, size_t earlier, size_t number) {
    const auto& text = std::get<Text_Operation>(operations[number]);
    if (std::get<Text_Operation>(operations[earlier]) != text) return false;
    const QRectF ink = Ink_Of(text);
    const auto first = operations.begin() + std::ptrdiff_t(earlier) + 1;
    return std::none_of(
        first, operations.begin() + std::ptrdiff_t(number), [&ink](const Operation& operation) {
            return std::visit([&ink](const auto& kind) { return Reaches(kind, ink); }, operation);
        });
}

} // namespace

std::vector<const Operation*> Painted_Operations(const Drawing& drawing) {
    std::map<std::pair<int, int>, size_t> last_text; // at each place
    std::vector<const Operation*> painted;
    for (size_t number = 0; number < drawing.operations.size(); ++number) {
        const Operation& operation = drawing.operations[number];
        if (const auto* text = std::get_if<Text_Operation>(&operation)) {
            const auto [last, is_first] = last_text.try_emplace({text->x, text->y}, number);
            const size_t earlier = std::exchange(last->second, number);
            if (!is_first && Stands_Already(drawing.operations, earlier, number)) continue;
        }
        painted.push_back(&operation);
    }
    return painted;
}

void Paint(const Drawing& drawing, QPainter& painter) {
    painter.save();
    // All lines run along the page's edges: on whole pixels they are sharper than smoothed ones.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    Operation_Painter paints(painter);
    for (const Operation* operation : Painted_Operations(drawing))
        std::visit(paints, *operation);
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
