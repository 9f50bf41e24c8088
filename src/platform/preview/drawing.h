#pragma once

#include <QColor>
#include <QPoint>
#include <QString>
#include <optional>
#include <variant>
#include <vector>

namespace preview {

// One page as it was recorded. All places and sizes are twips from the paper's top left corner, so every
// painter has only to scale.

struct Text_Style {
    int font_size = 10; // points
    bool bold = false;
    bool fixed_pitch = false; // of letters that can't be taken for one another: O and 0, l and 1
    bool operator==(const Text_Style&) const = default;
};

// One line of text. It hangs from its top left corner, and is turned about that corner.
struct Text_Operation {
    int x = 0;
    int y = 0;
    QString text;
    Text_Style style;
    QColor colour;
    int angle = 0;        // tenths of a degree, counter-clockwise
    double squeeze = 1.0; // how much narrower than its natural width the line is set
    bool operator==(const Text_Operation&) const = default;
};

struct Pen {
    QColor colour;
    int width = 0;
};

struct Line_Operation {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    Pen pen;
};

// The outline runs along the edges, half of its width on either side; the sizes are never negative.
struct Rectangle_Operation {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    std::optional<Pen> outline;
    std::optional<QColor> fill;
};

using Operation = std::variant<Text_Operation, Line_Operation, Rectangle_Operation>;

struct Drawing {
    int width = 0;
    int height = 0;
    std::vector<Operation> operations; // in the order in which they are painted
    QPoint moved_by{};                 // how far all of it but the running texts was moved
};

} // namespace preview
