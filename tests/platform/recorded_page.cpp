#include "platform/recorded_page.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {

using preview::Drawing;
using preview::Line_Operation;
using preview::Rectangle_Operation;
using preview::Text_Operation;

QStringList Texts_On(const Drawing& page) {
    QStringList texts;
    for (const Text_Operation& line : All_Of<Text_Operation>(page))
        texts.append(line.text);
    return texts;
}

QList<Text_Operation> Lines_Of(const Drawing& page, const QString& text) {
    return Those_Of<Text_Operation>(page, [&](const auto& line) { return line.text == text; });
}

Text_Operation Only_Line(const Drawing& page, const QString& text) {
    const QList<Text_Operation> found = Lines_Of(page, text);
    if (found.size() != 1)
        throw std::runtime_error(std::to_string(found.size()) + " times '" + text.toStdString() + "' among " +
                                 Texts_On(page).join(u" | "_s).toStdString());
    return found.first();
}

QList<Rectangle_Operation> Rectangles_Filled(const Drawing& page, const QColor& colour) {
    return Those_Of<Rectangle_Operation>(
        page, [&](const auto& rectangle) { return !rectangle.outline && rectangle.fill == colour; });
}

QList<Line_Operation> Lines_Drawn(const Drawing& page, const QColor& colour) {
    return Those_Of<Line_Operation>(page, [&](const auto& line) { return line.pen.colour == colour; });
}

QColor Colour_At(const Drawing& page, int x, int y) {
    const auto there = Those_Of<Rectangle_Operation>(page, [&](const auto& one) {
        return one.fill && QRect(one.x, one.y, one.width, one.height).contains(x, y);
    });
    return there.isEmpty() ? Qt::white : *there.last().fill;
}

QStringList Overlaps(const Drawing& page) {
    const QList<Text_Operation> lines = All_Of<Text_Operation>(page);
    QList<QRectF> inks;
    for (const Text_Operation& line : lines)
        inks.append(preview::Ink_Of(line));
    QStringList met;
    for (qsizetype i = 0; i < lines.size(); ++i)
        for (qsizetype j = i + 1; j < lines.size(); ++j)
            if (inks[i].intersects(inks[j])) met.append(lines[i].text + u" / "_s + lines[j].text);
    return met;
}

} // namespace test_support
