#pragma once

#include "platform/desktop/ports.h"
#include "scoring/why_words.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/help_line.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>

namespace reports {

// The reckoning behind one test's score, in words. It stands before the chart, which stays as it is beneath.
class Why_Panel final : public QFrame {
    Q_OBJECT
public:
    Why_Panel(const QRect& place, desktop::Platform& platform, QWidget* frame);

    void Tell(int t, const scoring::Why_Words& words); // and come forward
    void Tell_Helps(shell::Help_Line& help) const;
    int Test() const { return tests->ListIndex() + 1; }
    const scoring::Why_Words& Words() const { return words; }

Q_SIGNALS:
    void Chosen(int t); // another test, from the panel's own list
    void Print();
    void Close();

private:
    void Lay_Out();
    QPushButton* Make_Button(const QString& name, const QString& caption, int left);

    desktop::Platform& platform;
    scoring::Why_Words words;
    QLabel *title, *pupil;
    shell::Click_Combo* tests;
    QTextBrowser* text;
    QPushButton *copy, *print, *close;
};

} // namespace reports
