#include "shell/conventions/waiting_notice.h"

#include "platform/database/busy_waiting.h"
#include "shell/conventions/theme.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace shell {

using database::Waiting_Event;

Waiting_Notice::Waiting_Notice(QWidget& window) : window(window) {
    QCoreApplication::instance()->installEventFilter(this);
}

Waiting_Notice::~Waiting_Notice() {
    delete panel;
}

bool Waiting_Notice::eventFilter(QObject*, QEvent* event) {
    if (event->type() != Waiting_Event::Kind) return false;
    const int seconds_left = static_cast<Waiting_Event*>(event)->seconds_left;
    if (seconds_left == Waiting_Event::Is_Over)
        Put_Away();
    else
        Show(seconds_left);
    return false;
}

static QString Words(int seconds_left) {
    return u"Another workstation is writing to the database.\nWaiting for it, %1 %2 more at most."_s
        .arg(seconds_left)
        .arg(seconds_left == 1 ? u"second"_s : u"seconds"_s);
}

void Waiting_Notice::Show(int seconds_left) {
    const bool is_first = !panel;
    if (is_first) {
        QWidget* const dialog = QApplication::activeModalWidget();
        QWidget* const over = dialog ? dialog : &window;
        if (!over->isVisible()) return;
        panel = Make_Label(u"Waiting_Notice"_s, {}, Text_Role::Waiting, over);
        panel->setAlignment(Qt::AlignCenter);
    }
    panel->setText(Words(seconds_left));
    QRect place({}, panel->sizeHint());
    place.moveCenter(panel->parentWidget()->rect().center());
    panel->setGeometry(place);
    panel->show();
    // No event loop runs: at once, or not before the wait is over. At first with all around it, where a box
    // that was answered may still be seen.
    QWidget& painted = is_first ? *panel->parentWidget() : *panel;
    painted.repaint();
}

void Waiting_Notice::Put_Away() {
    if (!panel) return;
    QWidget* const over = panel->parentWidget();
    const QRect place = panel->geometry();
    delete panel;
    over->repaint(place);
}

} // namespace shell
