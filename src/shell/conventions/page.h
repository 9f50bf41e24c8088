#pragma once

#include "platform/desktop/ports.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/help_line.h"
#include "shell/conventions/hot_label.h"
#include "shell/conventions/theme.h"

#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <QWidget>

namespace shell {

// The pages by their plain names. A page names the one that follows by this and knows no other page's class.
enum class Page_Id {
    Main_Menu,
    Reports,
    Individual_Report,
    Batch_Report,
    Register,
    Fine_Tuning,
    Security,
    Delete,
    Import,
    Prepare,
    Testing_Progress,
    Settings,
    Archiving,
    Why_Report, // over the Reports page: an explanation to print
    Norms,      // over the Settings page: what the norm tables hold
    Go_Back,
    Remove_Pupil,
    Earlier_Results, // over the Reports page: what the pupil scored before a retest
    Pupil_Data,      // over the Fine tuning page: all that is kept of the pupil, to print or to save
    Changes,         // over the Settings page: what was done, and what is kept of whom
    Tick_List,       // over Testing progress: its list as boxes to tick
    Login_Cards,     // over the Security page: a group's logins to hand out
};

// How a page says what follows. It is destroyed after its handler has returned.
class Navigator {
public:
    virtual ~Navigator() = default;
    virtual void Go_To(Page_Id page) = 0;       // unload this page, then show that one
    virtual void Open_On_Top(Page_Id page) = 0; // this page stays loaded beneath
    virtual void Close_Page() = 0;              // back to the page beneath
    virtual void Unload_All() = 0;              // nothing follows
};

// A page: a fixed layout inside Frame1, whose place alone depends on the screen.
class Page : public QWidget {
    Q_OBJECT
public:
    Page(desktop::Platform& platform, Navigator& navigator, const QSize& frame_size);

    // What happens when the page is opened; the slow part is left to a one-shot timer.
    virtual void Load() = 0;

    // Presses the button that leads away from the page.
    void Leave();

    // Whether a button of the page takes a press at this moment.
    bool Takes_Press(const QAbstractButton& button) const { return Takes_Event(platform, &button, this); }

    // The page's left and top for Frame1 on a screen of that size: may be negative on a small one.
    static QPointF Centred(const QSize& screen, const QSize& frame);

protected:
    virtual QString Leaving_Button() const { return QStringLiteral("HotLabel1"); }
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override; // gives the entries their letters

    // Runs `work` once, after the page has had time to paint and when it is idle; and again each time that
    // the timer is started.
    QTimer* Once_Painted(const QString& timer_name, std::function<void()> work);

    HotLabel* Make_HotLabel(const QString& name, const QString& caption, const QRect& place,
                            std::function<void()> click, HotLabel::Look look = HotLabel::Look::Command,
                            QWidget* parent = nullptr);
    QLabel* Make_Label(const QString& name, const QString& text, Text_Role role, const QRect& place,
                       QWidget* parent = nullptr);

    // A help line, and the label that shows its texts.
    struct Help {
        QLabel* label;
        Help_Line* line;
    };
    Help Make_Help(const QString& label_name, const QRect& place);

    static constexpr int Deferred_Ms = 1000; // of the pages' timers

    desktop::Platform& platform;
    Navigator& navigator;
    QFrame* Frame1;
};

} // namespace shell
