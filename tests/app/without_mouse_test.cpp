// A day's work with the keyboard alone: no mouse event, and no handler called from here.

#include "app/running_program.h"
#include "platform/grid/spread.h"
#include "platform/preview/preview_window.h"
#include "shell/conventions/click_combo.h"
#include "shell/main_menu.h"
#include "support/files.h"
#include "support/table_changes.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDir>
#include <QDirIterator>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QProgressBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;

namespace {

class Without_A_Mouse : public testing::Test, public Running_Program {
protected:
    ~Without_A_Mouse() override { outside.boxes.Expect_All_Asked(); }

    void Open_Program() {
        Start();
        program.Window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&program.Window()));
    }

    static QString Focused() {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }
    void Press(Qt::Key key, int times = 1, Qt::KeyboardModifiers with = Qt::NoModifier) {
        for (; times > 0; --times)
            QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    // By the Tab key, as often as it takes to come round once.
    void Tab_To(const QString& name) {
        for (int stops = 0; stops < 60; ++stops) {
            Press(Qt::Key_Tab);
            if (Focused() == name) return;
        }
        throw std::runtime_error("Tab doesn't lead to " + name.toStdString());
    }
    void Tab_And_Press(const QString& name, Qt::Key key = Qt::Key_Return) {
        Tab_To(name);
        Press(key);
    }
    // The letter that is underlined in a caption, with Alt.
    void By_Letter(const QString& name) {
        const QPointer<QAbstractButton> button = &Control<QAbstractButton>(Page(), name);
        const QKeySequence letter = button->shortcut();
        ASSERT_FALSE(letter.isEmpty()) << name.toStdString();
        Press(letter[0].key(), 1, letter[0].keyboardModifiers());
        // A button that is clicked by its letter goes down, and acts as it comes up.
        EXPECT_TRUE(Wait_Until([&] { return !button || !button->isDown(); })) << name.toStdString();
    }
    void Go(const QString& entry, const QString& form) {
        By_Letter(entry);
        Follow_To(form);
    }
    // What has changed in the file since it was last looked at: something, and nothing of another kind.
    void Expect_Changed(const QString& kind) {
        const Table_Rows found = Read_Tables(sample);
        const QStringList changes = Changes(seen, found);
        EXPECT_FALSE(changes.isEmpty()) << kind.toStdString();
        const QRegularExpression pattern(u'^' + kind);
        for (const QString& change : changes)
            EXPECT_TRUE(pattern.match(change).hasMatch()) << change.toStdString();
        seen = found;
    }
    // Beside each entry that prints.
    void Save_As_Pdf() {
        const QString file = sample.Folder() + u"/saved.pdf"_s;
        outside.file_dialogs.answers = {file};
        Tab_And_Press(u"SaveAsPdf"_s);
        EXPECT_TRUE(QFile::remove(file));
    }
    // Gives the first question of the dialog its other answer. What the file holds, which is taken away.
    QByteArray Saved_As_Csv(const QString& entry) {
        const QString file = sample.Folder() + u"/taken out.csv"_s;
        outside.file_dialogs.answers = {file};
        outside.dialogs.Will_Do([this](QDialog& dialog) {
            dialog.show();
            dialog.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            Press(Qt::Key_Down);
            Tab_And_Press(u"HotLabel1"_s);
            program.Window().activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&program.Window()));
        });
        Tab_And_Press(entry);
        const QByteArray bytes = Bytes_Of(file);
        EXPECT_TRUE(QFile::remove(file));
        return bytes;
    }
    // Whatever the dialog is about.
    void Type_Into_Dialog(const QString& text, Qt::Key ended_by) {
        outside.dialogs.Will_Do([this, text, ended_by](QDialog& dialog) {
            dialog.show();
            dialog.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            Type(text);
            if (const auto* mark = dialog.findChild<QProgressBar*>()) {
                EXPECT_EQ(mark->text(), u"On the report: 1 of 16 lines used"_s);
            }
            Press(ended_by);
            EXPECT_FALSE(dialog.isVisible());
            program.Window().activateWindow(); // no window manager does it here
            ASSERT_TRUE(QTest::qWaitForWindowActive(&program.Window()));
        });
    }

