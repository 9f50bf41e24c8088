#include "support/controls.h"

#include <QLabel>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace test_support {

QStringList Control_Names(const QWidget& page) {
    QStringList names;
    for (const QWidget* child : page.findChildren<QWidget*>())
        if (!child->objectName().isEmpty()) names.append(child->objectName());
    names.sort();
    return names;
}

QString Caption(const QWidget& page, const QString& name) {
    QWidget& control = Control(page, name);
    if (auto* label = qobject_cast<shell::HotLabel*>(&control)) return label->Caption();
    if (auto* label = qobject_cast<QLabel*>(&control)) return label->text();
    throw std::runtime_error(name.toStdString() + " has no caption");
}

bool Shown(const QWidget& page, const QString& name) {
    return Control(page, name).isVisibleTo(&page);
}

bool Enabled(const QWidget& page, const QString& name) {
    return Control(page, name).isEnabled();
}

void Click(const QWidget& page, const QString& name) {
    QTest::mouseClick(&Control(page, name), Qt::LeftButton);
}

void Point_At(const QWidget& page, const QString& name) {
    Point_At(Control(page, name));
}

void Point_At(QWidget& control) {
    const QPointF middle = QRectF(control.rect()).center();
    QMouseEvent move(QEvent::MouseMove, middle, control.mapToGlobal(middle), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&control, &move);
}

bool Wait_Until(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 5000);
}

} // namespace test_support
