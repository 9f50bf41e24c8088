#include "practice/practice_window.h"

#include "console/other_ports.h"
#include "practice/practice_school.h"
#include "shell/conventions/theme.h"

#include <QCloseEvent>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace practice {

namespace {

class One_Folder final : public desktop::Ini_Files {
public:
    explicit One_Folder(const QString& folder) : folder(folder) {}
    QString Value(const QString&, const QString&, const QString& key, const QString& missing) override {
        return key == "database_sharepath"_L1 ? folder : missing;
    }

private:
    QString folder;
};

class Nothing_Started final : public desktop::Processes {
public:
    explicit Nothing_Started(desktop::Processes& outside) : outside(outside) {}
    void Start(const QString&) override {}

protected:
    void End_Process(int status) override { outside.End(status); }

private:
    desktop::Processes& outside;
};

} // namespace

struct Practice_Ports::Bodies {
    Bodies(desktop::Platform& outside, const QString& folder)
        : ini(folder), processes(outside.processes), ports(console::With(Stand_Ins(), outside)) {}

    console::Other_Ports Stand_Ins() {
        console::Other_Ports others;
        others.ini = &ini;
        others.processes = &processes;
        return others;
    }

    One_Folder ini;
    Nothing_Started processes;
    desktop::Platform ports;
};

Practice_Ports::Practice_Ports(desktop::Platform& outside, const QString& folder)
    : bodies(std::make_unique<Bodies>(outside, folder)) {
}

Practice_Ports::~Practice_Ports() = default;

desktop::Platform& Practice_Ports::Ports() {
    return bodies->ports;
}

Practice_Window::Practice_Window(shell::Page_Host& host) : host(host) {
    setObjectName(u"Practice_Window"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    QLabel* band = shell::Make_Label(u"Practice_Band"_s, School_Name(), shell::Text_Role::Notice, this);
    band->setAlignment(Qt::AlignCenter);
    column->addWidget(band);
    column->addWidget(&host, 1);
    setWindowTitle(host.windowTitle());
    connect(&host, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    host.installEventFilter(this);
}

Practice_Window::~Practice_Window() {
    host.removeEventFilter(this);
    host.setParent(nullptr);
}

// The close mark is the page's to answer, and the program ends by itself.
void Practice_Window::closeEvent(QCloseEvent* event) {
    event->ignore();
    host.close();
}

// Where nothing follows a page, the program hides its window.
bool Practice_Window::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &host && event->type() == QEvent::Hide && !event->spontaneous()) hide();
    return QWidget::eventFilter(watched, event);
}

} // namespace practice