public:
    // ---- the works, each on its page

    void Register_A_Pupil() {
        EXPECT_EQ(Focused(), u"Text3"_s);
        Type(u"Newton"_s);
        Press(Qt::Key_Return);
        Type(u"Isla"_s);
        Press(Qt::Key_Return);
        EXPECT_EQ(Focused(), u"Combo2"_s);
        Press(Qt::Key_Down, 4); // the 5th
        Press(Qt::Key_Tab);
        Press(Qt::Key_Down); // of February
        Press(Qt::Key_Tab);
        Type(u"2020"_s);
        Press(Qt::Key_Tab);
        Press(Qt::Key_Down); // female
        Press(Qt::Key_Tab);
        outside.boxes.Will_Answer(Answer::Yes);
        Press(Qt::Key_Space);
        EXPECT_EQ(sample.Value(u"SELECT Forename || Sex || DOB FROM Mevo_Pupils WHERE Surname = 'Newton'"_s),
                  u"IslaF05/02/2020"_s);
        Expect_Changed(u"Mevo_\\w+ NEWISL\\w+: new"_s);
    }

    void Import_A_Class() {
        const QString file = sample.Folder() + u"/class.txt"_s;
        Write_Bytes(file, "Ashdown,Ella,female,14/03/2019,Class 1 Oak,\r\n");
        outside.file_dialogs.answers = {file};
        Tab_And_Press(u"PreviewImport"_s);
        Save_As_Pdf();
        outside.boxes.Will_Answer(Answer::Yes);
        Tab_And_Press(u"HotLabel3"_s, Qt::Key_Space);
        Expect_Changed(u"Mevo_\\w+ ASHELL\\w+: new"_s);
        Prepare_A_List(file);
    }

    // Month and day want to be settled, a field to be corrected, and a row is left out.
    void Prepare_A_List(const QString& file) {
        Write_Bytes(file,
                    "Name,Sex,Born\n\"Zeal, Bo\",girl,03/04/2019\n\"Zeal, Cy\",boy,05/06/2019\nTotal,2,\n");
        outside.file_dialogs.answers = {file};
        Go(u"HotLabel5"_s, u"Form43"_s);
        Tab_And_Press(u"HotLabel2"_s);
        Tab_To(u"Combo8"_s);
        Press(Qt::Key_Down, 2); // the month comes first
        Tab_To(u"Text2"_s);
        Type(u"Hazel"_s);
        Tab_To(u"Spread1"_s);
        Press(Qt::Key_Down, 2);
        Press(Qt::Key_Space);
        Press(Qt::Key_Up, 2);
        Press(Qt::Key_Right, 4);
        Press(Qt::Key_F2);
        Type(u"Beau"_s);
        Press(Qt::Key_Return);
        QApplication::processEvents(); // ends what is typed into a cell
        Tab_And_Press(u"Check1"_s, Qt::Key_Space);
        Tab_And_Press(u"HotLabel6"_s);
        Follow_To(u"Form42"_s);
        outside.boxes.Will_Answer(Answer::Yes);
        Tab_And_Press(u"HotLabel3"_s, Qt::Key_Space);
        Expect_Changed(u"Mevo_(\\w+ ZEA(BEA|CY)\\w+: new|Groups \\d+: new, Group_Name 'Hazel')"_s);
        EXPECT_EQ(
            sample.Column(
                u"SELECT Forename || Sex || DOB || Group_Class FROM Mevo_Pupils WHERE Surname = 'Zeal'"_s),
            (QStringList{u"BeauF04/03/19Hazel"_s, u"CyM06/05/19Hazel"_s}));
    }

    void Correct_A_Name_And_Allow_A_Retest() {
        const QString done = u"SELECT Tolvens FROM Mevo_Pupils WHERE StudentCode = "_s;
        Tab_To(u"Combo1"_s);
        auto& pupils = Control<shell::Click_Combo>(Page(), u"Combo1"_s);
        const auto code = [&] { return u'\'' + Control<QLineEdit>(Page(), u"Text1"_s).text() + u'\''; };
        while (sample.Value(done + code()) != "1"_L1 && pupils.currentIndex() < pupils.count() - 1)
            Press(Qt::Key_Down);
        const QString chosen = code();
        ASSERT_EQ(sample.Value(done + chosen), u"1"_s);
        retested = chosen.sliced(1).chopped(1);
        Tab_And_Press(u"HotLabel5"_s);
        Tab_And_Press(u"Image1(0)"_s, Qt::Key_Space);
        Tab_And_Press(u"HotLabel7"_s);
        const QString row = u"Mevo_Pupils "_s + chosen.sliced(1).chopped(1);
        Expect_Changed(row + u" Tolvens: 1 -> 0"_s);
        Tab_And_Press(u"HotLabel4"_s);
        EXPECT_EQ(Focused(), u"Text3"_s);
        Press(Qt::Key_Tab);
        Type(u"Renamed"_s); // in place of what was selected
        Tab_And_Press(u"HotLabel2"_s);
        Expect_Changed(row + u" Forename: .* -> 'Renamed'"_s);
        Look_At_All_Data();
    }

    void Look_At_All_Data() {
        const QString shown = Control<QLineEdit>(Page(), u"Text1"_s).text();
        Tab_And_Press(u"AllData"_s);
        Follow_To(u"Whole_Data_Page"_s);
        EXPECT_TRUE(Saved_As_Csv(u"SaveData"_s).contains("Details;;User ID;" + shown.toUtf8()));
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.takeLast(), u"Mevo data of a pupil"_s);
        Go(u"HotLabel1"_s, u"Form15"_s);
        EXPECT_EQ(Control<QLineEdit>(Page(), u"Text1"_s).text(), shown);
    }

    void Arrange_A_Group() {
        Tab_To(u"Text4"_s);
        Type(u"Willow"_s);
        outside.boxes.Will_Answer(Answer::Ok);
        Tab_And_Press(u"HotLabel3"_s);
        Tab_To(u"Combo2"_s);
        Type(u"Willow"_s);
        auto& yes = Control<QRadioButton>(Page(), u"Option5"_s);
        auto& no = Control<QRadioButton>(Page(), u"Option6"_s);
        Press(Qt::Key_Tab);
        ASSERT_EQ(Focused(), u"Option5"_s);
        Press(Qt::Key_Space);
        EXPECT_TRUE(yes.isChecked());
        Press(Qt::Key_Right);
        EXPECT_TRUE(no.isChecked());
        Press(Qt::Key_Left);
        Save_As_Pdf();
        Tab_And_Press(u"HotLabel6"_s);
        Expect_Changed(u"Mevo_Groups \\d+: new, Dob_as_pw 1, Group_Name 'Willow',"_s);
        Print_Login_Cards();
    }

    void Print_Login_Cards() {
        Tab_To(u"Combo2"_s);
        Press(Qt::Key_Home);
        By_Letter(u"LoginCards"_s);
        Follow_To(u"Login_Cards"_s);
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.takeLast(), u"Mevo login cards"_s);
        Tab_To(u"Group"_s);
        Press(Qt::Key_Down);
        Tab_To(u"Cards"_s);
        Press(Qt::Key_Right);
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.takeLast(), u"Mevo logins"_s);
        Go(u"HotLabel1"_s, u"Form2"_s);
    }

    void Read_A_Profile() {
        Tab_To(u"Combo1"_s);
        Press(Qt::Key_Down);
        EXPECT_EQ(Control<shell::Click_Combo>(Page(), u"Combo1"_s).ListIndex(), 1);
        By_Letter(u"ShowZScores"_s);
        By_Letter(u"HotLabel2"_s);
        Tab_To(u"Row1"_s);
        QStringList heard;
        for (int t = 1; t <= 8; ++t) {
            heard.append(
                QAccessible::queryAccessibleInterface(QApplication::focusWidget())->text(QAccessible::Name));
            Press(Qt::Key_Right);
        }
        EXPECT_EQ(heard.removeDuplicates(), 0);
        const QRegularExpression form(
            u"^[A-Z][a-z ]+: (not taken|retest allowed|z-score -?[0-9.]+, age at test [0-9]+ y [0-9]+ m, time z-score -?[0-9.]+(, terminated)?)$"_s);
        for (const QString& row : heard)
            EXPECT_TRUE(form.match(row).hasMatch()) << row.toStdString();
        Ask_Why();
        Tab_And_Press(u"HotLabel7"_s);
        EXPECT_TRUE(Shown(Page(), u"fpSpread1"_s));
        Tab_And_Press(u"PrintIcon"_s);
        EXPECT_EQ(outside.printers.printed.size(), 1);
        Save_As_Pdf();
        Tab_And_Press(u"HotLabel5"_s, Qt::Key_Space);
        EXPECT_TRUE(Shown(Page(), u"Picture2"_s));
        EXPECT_TRUE(Saved_As_Csv(u"SaveScores"_s).contains(";Tolvens_raw_score;"));
        Type_Into_Dialog(u"not kept"_s, Qt::Key_Escape);
        Tab_And_Press(u"HotLabel3"_s);
        Look_At_The_Print_Preview();
        Look_At_Earlier_Results();
    }

    // The pupil whose retest was allowed this day.
    void Look_At_Earlier_Results() {
        Tab_To(u"Combo1"_s);
        Type(sample.Value(u"SELECT Surname FROM Mevo_Pupils WHERE StudentCode = '%1'"_s.arg(retested)));
        Tab_And_Press(u"EarlierResults"_s);
        Follow_To(u"Earlier_Page"_s);
        Tab_To(u"Spread1"_s);
        const auto& list = Control<grid::fpSpread>(Page(), u"Spread1"_s);
        EXPECT_EQ(list.Text(1, 1) + list.Text(2, 1), u"Tolvensearlier"_s);
        EXPECT_FALSE(list.Text(6, 1).isEmpty());
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.last(), u"Mevo earlier results"_s);
        Save_As_Pdf();
        Go(u"HotLabel1"_s, u"Form30"_s);
    }

    void Ask_Why() {
        Press(Qt::Key_Return);
        ASSERT_TRUE(Shown(Page(), u"Why"_s));
        EXPECT_EQ(Focused(), u"WhyText"_s);
        Tab_And_Press(u"WhyTest"_s, Qt::Key_Up);
        EXPECT_EQ(Caption(Page(), u"WhyTitle"_s), u"Why this score: Mirvel"_s);
        Tab_And_Press(u"WhyCopy"_s, Qt::Key_Space);
        EXPECT_TRUE(outside.clipboard.texts.value(0).startsWith(u"Why this score: Mirvel\n"_s));
        Tab_And_Press(u"WhyPrint"_s, Qt::Key_Space);
        Follow_To(u"Why_Report"_s);
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.takeLast(), u"Mevo explanation of a score"_s);
        Save_As_Pdf();
        Go(u"HotLabel1"_s, u"Form30"_s);
        Press(Qt::Key_Escape);
        EXPECT_FALSE(Shown(Page(), u"Why"_s));
        EXPECT_EQ(Focused(), u"Row8"_s);
        Tab_To(u"Notices"_s);
        Tab_And_Press(u"ShowValues"_s, Qt::Key_Space);
        EXPECT_FALSE(Shown(Page(), u"Values"_s));
    }

    void Look_At_The_Print_Preview() {
        Tab_And_Press(u"HotLabel4"_s);
        Follow_To(u"Form94"_s);
        Tab_And_Press(u"Check1"_s, Qt::Key_Space);
        EXPECT_FALSE(Control<QCheckBox>(Page(), u"Check1"_s).isChecked());
        Tab_And_Press(u"KeepToMargins"_s, Qt::Key_Space);
        EXPECT_TRUE(Control<QCheckBox>(Page(), u"KeepToMargins"_s).isChecked());
        Tab_To(u"ViewPro1"_s);
        Press(Qt::Key_Plus);
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.last(), u"Mevo individual report"_s);
        Save_As_Pdf();
        Go(u"HotLabel1"_s, u"Form30"_s);
        EXPECT_EQ(Focused(), u"HotLabel4"_s) << "the keys go on where they were";
        Press(Qt::Key_Tab);
        Press(Qt::Key_Space);
        Follow_To(u"Form92"_s);
        EXPECT_TRUE(Control<QCheckBox>(Page(), u"KeepToMargins"_s).isChecked()) << "chosen for both reports";
        Tab_To(u"lstPupils"_s);
        Press(Qt::Key_Space);
        Tab_And_Press(u"HotLabel9"_s);
        EXPECT_EQ(Caption(Page(), u"Label5"_s), u"There are 1 pupils on 1 pages."_s);
        Save_As_Pdf();
        Find_A_Name();
        Save_Full_Reports();
        EXPECT_EQ(Saved_As_Csv(u"SaveScores"_s).count('\n'), 2) << "in the form that was chosen before";
        Go(u"HotLabel1"_s, u"Form30"_s);
    }

    void Find_A_Name() {
        auto& preview = Control<preview::Preview_Window>(Page(), u"ViewPro1"_s);
        const auto& pages = Control<QListWidget>(Page(), u"List3"_s);
        Press(Qt::Key_F, 1, Qt::ControlModifier);
        EXPECT_EQ(Focused(), u"FindName"_s);
        Type(Control<QListWidget>(Page(), u"lstPupils"_s)
                 .selectedItems()
                 .value(0)
                 ->text()
                 .section(u',', 0, 0));
        EXPECT_TRUE(Caption(Page(), u"Found"_s).startsWith(u"1 of 1, page 1\n"_s));
        Press(Qt::Key_F3);
        Tab_To(u"ViewPro1"_s);
        Press(Qt::Key_PageDown);
        EXPECT_EQ(preview.ShownPage(), pages.currentRow() + 1);
        By_Letter(u"FitWidth"_s);
        EXPECT_TRUE(preview.Is_Width_Fitted());
        EXPECT_EQ(preview.ZoomPercent(), 40);
    }

    void Save_Full_Reports() {
        const QString folder = sample.Folder() + u"/chosen"_s;
        QDir().mkpath(folder);
        outside.file_dialogs.answers = {folder};
        outside.boxes.Will_Answer(Answer::Ok);
        outside.dialogs.Will_Do([this](QDialog& dialog) {
            dialog.show();
            dialog.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            EXPECT_EQ(Focused(), u"Option1"_s);
            Press(Qt::Key_Down);
            Tab_And_Press(u"HotLabel1"_s);
            EXPECT_FALSE(dialog.isVisible());
            program.Window().activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&program.Window()));
        });
        By_Letter(u"FullReports"_s);
        EXPECT_TRUE(outside.boxes.shown.last().text.startsWith(u"1 full report is in this folder:"_s));
        EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 1);
        QDir(folder).removeRecursively();
    }

    void Save_And_View_An_Archive() {
        const QString archive = sample.Folder() + u"/kept.mdb"_s;
        outside.file_dialogs.answers = {archive, archive};
        for (int box = 0; box < 3; ++box)
            outside.boxes.Will_Answer(Answer::Ok);
        Tab_And_Press(u"HotLabel2"_s);
        EXPECT_TRUE(QFile::exists(archive));
        Tab_And_Press(u"HotLabel3"_s);
        EXPECT_TRUE(program.Installed().Viewing_Mode);
        EXPECT_TRUE(outside.file_dialogs.told.last().endsWith(u"Version 5.1."_s));
        Tab_And_Press(u"HotLabel6"_s);
        EXPECT_FALSE(program.Installed().Viewing_Mode);
    }

    void Change_The_Password() {
        outside.boxes.Will_Answer(Answer::Yes);
        outside.boxes.Will_Answer(Answer::Ok);
        for (int entry = 0; entry < 2; ++entry)
            Type_Into_Dialog(u"by hand"_s, Qt::Key_Return);
        Tab_And_Press(u"HotLabel2"_s);
        Tab_And_Press(u"NormTables"_s);
        Follow_To(u"Norms_Page"_s);
        Tab_And_Press(u"NormTables"_s, Qt::Key_Down);
        Go(u"HotLabel1"_s, u"Form20"_s);
        Expect_Changed(u"Customer_Details \\d+ Admin_Password: .* -> 'by hand'"_s);
        Go(u"HotLabel1"_s, u"Form77"_s);
    }

    void Look_At_The_Changes() {
        Tab_And_Press(u"ChangesEntry"_s);
        Follow_To(u"Changes_Page"_s);
        const auto listed = [this] {
            const auto& list = Control<grid::fpSpread>(Page(), u"Spread1"_s);
            QStringList acts;
            for (int row = 1; row <= list.rowCount(); ++row)
                acts.append(list.Text(3, row));
            return acts.join(u", "_s);
        };
        EXPECT_EQ(
            listed(),
            u"Removed everywhere, Archived, Printed batch, Printed batch, Corrected, Corrected, Retest allowed, Imported, Imported"_s);
        Tab_To(u"Combo1"_s);
        Type(u"Ret"_s);
        EXPECT_EQ(listed(), u"Retest allowed"_s);
        Press(Qt::Key_Home);
        Tab_To(u"Text1"_s);
        Type(u"class.txt"_s);
        EXPECT_EQ(listed(), u"Imported"_s);
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.last(), u"Mevo changes and data protection"_s);
        Save_As_Pdf();
        const QString csv = sample.Folder() + u"/changes.csv"_s;
        const QString support = sample.Folder() + u"/support.mdb"_s;
        outside.file_dialogs.answers = {csv, support};
        By_Letter(u"HotLabel3"_s);
        EXPECT_EQ(Bytes_Of(csv).count('\n'), 2);
        outside.boxes.Will_Answer(Answer::Ok);
        By_Letter(u"HotLabel7"_s);
        EXPECT_TRUE(QFile::exists(support));
        outside.boxes.Will_Answer(Answer::Yes);
        outside.boxes.Will_Answer(Answer::Ok);
        By_Letter(u"HotLabel4"_s);
        EXPECT_EQ(outside.boxes.shown.last().text, u"Entries removed: 0"_s);
        Hand_Over_Who_Was_Not_Tested_For_Long();
    }

    void Hand_Over_Who_Was_Not_Tested_For_Long() {
        sample.Run(
            u"UPDATE Mevo_Pupils SET Karrel_date = '03/05/2016', Tolvens_date = NULL, BliksFriends_date = "
            "NULL, BliksLetters_date = NULL, BliksLetterNames_date = NULL, Drell_date = NULL, Mirvel_date = "
            "NULL, Yoon_date = NULL, Pindo_date = NULL WHERE StudentCode = '%1'"_s.arg(retested));
        By_Letter(u"HotLabel5"_s);
        EXPECT_EQ(Caption(Page(), u"Heading"_s), u"Pupils not tested for longer than 3 years: 1"_s);
        Go(u"HotLabel6"_s, u"Form9"_s);
        EXPECT_EQ(Caption(Page(), u"Label5"_s), u"1"_s) << "selected";
        Go(u"HotLabel1"_s, u"Form77"_s);
        EXPECT_EQ(program.Window().findChildren<shell::Page*>().size(), 1) << "pages left behind";
    }

    void Look_At_The_Progress() {
        Tab_To(u"Spread1"_s);
        Press(Qt::Key_Down, 3);
        outside.boxes.Will_Answer(Answer::Ok);
        By_Letter(u"HotLabel2"_s);
        Save_As_Pdf();
        Tab_To(u"GroupFilter"_s);
        Press(Qt::Key_Down);
        Tab_And_Press(u"UnfinishedOnly"_s, Qt::Key_Space);
        EXPECT_TRUE(Caption(Page(), u"Label5"_s).endsWith(u" shown"_s));
        By_Letter(u"TickList"_s);
        Follow_To(u"Tick_List"_s);
        By_Letter(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed.last(), u"Mevo tick list"_s);
        Go(u"HotLabel1"_s, u"Form14"_s);
    }

    void Delete_A_Pupil() {
        Tab_To(u"ListView1"_s);
        Type(u"Newton"_s); // leads to the line that begins so, and selects it
        EXPECT_EQ(Caption(Page(), u"Label5"_s), u"1"_s);
        outside.boxes.Will_Answer(Answer::Yes);
        Tab_And_Press(u"HotLabel2"_s);
        EXPECT_EQ(sample.Value(u"SELECT COUNT(*) FROM Mevo_Pupils WHERE Surname = 'Newton'"_s), u"0"_s);
        Expect_Changed(u"Mevo_\\w+ NEWISL\\w+: gone"_s);
    }

    // Whoever was deleted, out of the archive that was saved earlier as well.
    void Remove_A_Pupil_Everywhere() {
        Go(u"GoBack"_s, u"Form61"_s);
        Go(u"HotLabel5"_s, u"Form62"_s);
        outside.file_dialogs.answers = {sample.Folder() + u"/kept.mdb"_s};
        Tab_And_Press(u"HotLabel2"_s);
        Tab_To(u"Pupils"_s);
        Type(u"Newton"_s);
        outside.boxes.Will_Answer(Answer::Yes);
        outside.boxes.Will_Answer(Answer::Ok);
        outside.input_box.answers = {program.Installed().Admin_Password.Text_Or_Empty()};
        EXPECT_GE(Files_With("Newton").size(), 6) << "five copies of the database, at least, and the archive";
        By_Letter(u"HotLabel3"_s);
        EXPECT_EQ(Files_With("Newton"), QStringList());
        EXPECT_EQ(Files_With("NEWISL"), QStringList());
        EXPECT_EQ(Read_Tables(sample), seen);
        Go(u"HotLabel1"_s, u"Form61"_s);
        Remove_A_Copy();
        Go(u"HotLabel1"_s, u"Form60"_s);
    }

    void Remove_A_Copy() {
        auto& copies = Control<QTreeWidget>(Page(), u"Copies"_s);
        const int before = copies.topLevelItemCount();
        Tab_To(u"Copies"_s);
        Press(Qt::Key_Down);
        outside.boxes.Will_Answer(Answer::Yes);
        By_Letter(u"HotLabel4"_s);
        EXPECT_EQ(copies.topLevelItemCount(), before - 1);
    }

    QStringList Files_With(const QByteArray& text) const {
        QStringList found;
        for (QDirIterator files(sample.Folder(), QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
            if (Bytes_Of(files.next()).contains(text)) found.append(files.fileName());
        return found;
    }

    // The end of the process is thrown here, which mustn't pass through the toolkit's handling of keys: it
    // wouldn't tidy up.
    void Expect_Quit_At(Qt::Key key) {
        auto& quit = Control<QAbstractButton>(Page(), u"HotLabel13"_s);
        bool chosen = false;
        QObject::disconnect(&quit, &QAbstractButton::clicked, nullptr, nullptr);
        QObject::connect(&quit, &QAbstractButton::clicked, &quit, [&chosen] { chosen = true; });
        Press(key);
        EXPECT_TRUE(chosen);
        EXPECT_THROW(static_cast<shell::Form77&>(Page()).HotLabel13_Click(), Program_Ended);
    }

private:
    Table_Rows seen = Read_Tables(sample);
    QString retested; // a pupil's code
};

} // namespace

