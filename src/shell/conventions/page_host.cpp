#include "shell/conventions/page_host.h"

#include <QCloseEvent>
#include <QMetaObject>

using namespace Qt::StringLiterals;

namespace shell {

Page_Host::Page_Host(desktop::Platform& platform, Page_Factory factory)
    : platform(platform), factory(std::move(factory)) {
    setObjectName(u"Page_Host"_s);
    setWindowTitle(desktop::Default_Box_Title());
    setAttribute(Qt::WA_StyledBackground);
}

Page_Host::~Page_Host() = default;

void Page_Host::Later(std::function<void()> act) {
    QMetaObject::invokeMethod(
        this, [this, act = std::move(act)] { Guarded(platform, act); }, Qt::QueuedConnection);
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
    Current()->show();
    Current()->setFocus();
}

// The keys go on where they were when the page above was opened.
void Page_Host::Show_Again() {
    if (pages.empty()) return;
    Current()->show();
    (pages.back().focus ? pages.back().focus.data() : Current())->setFocus();
}

void Page_Host::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    for (const Loaded& loaded : pages)
        loaded.page->setGeometry(rect());
}

// The window's own close button leaves the program without starting the suite's shell.
void Page_Host::closeEvent(QCloseEvent* event) {
    event->accept();
    platform.processes.End(0);
}

} // namespace shell
