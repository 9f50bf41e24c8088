#pragma once

#include "shell/whereabouts.h"

#include <QLabel>

namespace shell {

// The line at the foot of the Main menu. What doesn't fit is left out of what is shown, and told in full by
// Whole().
class Foot_Line final : public QLabel {
    Q_OBJECT
public:
    Foot_Line(const QString& name, const QRect& place, QWidget* parent);

    void Tell(const Whereabouts& told);
    const QString& Whole() const { return whole; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool warns = false;
    QString whole;
};

} // namespace shell