TEST_F(Without_A_Mouse, AllWorkCanBeDone) {
    Open_Program();
    const struct {
        QString entry, form;
        void (Without_A_Mouse::*work)();
    } works[] = {
        {u"HotLabel4"_s, u"Form10"_s, &Without_A_Mouse::Register_A_Pupil},
        {u"HotLabel2"_s, u"Form42"_s, &Without_A_Mouse::Import_A_Class},
        {u"HotLabel5"_s, u"Form15"_s, &Without_A_Mouse::Correct_A_Name_And_Allow_A_Retest},
        {u"HotLabel14"_s, u"Form2"_s, &Without_A_Mouse::Arrange_A_Group},
        {u"HotLabel1"_s, u"Form30"_s, &Without_A_Mouse::Read_A_Profile},
        {u"HotLabel8"_s, u"Form60"_s, &Without_A_Mouse::Save_And_View_An_Archive},
        {u"HotLabel7"_s, u"Form14"_s, &Without_A_Mouse::Look_At_The_Progress},
        {u"HotLabel3"_s, u"Form9"_s, &Without_A_Mouse::Delete_A_Pupil},
        {u"HotLabel8"_s, u"Form60"_s, &Without_A_Mouse::Remove_A_Pupil_Everywhere},
    };
    for (const auto& [entry, form, work] : works) {
        Go(entry, form);
        (this->*work)();
        Go(u"HotLabel1"_s, u"Form77"_s);
    }
    Tab_And_Press(u"HotLabel6"_s);
    Follow_To(u"Form20"_s);
    Change_The_Password();
    EXPECT_EQ(Focused(), u"HotLabel6"_s);
    EXPECT_EQ(program.Window().findChildren<shell::Page*>().size(), 1) << "pages left behind";
    Tab_And_Press(u"HotLabel6"_s);
    Follow_To(u"Form20"_s);
    Look_At_The_Changes();
    Tab_To(u"Foot"_s);
    EXPECT_TRUE(Caption(Page(), u"Label3"_s).endsWith(QDir::toNativeSeparators(sample.Folder())));
    Tab_To(u"HotLabel13"_s);
    Expect_Quit_At(Qt::Key_Return);
    ASSERT_EQ(outside.processes.started.size(), 1);
    EXPECT_TRUE(outside.processes.started.first().endsWith(u"\\MevoV51Shell.exe 417"_s));
}

