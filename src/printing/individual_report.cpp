#include "printing/individual_report.h"

#include <QGroupBox>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace printing {

using shell::Text_Role;

Form94::Form94(desktop::Platform& platform, shell::Navigator& navigator, Individual_Sources sources)
    : Report_Page(platform, navigator, sources.installation),
      scores(sources.scores),
      state(sources.state),
      report(ViewPro1, sources, platform) {
    setObjectName(u"Form94"_s);
    Lay_Out();
    Tell_Helps();
}

void Form94::Load() {
    const desktop::Wait_Pointer busy(platform.pointer);
    Report_Setup();
    Build_Report();
    if (scores.Left_By_A_Batch)
        BatchNotice->setText(
            u"After a batch report, z-score bars and \"Trm\" are those of the last pupil scored. "
            "Choose the pupil again on the Reports page."_s);
}

void Form94::Report_Setup() {
    report.Report_Setup();
    Set_Zoom(First_Zoom);
}

void Form94::Build_Report() {
    report.Build_Report({.Summary = Check3->isChecked(),
                         .Profile = Check4->isChecked(),
                         .Legend = Check1->isChecked(),
                         .Comments = Check2->isChecked()});
    ViewPro1.ShowOutput();
    Show_Comment_Notice();
}

void Form94::Show_Comment_Notice() {
    const int over = Check2->isChecked() ? Lines_Of_Comment(state.comment.Pupil_Comment).Over() : 0;
    CommentNotice->setVisible(over > 0);
    CommentNotice->setText(over == 1 ? u"1 line over"_s : u"%1 lines over"_s.arg(over));
}

QString Form94::Document_Name() const {
    return u"Mevo individual report"_s;
}

constexpr int Preview_Left = 16;
constexpr int Preview_Width = 804;
constexpr int Choices_Left = 832;
constexpr int Choices_Width = 232;

void Form94::Lay_Out() {
    constexpr int tick = 28;
    constexpr int height = 26; // of a zoom entry
    constexpr int title_width = 330;
    Make_Label(u"Label4"_s, u"Reports Print Preview"_s, Text_Role::Title,
               {Preview_Left, 16, title_width, 34});
    BatchNotice = Make_Label(u"BatchNotice"_s, u""_s, Text_Role::Quiet,
                             {Preview_Left + title_width, 16, Preview_Width - title_width, 36});
    BatchNotice->setWordWrap(true);
    Make_Preview({Preview_Left, 54, Preview_Width, 490}); // a whole sheet at the first zoom
    Label1 = Make_Label(u"Label1"_s, u""_s, Text_Role::Help, {Choices_Left, 408, Choices_Width, 94});
    Label1->setWordWrap(true);
    Label1->setAccessibleName(u"Help"_s);
    Lay_Out_Preferences();
    const auto zoom = [](const QString& caption, int top) {
        return Zoom_Entry{caption,
                          {Choices_Left + tick + 8, top, Choices_Width - tick - 8, height},
                          {Choices_Left, top, tick, height}};
    };
    Make_Zoom_Entries({zoom(u"Zoom 100%"_s, 180), zoom(u"Zoom 67%"_s, 211), zoom(u"Zoom 40%"_s, 242),
                       zoom(u"Fit to width"_s, 273)},
                      Frame1);
    constexpr int half = (Choices_Width - 12) / 2;
    Make_Copy_Entries({Choices_Left, 304, half, 36}, {Choices_Left + half + 12, 304, half, 36}, Frame1);
    HotLabel2->Set_Weight(shell::HotLabel::Weight::Primary);
    Make_Margins_Box({Choices_Left, 343, Choices_Width, 26});
    Make_Main_Entry({Choices_Left, 504, Choices_Width, 40});
    Make_Save_Entry({Choices_Left, 372, Choices_Width, 34}, KeepToMargins);
}

namespace {

// The caption at the side of a check box; a click on it is one on the box.
class Side_Caption final : public QLabel {
public:
    Side_Caption(const QString& name, const QString& caption, QCheckBox* box, QWidget* parent)
        : QLabel(caption, parent), box(box) {
        setObjectName(name);
        setBuddy(box);
        box->setAccessibleName(caption); // its own text is empty
    }

protected:
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) box->click();
    }

private:
    QCheckBox* box;
};

} // namespace

void Form94::Lay_Out_Preferences() {
    auto* frame = new QGroupBox(u"Preferences"_s, Frame1);
    frame->setObjectName(u"Frame2"_s);
    frame->setGeometry(Choices_Left, 16, Choices_Width, 156);
    int top = 26;
    const auto preference = [&](const char16_t* name, const char16_t* label_name, const QString& caption,
                                QLabel*& label) {
        constexpr int pitch = 32;
        auto* box = new QCheckBox(frame);
        box->setObjectName(QString::fromUtf16(name));
        box->setGeometry(14, top, 24, 28);
        box->setChecked(true);
        shell::On(box, &QCheckBox::clicked, this, platform, [this] { Build_Report(); });
        label = new Side_Caption(QString::fromUtf16(label_name), caption, box, frame);
        label->setGeometry(46, top, 172, 28);
        top += pitch;
        return box;
    };
    Check3 = preference(u"Check3", u"Label8", u"Summary"_s, Label8);
    Check4 = preference(u"Check4", u"Label9", u"Profile"_s, Label9);
    Check1 = preference(u"Check1", u"Label2", u"Legend"_s, Label2);
    Check2 = preference(u"Check2", u"Label3", u"Comments"_s, Label3);
    Label3->resize(76, Label3->height());
    CommentNotice = Make_Label(u"CommentNotice"_s, u""_s, Text_Role::Quiet,
                               {Label3->geometry().right() + 5, Label3->y(), 98, Label3->height()}, frame);
}

// The help texts of the four captions don't fit their boxes; they are the system's own, spelling included.
void Form94::Tell_Helps() {
    auto* help = new shell::Help_Line(this, [this](const QString& text) { Label1->setText(text); });
    Tell_Common_Helps(*help, u"Copy the report to the clipboard as a Windows Metafile (.WMF)"_s);
    help->Tell(Label8, u"Add or remove the guidance notes whch may assist in interpretation."_s);
    help->Tell(
        Label9,
        u"Add or remove the optional comments box completed by the administrator via the Reports screen."_s);
    help->Tell(
        Label2,
        u"By unchecking the 'Page border' option it is possible to reduce the time to print a report by over a third."_s);
    help->Tell(Label3, u"Add or remove the Orlane ability bar from the printout."_s);
    help->Tell(CommentNotice, [this] { return In_Words(Lines_Of_Comment(state.comment.Pupil_Comment)); });
    const QString previewing =
        u"You can enlarge or shrink the view in the Print Preview window which shows what the printout will look like when it has been printed."_s;
    help->Tell(Preview, previewing);
    help->Tell(Preview->viewport(), previewing);
    help->Follow_Focus(*this);
}

} // namespace printing
