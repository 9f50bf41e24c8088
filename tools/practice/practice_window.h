#pragma once

#include "app/program.h"

#include <QWidget>

namespace practice {

// The ports of a program that leaves this computer's own school and the suite alone: product.ini names the
// practice school's folder, and nothing is started when it is left.
class Practice_Ports {
public:
    Practice_Ports(desktop::Platform& outside, const QString& folder);
    ~Practice_Ports();
    Practice_Ports(const Practice_Ports&) = delete;
    Practice_Ports& operator=(const Practice_Ports&) = delete;

    desktop::Platform& Ports();

private:
    struct Bodies;
    std::unique_ptr<Bodies> bodies;
};

// The program's window below a band that says what it shows, whatever page it is on.
class Practice_Window final : public QWidget {
public:
    explicit Practice_Window(shell::Page_Host& host); // which stays its owner's
    ~Practice_Window() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    shell::Page_Host& host;
};

} // namespace practice
