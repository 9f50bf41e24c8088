#include "pupils/register_page.h"

#include "pupils/stored_pupils.h"
#include "support/controls.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;
using desktop::Box_Style;

namespace pupils {
namespace {

// Keeps the widths that a control is given.
class Width_Log final : public QObject {
public:
    explicit Width_Log(QWidget& watched) { watched.installEventFilter(this); }
    QList<int> widths;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) widths.append(static_cast<QWidget*>(watched)->width());
        return false;
    }
};

class Register : public testing::Test {
protected:
    Register() {
        counts.Number_Of_Students = 12;
        page.resize(1366, 768);
        page.show();
        QApplication::setActiveWindow(&page);
        page.Load();
        EXPECT_TRUE(Wait_Until([this] { return List(u"Combo3"_s).count() > 0; }));
    }
    ~Register() override { outside.boxes.Expect_All_Asked(); }

    shell::Click_Combo& List(const QString& name) { return Control<shell::Click_Combo>(page, name); }
    QLineEdit& Entry(const QString& name) { return Control<QLineEdit>(page, name); }
    void Enter_Names(const QString& surname, const QString& forename) {
        Entry(u"Text3"_s).setText(surname);
        Entry(u"Text4"_s).setText(forename);
    }
    void Save(Answer answer = Answer::Yes) {
        outside.boxes.Will_Answer(answer);
        Click(page, u"HotLabel2"_s);
    }
    QString Code_Of(const QString& surname) {
        return sample.Value(u"SELECT studentcode FROM mevo_pupils WHERE surname = '%1'"_s.arg(surname));
    }

    Sample_File sample;
    Scripted_Platform outside;
    Recording_Navigator navigator;
    foundation::Installation installation = sample.Installed();
    shell::Menu_Counts counts;
    Form10 page{outside.platform, navigator, installation, counts};
};

} // namespace

TEST_F(Register, OpensReadyForTheFirstPupil) {
    EXPECT_EQ(Caption(page, u"Label10"_s), u"0"_s);
    EXPECT_EQ(Caption(page, u"Label11"_s), u""_s);
    EXPECT_EQ(Caption(page, u"Label13"_s), u"12"_s);
    EXPECT_EQ(Entry(u"Text2"_s).text(), u"01/01/2005"_s);
    EXPECT_EQ(Caption(page, u"txAgeY"_s) + u'/' + Caption(page, u"txAgeM"_s), u"21/5"_s);
    EXPECT_EQ(List(u"Combo5"_s).currentText(), u"Male"_s);
    EXPECT_EQ(Entry(u"Text5"_s).text(), u"M"_s);
    EXPECT_FALSE(Shown(page, u"Shape1"_s));
    EXPECT_FALSE(Shown(page, u"Shape2"_s));
    EXPECT_TRUE(Entry(u"Text3"_s).hasFocus());
    EXPECT_EQ(Control(page, u"Frame1"_s).pos(), QPoint((1366 - 1000) / 2, (768 - 576) / 2));
}

TEST_F(Register, SaveStoresThePupilInAllTables) {
    Enter_Names(u"O'Brien - Hall"_s, u"D'Arcy"_s);
    List(u"Combo4"_s).Set_ListIndex(2004 - 1980);
    List(u"Combo3"_s).Set_ListIndex(1);
    List(u"Combo2"_s).Set_ListIndex(28);
    List(u"Combo5"_s).Set_ListIndex(1);
    Save();

    const QString code = Code_Of(u"O''Brien-Hall"_s);
    EXPECT_EQ(Stored_Pupil(sample, code),
              u"O'Brien-Hall|D'Arcy|F|29/02/2004|Universal|''|1|1|0,0,0,0,0,0,0,0,0|0,0,0,0,0,0,0,0,0"_s);
    for (const QString& table : Data_Tables())
        EXPECT_EQ(Filled_Columns(sample, table, code), QStringList{u"StudentCode"_s}) << table.toStdString();
    EXPECT_EQ(page.Current_StudentCode, code);
    EXPECT_EQ(page.Current_Forename + u' ' + page.Current_Surname, u"D'Arcy O'Brien - Hall"_s);
}

