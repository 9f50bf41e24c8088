#include "shell/conventions/page.h"

#include "shell/conventions/button_access.h"
#include "shell/conventions/look.h"

#include <QPaintEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace shell {

namespace {

// What a page's controls stand on. Whatever changes on a page has a piece of it painted anew, so it does that
// quickly, and leaves nothing of the page beneath to be seen.
class Card final : public QFrame {
public:
    explicit Card(QWidget* page) : QFrame(page) { setAttribute(Qt::WA_OpaquePaintEvent); }

protected:
    void paintEvent(QPaintEvent* event) override {
        constexpr int rim = 10;
        const Colours& colours = Colours_In_Force();
        QPainter painter(this);
        if (rect().adjusted(rim, rim, -rim, -rim).contains(event->rect())) {
            painter.fillRect(event->rect(), colours.Card);
            return;
        }
        painter.fillRect(rect(), colours.Ground);
        painter.setRenderHint(QPainter::Antialiasing);
        Look::Draw_Plate(painter, rect(), rim - 0.5, QPen(colours.Faint_Edge, 1), colours.Card);
    }
};

} // namespace

Page::Page(desktop::Platform& platform, Navigator& navigator, const QSize& frame_size)
    : platform(platform), navigator(navigator), Frame1(new Card(this)) {
    Install_Button_Access();
    setProperty("page", true);
    setAttribute(Qt::WA_StyledBackground);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFixedSize(frame_size);
}

QPointF Page::Centred(const QSize& screen, const QSize& frame) {
    return {(screen.width() - frame.width()) / 2.0, (screen.height() - frame.height()) / 2.0};
}

void Page::Leave() {
    if (auto* button = findChild<HotLabel*>(Leaving_Button())) button->click();
}

void Page::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Frame1->move(Centred(size(), Frame1->size()).toPoint());
}

void Page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Give_Mnemonics(*this);
}

QTimer* Page::Once_Painted(const QString& timer_name, std::function<void()> work) {
    auto* timer = new QTimer(this);
    timer->setObjectName(timer_name);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, [this, timer, work = std::move(work)] {
        if (Is_Idle(platform, *this))
            Guarded(platform, work, window());
        else
            timer->start(); // a box is open, say
    });
    timer->start(platform.clock.Timer_Interval(Deferred_Ms));
    return timer;
}

HotLabel* Page::Make_HotLabel(const QString& name, const QString& caption, const QRect& place,
                              std::function<void()> click, HotLabel::Look look, QWidget* parent) {
    auto* label = new HotLabel(name, caption, parent ? parent : Frame1, look);
    label->setGeometry(place);
    On(label, &HotLabel::clicked, this, platform, std::move(click));
    return label;
}

QLabel* Page::Make_Label(const QString& name, const QString& text, Text_Role role, const QRect& place,
                         QWidget* parent) {
    QLabel* label = shell::Make_Label(name, text, role, parent ? parent : Frame1);
    label->setGeometry(place);
    return label;
}

Page::Help Page::Make_Help(const QString& label_name, const QRect& place) {
    QLabel* label = Make_Label(label_name, u""_s, Text_Role::Help, place);
    label->setWordWrap(true);
    label->setAccessibleName(u"Help"_s);
    return {label, new Help_Line(this, [label](const QString& text) { label->setText(text); })};
}

} // namespace shell
