#pragma once

#include "platform/preview/text_metrics.h"

#include <QColor>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>

namespace test_support {

inline const QColor Red(255, 0, 0); // of a bar
inline const QString Note =
    QStringLiteral("Trm - Tests which were terminated early (Tolvens or Blik's Friends)");

// Questions to a recorded page. A text that isn't there fails with a list of those that are.

template<class Kind, class Wanted>
QList<Kind> Those_Of(const preview::Drawing& page, Wanted wanted) {
    QList<Kind> found;
    for (const preview::Operation& operation : page.operations)
        if (const auto* one = std::get_if<Kind>(&operation); one && wanted(*one)) found.append(*one);
    return found;
}

template<class Kind>
QList<Kind> All_Of(const preview::Drawing& page) {
    return Those_Of<Kind>(page, [](const Kind&) { return true; });
}

QStringList Texts_On(const preview::Drawing& page);
QList<preview::Text_Operation> Lines_Of(const preview::Drawing& page, const QString& text);
preview::Text_Operation Only_Line(const preview::Drawing& page, const QString& text);

QList<preview::Rectangle_Operation> Rectangles_Filled(const preview::Drawing& page, const QColor& colour);
QList<preview::Line_Operation> Lines_Drawn(const preview::Drawing& page, const QColor& colour);

// The fill that was painted last at that place; white where nothing was.
QColor Colour_At(const preview::Drawing& page, int x, int y);

// Pairs of texts whose ink meets: "one / other".
QStringList Overlaps(const preview::Drawing& page);

} // namespace test_support