TEST_F(Register, TheSecondOfTwoCodesIsTheOneStored) {
    // A code of three-letter names draws six numbers: three digits, three letters.
    outside.random.numbers = {0, 0, 0, 0, 0, 0, 0.99, 0.99, 0.99, 0.99, 0.99, 0.99};
    Enter_Names(u"Grey"_s, u"Anna"_s);
    Save();
    EXPECT_EQ(Code_Of(u"Grey"_s), u"GREANN888ZZZ"_s);
}

TEST_F(Register, AsksBeforeItSavesAndAnythingButYesLeavesTheBoxesFilled) {
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        Enter_Names(u"Grey"_s, u"Anna"_s);
        Save(answer);
        EXPECT_EQ(outside.boxes.shown.last().style, Box_Style::Yes_No_Question);
        EXPECT_EQ(outside.boxes.shown.last().title, u"Saving"_s);
        EXPECT_EQ(outside.boxes.shown.last().text, u"Do you wish to save these details ?"_s);
        EXPECT_EQ(Entry(u"Text3"_s).text() + Entry(u"Text4"_s).text(), u"GreyAnna"_s);
    }
    EXPECT_EQ(outside.random.seeds.size(), 2) << "a code is made before the question";
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM mevo_pupils"_s), u"12"_s);
    EXPECT_EQ(Caption(page, u"Label10"_s), u"0"_s);
}

TEST_F(Register, AnIncompleteEntryIsRefused) {
    struct Case {
        QString surname, forename, sex;
        QString focus; // after the box
    };
    const Case cases[] = {{u""_s, u"Anna"_s, u"F"_s, u"Text3"_s},
                          {u"Grey"_s, u""_s, u"F"_s, u"Text3"_s},
                          {u""_s, u"Anna"_s, u""_s, u"Text3"_s},
                          {u"Grey"_s, u"Anna"_s, u""_s, u"Combo5"_s}}; // the list that fills Text5
    for (const Case& tried : cases) {
        Enter_Names(tried.surname, tried.forename);
        Entry(u"Text5"_s).setText(tried.sex);
        Entry(u"Text3"_s).setFocus();
        outside.boxes.Will_Answer(Answer::Ok);
        page.HotLabel2_Click();
        EXPECT_EQ(outside.boxes.shown.last().style, Box_Style::Critical);
        EXPECT_EQ(outside.boxes.shown.last().title, u"Personal details incomplete"_s);
        EXPECT_EQ(outside.boxes.shown.last().text, u"All fields should be completed."_s);
        EXPECT_EQ(page.focusWidget()->objectName(), tried.focus);
    }
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM mevo_pupils"_s), u"12"_s);
    EXPECT_TRUE(outside.random.seeds.isEmpty()) << "no code is made";
}

TEST_F(Register, ABlankIsAName) {
    Enter_Names(u" "_s, u" "_s);
    Save();
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM mevo_pupils WHERE surname = ' ' AND forename = ' '"_s),
              u"1"_s);
}

TEST_F(Register, CountsTheSessionAndClearsForTheNext) {
    Enter_Names(u"Grey"_s, u"Anna"_s);
    List(u"Combo4"_s).Set_ListIndex(40);
    List(u"Combo5"_s).Set_ListIndex(1);
    Save();
    Enter_Names(u"Green"_s, u"Bo"_s);
    Save();
    EXPECT_EQ(Caption(page, u"Label10"_s), u"2"_s);
    EXPECT_EQ(Caption(page, u"Label11"_s), u"Bo Green"_s);
    EXPECT_EQ(Caption(page, u"Label13"_s), u"14"_s);
    EXPECT_EQ(counts.Number_Of_Students.As_Long(), 14);
    EXPECT_EQ(Entry(u"Text3"_s).text() + Entry(u"Text4"_s).text(), u""_s);
    EXPECT_EQ(Entry(u"Text2"_s).text(), u"01/01/2005"_s);
    EXPECT_EQ(Entry(u"Text5"_s).text(), u"M"_s);
    EXPECT_TRUE(Entry(u"Text3"_s).hasFocus());
}

