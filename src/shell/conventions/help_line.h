#pragma once

#include <QHash>
#include <QObject>
#include <QWidget>
#include <functional>

namespace shell {

// A page's help line: the label that tells about the control under the pointer, or under the keyboard's
// focus. A control without a text of its own leaves the line as it was. A screen reader finds each text as
// its control's description.
class Help_Line : public QObject {
public:
    using Show = std::function<void(const QString&)>;
    using Text = std::function<QString()>;
    Help_Line(QObject* owner, Show show) : QObject(owner), show(std::move(show)) {}

    void Tell(QWidget* control, const QString& text);
    void Tell(QWidget* control, Text text); // a text that depends on the state
    // Clears the line when the pointer is over the surface itself and not over a control on it.
    void Clear_Over(QWidget* surface);

    // The keyboard can't point at captions and frames. So a control that has no text of its own tells, when
    // the keys reach it, that of its caption or of the frame it stands in. To be called behind all Tell.
    void Follow_Focus(QWidget& page);
    // The controls that a caption or frame stands for, where it isn't their buddy or parent.
    void Stands_For(QWidget* told, std::initializer_list<QWidget*> controls);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Text* Text_For(QWidget* control) const;
    void Describe(QObject* control) const;

    Show show;
    QHash<QObject*, Text> texts;
    QHash<QWidget*, QWidget*> captions; // by the control
    QList<QWidget*> surfaces;
};

} // namespace shell