// Three keys empty the school, as they always did; the copy from before them brings every row back.
TEST_F(Without_A_Mouse, AnEmptiedSchoolIsWonBack) {
    Open_Program();
    const Table_Rows before = Read_Tables(sample);
    Go(u"HotLabel3"_s, u"Form9"_s);
    outside.boxes.Will_Answer(Answer::Yes);
    Press(Qt::Key_S, 1, Qt::AltModifier);
    Press(Qt::Key_D, 1, Qt::AltModifier);
    EXPECT_TRUE(Wait_Until([&] { return sample.Value(u"SELECT count(*) FROM Mevo_Pupils"_s) == u"0"_s; }));
    Go(u"HotLabel1"_s, u"Form77"_s);
    Go(u"HotLabel8"_s, u"Form60"_s);
    Go(u"GoBack"_s, u"Form61"_s);
    outside.clock.now = outside.clock.now.addSecs(60);
    auto& copies = Control<QTreeWidget>(Page(), u"Copies"_s);
    ASSERT_EQ(copies.topLevelItemCount(), 1);
    EXPECT_EQ(copies.topLevelItem(0)->text(1), u"Before the Delete page"_s);
    EXPECT_EQ(copies.topLevelItem(0)->text(2), u"12"_s);
    outside.boxes.Will_Answer(Answer::Ok); // with nobody to lose there is neither caution nor password
    By_Letter(u"HotLabel3"_s);
    Follow_To(u"Form60"_s);
    EXPECT_EQ(Changes(before, Read_Tables(sample)), QStringList());
    EXPECT_EQ(Caption(Page(), u"Label13"_s), u"12"_s);
    Go(u"GoBack"_s, u"Form61"_s);
    EXPECT_EQ(Control<QTreeWidget>(Page(), u"Copies"_s).topLevelItem(0)->text(1),
              u"Before an archive was loaded"_s);
    outside.boxes.Will_Answer(Answer::Ok);
    By_Letter(u"HotLabel2"_s);
    Follow_To(u"Form60"_s);
    EXPECT_TRUE(program.Installed().Viewing_Mode);
}