TEST_F(Register, AFailureToStoreIsSilentAndCountsAllTheSame) {
    sample.Move_Away();
    Enter_Names(u"Grey"_s, u"Anna"_s);
    Save();
    sample.Put_Back();
    EXPECT_EQ(Caption(page, u"Label10"_s), u"1"_s);
    EXPECT_EQ(Caption(page, u"Label11"_s), u"Anna Grey"_s);
    EXPECT_EQ(Entry(u"Text3"_s).text(), u""_s);
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM mevo_pupils"_s), u"12"_s);
}

TEST_F(Register, TheProgressBarGoesToHalfAndFullAndIsHidden) {
    auto& fill = Control(page, u"Shape2"_s);
    EXPECT_EQ(Control(page, u"Shape1"_s).width(), 288);
    EXPECT_EQ(fill.width(), 1);
    Width_Log log(fill);
    Enter_Names(u"Grey"_s, u"Anna"_s);
    Save();
    EXPECT_EQ(log.widths, (QList{1, 144, 288}));
    EXPECT_EQ(fill.width(), 0);
    EXPECT_FALSE(Shown(page, u"Shape1"_s));
    EXPECT_FALSE(Shown(page, u"Shape2"_s));
}

TEST_F(Register, EnterLeadsFromBoxToBoxAndTabGoesOn) {
    const auto focus = [this] { return page.focusWidget()->objectName(); };
    QTest::keyClick(page.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(focus(), u"Text4"_s);
    QTest::keyClick(page.focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(focus(), u"Combo2"_s);
    for (const QString& next :
         {u"Combo3"_s, u"Combo4"_s, u"Combo5"_s, u"HotLabel2"_s, u"HotLabel1"_s, u"Text3"_s}) {
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(focus(), next);
    }
}

TEST_F(Register, FocusSelectsANameUpToItsNumberOfCharacters) {
    Enter_Names(QString(100, u's'), QString(100, u'f'));
    Entry(u"Text4"_s).setFocus();
    EXPECT_EQ(Entry(u"Text4"_s).selectedText().size(), 64);
    Entry(u"Text3"_s).setFocus();
    EXPECT_EQ(Entry(u"Text3"_s).selectedText().size(), 100);
}

TEST_F(Register, TellsItsHelpUnderThePointer) {
    const std::pair<QString, QString> helps[] = {
        {u"HotLabel1"_s,
         u"Go back to the Main Menu. If you have registered a new pupil you should click on 'Save' first."_s},
        {u"HotLabel2"_s,
         u"Save the information you have entered. After saving the entry boxes will be cleared and you may either add another individual or exit."_s},
        {u"Label2"_s, u"Enter the pupil's last name(s) in the first box."_s},
        {u"Label3"_s, u"Enter the pupil's first name(s) in the second box."_s},
        {u"Label8"_s, u"Create the pupil's date of birth using the three drop down lists"_s},
        {u"Text3"_s, u"Enter your last name(s) in the upper box"_s},
        {u"Text4"_s, u"Enter your first name(s) in the second box down"_s},
        {u"Combo2"_s,
         u"Enter your first name(s) in the second box down"_s}, // none of its own: the last one stays
    };
    for (const auto& [control, text] : helps) {
        Point_At(page, control);
        EXPECT_EQ(Caption(page, u"Label5"_s), text);
    }
}

TEST_F(Register, MenuDropsWhatWasTypedWithoutAQuestion) {
    Enter_Names(u"Grey"_s, u"Anna"_s);
    Click(page, u"HotLabel1"_s);
    EXPECT_EQ(navigator.went_to, QList{shell::Page_Id::Main_Menu});
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM mevo_pupils"_s), u"12"_s);
}

} // namespace pupils
