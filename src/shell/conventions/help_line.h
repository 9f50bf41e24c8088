#pragma once

#include <QHash>
#include <QObject>
#include <QWidget>
#include <functional>

namespace shell {

// A page's help line: the label that tells about the control under the pointer, or under the keyboard's
// focus. A control without a text of its own leaves the line as it was.
class Help_Line : public QObject {
public:
    using Show = std::function<void(const QString&)>;
    Help_Line(QObject* owner, Show show) : QObject(owner), show(std::move(show)) {}

    void Tell(QWidget* control, const QString& text);
    void Tell(QWidget* control, std::function<QString()> text); // a text that depends on the state
    // Clears the line when the pointer is over the surface itself and not over a control on it.
    void Clear_Over(QWidget* surface);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Show show;
    QHash<QObject*, std::function<QString()>> texts;
    QList<QWidget*> surfaces;
};

} // namespace shell
