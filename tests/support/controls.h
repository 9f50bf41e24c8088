#pragma once

#include "shell/conventions/page.h"
#include "support/printing.h"

#include <QApplication>
#include <QStringList>
#include <QTest>
#include <QWidget>
#include <functional>
#include <stdexcept>

namespace test_support {

QStringList Control_Names(const QWidget& page);

// A control by its design name; a miss lists the names that are there.
template<class Control_Type = QWidget>
Control_Type& Control(const QWidget& page, const QString& name) {
    auto* found = page.findChild<Control_Type*>(name);
    if (!found)
        throw std::runtime_error("no control " + name.toStdString() + " among " +
                                 Control_Names(page).join(u", ").toStdString());
    return *found;
}

QString Caption(const QWidget& page, const QString& name); // of a HotLabel or a label
bool Shown(const QWidget& page, const QString& name);      // whether it shows while its page does
bool Enabled(const QWidget& page, const QString& name);
void Click(const QWidget& page, const QString& name);
void Point_At(const QWidget& page, const QString& name); // moves the pointer over it
void Point_At(QWidget& control);

// Lets queued events and timers run until the condition holds, or five seconds have gone.
bool Wait_Until(const std::function<bool()>& condition);

// Keeps what a page asked for instead of carrying it out.
class Recording_Navigator final : public shell::Navigator {
public:
    void Go_To(shell::Page_Id page) override { went_to.append(page); }
    void Open_On_Top(shell::Page_Id page) override { opened_on_top.append(page); }
    void Close_Page() override { ++closed; }
    void Unload_All() override { unloaded = true; }
    QList<shell::Page_Id> went_to;
    QList<shell::Page_Id> opened_on_top;
    int closed = 0;
    bool unloaded = false;
};

} // namespace test_support
