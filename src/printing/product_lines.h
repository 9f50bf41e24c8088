#pragma once

#include <QString>

namespace printing {

// The line that names the product, its version and its maker. The long one stands on the report pages and on
// the tables of the Reports page, the short one on all other printed grids.
inline QString Long_Product_Line() {
    return QStringLiteral(
        "Mevo for Networks, version 5.11 [8 Dec 2011]. Quend Mevo is made by Quend Research.");
}

inline QString Short_Product_Line() {
    return QStringLiteral("Quend Mevo 5.11, Quend Research");
}

// For the properties of a PDF with scores; norms as their digest.
inline QString About_Scores(const QString& norms) {
    return norms.isEmpty() ? QString() : QStringLiteral("Mevo 5.11, norms ") + norms;
}

} // namespace printing
