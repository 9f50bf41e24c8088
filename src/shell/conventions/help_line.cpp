#include "shell/conventions/help_line.h"

#include <QAbstractScrollArea>
#include <QFocusEvent>
#include <QLabel>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace shell {

void Help_Line::Tell(QWidget* control, const QString& text) {
    Tell(control, [text] { return text; });
}

void Help_Line::Tell(QWidget* control, Text text) {
    control->setMouseTracking(true);
    control->installEventFilter(this);
    control->setAccessibleDescription(text());
    if (auto* label = qobject_cast<QLabel*>(control); label && label->buddy())
        captions.insert(label->buddy(), label);
    texts.insert(control, std::move(text));
}

void Help_Line::Clear_Over(QWidget* surface) {
    surface->setMouseTracking(true);
    surface->installEventFilter(this);
    surfaces.append(surface);
}

void Help_Line::Stands_For(QWidget* told, std::initializer_list<QWidget*> controls) {
    for (QWidget* control : controls) {
        captions.insert(control, told);
        control->installEventFilter(this);
    }
    if (auto* label = qobject_cast<QLabel*>(told)) label->setBuddy(*controls.begin());
}

const Help_Line::Text* Help_Line::Text_For(QWidget* control) const {
    const auto own = texts.constFind(control);
    if (own != texts.cend()) return &*own;
    QWidget* caption = captions.value(control);
    if (const auto told = texts.constFind(caption); told != texts.cend() && !caption->isHidden())
        return &*told;
    for (QObject* around = control->parent(); around; around = around->parent())
        if (const auto told = texts.constFind(around); told != texts.cend()) return &*told;
    return nullptr;
}

void Help_Line::Follow_Focus(QWidget& page) {
    for (auto* control : page.findChildren<QWidget*>()) {
        const Text* text = control->focusPolicy() == Qt::NoFocus ? nullptr : Text_For(control);
        if (!text || texts.contains(control)) continue;
        control->installEventFilter(this);
        if (control->accessibleDescription().isEmpty()) control->setAccessibleDescription((*text)());
    }
}

static bool By_Keyboard(const QEvent* event) {
    if (event->type() != QEvent::FocusIn) return false;
    const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

// A text may depend on what has happened since.
void Help_Line::Describe(QObject* control) const {
    if (const auto told = texts.constFind(control); told != texts.cend())
        static_cast<QWidget*>(control)->setAccessibleDescription((*told)());
}

bool Help_Line::eventFilter(QObject* watched, QEvent* event) {
    auto* control = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show) {
        Describe(control);
    } else if (By_Keyboard(event)) {
        for (auto told = texts.keyBegin(); told != texts.keyEnd(); ++told)
            Describe(*told);
        if (const Text* text = Text_For(control)) show((*text)());
    } else if (event->type() == QEvent::MouseMove) {
        // A move of the pointer that a control ignores goes on to the widget beneath it, which it isn't meant
        // for.
        if (!qobject_cast<QAbstractScrollArea*>(control) &&
            control->childAt(static_cast<QMouseEvent*>(event)->pos()))
            return false;
        if (const auto told = texts.constFind(watched); told != texts.cend())
            show((*told)());
        else if (surfaces.contains(control))
            show(u""_s);
    }
    return false;
}

} // namespace shell
