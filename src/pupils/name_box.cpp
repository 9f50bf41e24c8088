#include "pupils/name_box.h"

namespace pupils {

Name_Box::Name_Box(const QString& name, int selected_at_most, QWidget* parent)
    : QLineEdit(parent), selected_at_most(selected_at_most) {
    setObjectName(name);
}

void Name_Box::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    setSelection(0, selected_at_most);
}

} // namespace pupils
