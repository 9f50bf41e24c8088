#pragma once

#include <QPixmap>
#include <QString>

namespace reports {

// The small pictures of the Reports page, drawn for the screen's own resolution.
QPixmap Scale_Picture(const QString& title, const QSize& size, qreal ratio); // a title along the scale's side
QPixmap Switch_Picture(bool on, const QSize& size, qreal ratio);             // the time bars' switch

} // namespace reports
