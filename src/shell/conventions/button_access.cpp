#include "shell/conventions/button_access.h"

#include "shell/conventions/page.h"

#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRadioButton>

namespace shell {
namespace {

class Page_Button final : public QAccessibleWidget {
public:
    Page_Button(QAbstractButton* button, QAccessible::Role role, const Page& page)
        : QAccessibleWidget(button, role), button(button), page(page) {}

    QString text(QAccessible::Text kind) const override {
        const QString told = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && told.isEmpty() ? button->text() : told;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button->isCheckable();
        state.checked = button->isChecked();
        state.pressed = button->isDown();
        return state;
    }
    QStringList actionNames() const override {
        if (!button->isEnabled()) return QAccessibleWidget::actionNames();
        return QStringList{Press_Name()} + QAccessibleWidget::actionNames();
    }
    QStringList keyBindingsForAction(const QString& action) const override {
        return action == Press_Name() && !button->shortcut().isEmpty()
                   ? QStringList{button->shortcut().toString()}
                   : QStringList();
    }
    // The click follows a moment later: a handler that puts a box up would let whoever asked wait for its
    // end.
    void doAction(const QString& action) override {
        if (action != Press_Name())
            QAccessibleWidget::doAction(action);
        else if (page.Takes_Press(*button))
            button->animateClick();
    }

private:
    QString Press_Name() const { return button->isCheckable() ? toggleAction() : pressAction(); }

    QAbstractButton* button;
    const Page& page;
};

QAccessibleInterface* Make_Page_Button(const QString&, QObject* object) {
    QAccessible::Role role = QAccessible::PushButton;
    if (qobject_cast<QCheckBox*>(object))
        role = QAccessible::CheckBox;
    else if (qobject_cast<QRadioButton*>(object))
        role = QAccessible::RadioButton;
    else if (!qobject_cast<HotLabel*>(object))
        return nullptr;
    for (QObject* around = object->parent(); around; around = around->parent())
        if (const auto* page = qobject_cast<Page*>(around))
            return new Page_Button(static_cast<QAbstractButton*>(object), role, *page);
    return nullptr;
}

} // namespace

void Install_Button_Access() {
    QAccessible::installFactory(Make_Page_Button);
}

} // namespace shell
