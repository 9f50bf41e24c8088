#pragma once

#include <QImage>

namespace screens {

// How far two pictures of one size are from each other, of 255.
struct Difference {
    double mean = 0;  // over all pixels
    double local = 0; // of the small square where they differ most, by its own mean
};

// Edges of letters that fall a little lighter or darker count little: a square is compared by its mean
// colour.
Difference Compare(const QImage& one, const QImage& other);

// What differs, dark on white.
QImage Picture_Of_Difference(const QImage& one, const QImage& other);

} // namespace screens
