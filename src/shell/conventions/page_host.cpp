#include "shell/conventions/page_host.h"

#include <QCloseEvent>
#include <QMetaObject>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace shell {

Page_Host::Page_Host(desktop::Platform& platform, Page_Factory factory, std::function<QString()> school,
                     Shown shown)
    : platform(platform),
      factory(std::move(factory)),
      school(std::move(school)),
      shown(std::move(shown)),
      waiting(*this) {
    setObjectName(u"Page_Host"_s);
    setWindowTitle(desktop::Default_Box_Title());
    setAttribute(Qt::WA_StyledBackground);
}

Page_Host::~Page_Host() = default;

void Page_Host::Later(std::function<void()> act) {
    asked.push_back(std::move(act));
    QMetaObject::invokeMethod(
        this, [this] { Carry_Out(); }, Qt::QueuedConnection);
}

// A handler that asked for a page and then put a box up is still running when the box's loop comes here.
void Page_Host::Carry_Out() {
    constexpr int look_again_ms = 20;
    if (!platform.work.windows.empty()) {
        QTimer::singleShot(look_again_ms, this, [this] { Carry_Out(); });
        return;
    }
    while (!asked.empty()) {
        const std::function<void()> act = std::move(asked.front());
        asked.pop_front();
        Guarded(platform, act, this);
    }
}

void Page_Host::Go_To(Page_Id page) {
    Later([this, page] {
        Drop_Top();
        Show_New(page);
    });
}

void Page_Host::Open_On_Top(Page_Id page) {
    Later([this, page] { Show_New(page); });
}

void Page_Host::Close_Page() {
    Later([this] {
        Drop_Top();
        Show_Again();
    });
}

void Page_Host::Unload_All() {
    hide();
}

void Page_Host::Drop_Top() {
    if (!pages.empty()) pages.pop_back();
}

void Page_Host::Show_New(Page_Id id) {
    if (Page* beneath = Current()) {
        pages.back().focus = beneath->focusWidget();
        beneath->hide();
    }
    std::unique_ptr<Page> page = factory(id, *this);
    page->setParent(this);
    page->setGeometry(rect());
    page->Load();
    pages.push_back({std::move(page), {}});
    Show_Current();
    Current()->setFocus();
    if (shown) shown(id);
}

QString Page_Host::Title() const {
    const QString caption = Current()->windowTitle();
    if (!caption.isEmpty()) return caption;
    const QString name = school ? school().simplified() : QString();
    return name.isEmpty() ? desktop::Default_Box_Title() : desktop::Default_Box_Title() + u" - "_s + name;
}

void Page_Host::Show_Current() {
    setWindowTitle(Title());
    Current()->show();
}

// The keys go on where they were when the page above was opened.
void Page_Host::Show_Again() {
    if (pages.empty()) return;
    Show_Current();
    (pages.back().focus ? pages.back().focus.data() : Current())->setFocus();
}

void Page_Host::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    for (const Loaded& loaded : pages)
        loaded.page->setGeometry(rect());
}

// The window's close mark is one more way to press the button that the page is left by. Before the first page
// there is nothing to leave but the program.
void Page_Host::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (Page* page = Current())
        page->Leave();
    else if (platform.work.windows.empty())
        platform.processes.End(0);
}

} // namespace shell
