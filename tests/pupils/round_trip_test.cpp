// What a school does in a year, on the real pages one after another. After each step the file, read by plain
// SQLite, holds what it held before but for the cells that the step is there to change.

#include "pupils/delete_page.h"
#include "pupils/fine_tuning_page.h"
#include "pupils/import_page.h"
#include "pupils/record_page_fixture.h"
#include "pupils/security_page.h"
#include "pupils/stored_pupils.h"

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;

namespace pupils {
namespace {

constexpr int Newcomers = 200;
const QString Pupils_Table = u"Mevo_Pupils"_s;
const QString Groups_Table = u"Mevo_Groups"_s;

QString Quoted(QString text) {
    return u'\'' + text.replace(u"'"_s, u"''"_s) + u'\'';
}

struct Newcomer {
    QString surname, forename, sex, date_of_birth, group, password;
};

// Whole words for the gender and several forms of a date, as schools write them.
struct Spelling {
    QString line; // %1 to %4: surname, forename, group, password
    QString sex, date_of_birth;
};

class Round_Trip : public Record_Page {
protected:
    Round_Trip() {
        QRandomGenerator generator(1);
        outside.random.numbers.clear();
        while (outside.random.numbers.size() < 5000)
            outside.random.numbers.append(generator.generateDouble());
        Look();
    }

    // A class list, and what is to come of each line.
    QByteArray Write_Class_List() {
        const Spelling spellings[] = {{u"%1,%2,female,1/2/03,%3,%4\r\n"_s, u"F"_s, u"01/02/03"_s},
                                      {u"%1,%2,m,29 Feb 2004,%3,%4\n"_s, u"M"_s, u"29/02/04"_s},
                                      {u"%1,%2,F,2003-12-31,%3,%4,unused\r"_s, u"F"_s, u"31/12/03"_s}};
        const QString groups[] = {u"Owls"_s, u"Foxes"_s, u""_s, u"Class 1 Oak"_s};
        QString list;
        for (int i = 0; i < Newcomers; ++i) {
            const Spelling& spelling = spellings[i % std::size(spellings)];
            const QString number = QString::number(i);
            const QString group = groups[i % std::size(groups)];
            const QString password = i % 5 == 0 ? u"pass"_s + number : u""_s;
            newcomers.append({u"O'Sur"_s + number, u"Zoë"_s + number, spelling.sex, spelling.date_of_birth,
                              group.isEmpty() ? u"Universal"_s : group, password});
            list += spelling.line.arg(newcomers.last().surname, newcomers.last().forename, group, password);
        }
        return list.toUtf8();
    }

    // The steps, each on a page of its own.
    template<class Form, class... More>
    std::unique_ptr<Form> Open(More&&... more) {
        auto form = std::make_unique<Form>(outside.platform, navigator, std::forward<More>(more)...);
        Show(*form);
        form->Load();
        return form;
    }
    std::unique_ptr<Form2> Open_Security() {
        auto form = Open<Form2>(Data());
        form->Timer1_Timer();
        return form;
    }
    std::unique_ptr<Form15> Open_Fine_Tuning() {
        auto form = Open<Form15>(Data());
        form->Timer1_Timer();
        return form;
    }
    void Choose_Pupil(const QString& code) {
        Combo(u"Combo1"_s).Set_ListIndex(Combo(u"Combo1"_s).findText(u'(' + code + u')', Qt::MatchContains));
    }

    // What the file is to hold: `seen`, with these changes.
    QMap<QString, QString>& Row(const QString& table, const QString& key) { return seen[table + u' ' + key]; }
    void Expect_New_Row(const QString& table, const QString& key, const QMap<QString, QString>& cells) {
        QMap<QString, QString>& row = Row(table, key);
        EXPECT_TRUE(row.isEmpty()) << "there was such a row";
        for (const QString& column : sample.Column(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table)))
            row[column] = cells.value(column, u"NULL"_s);
    }
    void Expect_Newcomer(const Newcomer& newcomer) {
        const QString code = Code_Of(newcomer.surname);
        const QString letters = QStringLiteral("^OOSZOË[0-8]{3}[A-Z]{3}$");
        EXPECT_TRUE(QRegularExpression(letters).match(code).hasMatch()) << code.toStdString();
        QMap<QString, QString> cells{{u"StudentCode"_s, Quoted(code)},
                                     {u"Surname"_s, Quoted(newcomer.surname)},
                                     {u"Forename"_s, Quoted(newcomer.forename)},
                                     {u"Sex"_s, Quoted(newcomer.sex)},
                                     {u"DOB"_s, Quoted(newcomer.date_of_birth)},
                                     {u"Group_Class"_s, Quoted(newcomer.group)},
                                     {u"Password"_s, Quoted(newcomer.password)},
                                     {u"Show_Name"_s, u"1"_s},
                                     {u"Dob_as_pw"_s, newcomer.password.isEmpty() ? u"1"_s : u"0"_s}};
        for (int t = 1; t <= scoring::All_Tests; ++t) {
            cells[scoring::Test_At(t).Status_Column] = u"0"_s;
            cells[scoring::Test_At(t).Age_Column] = u"0"_s;
            Expect_New_Row(scoring::Test_At(t).Data_Table, code, {{u"StudentCode"_s, Quoted(code)}});
        }
        Expect_New_Row(Pupils_Table, code, cells);
    }
    QString Row_Of_Group(const QString& group) {
        return sample.Value(u"SELECT rowid FROM Mevo_Groups WHERE Group_Name = "_s + Quoted(group));
    }
    QStringList Members(const QString& group) {
        return sample.Column(u"SELECT StudentCode FROM Mevo_Pupils WHERE Group_Class = "_s + Quoted(group));
    }
    void Expect_The_File(const char* step) {
        const Table_Rows found = Read_Tables(sample);
        EXPECT_EQ(Changes(seen, found), QStringList{}) << "after " << step;
        Click(u"HotLabel1"_s);
        EXPECT_EQ(navigator.went_to.takeLast(), shell::Page_Id::Main_Menu);
    }

    void Import_The_Class_List();
    void Set_The_Groups_Login();
    void Rename_The_Group();
    void Correct_One_Pupil();
    void Allow_A_Retest();
    void Delete_The_Group();

    QList<Newcomer> newcomers;
    shell::Menu_Counts counts;
};

void Round_Trip::Import_The_Class_List() {
    QFile file(sample.Folder() + u"/class list.txt"_s);
    const QByteArray list = Write_Class_List();
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(list) == list.size());
    file.close();
    const auto form = Open<Form42>(installation);
    outside.file_dialogs.answers.append(file.fileName());
    Click(u"PreviewImport"_s);
    EXPECT_EQ(Changed(), QStringList{}) << "a preview writes nothing";
    outside.boxes.Will_Answer(Answer::Yes);
    Click(u"HotLabel3"_s);
    EXPECT_EQ(Caption(u"Label3"_s),
              u"200 pupils have now been imported. Please now check their settings on the Security page"_s);
    for (const Newcomer& newcomer : newcomers)
        Expect_Newcomer(newcomer);
    for (const QString& made : {u"Owls"_s, u"Foxes"_s})
        Expect_New_Row(Groups_Table, Row_Of_Group(made),
                       {{u"Group_Name"_s, Quoted(made)}, {u"Show_On_List"_s, u"1"_s}});
    Expect_The_File("the import");
}

void Round_Trip::Set_The_Groups_Login() {
    const auto form = Open_Security();
    Choose(u"Combo2"_s, u"Owls"_s);
    Click(u"Option5"_s); // the date of birth as password
    Click(u"Option4"_s); // not on the Login List
    Click(u"HotLabel6"_s);
    for (const QString& code : Members(u"Owls"_s)) {
        Row(Pupils_Table, code)[u"Show_Name"_s] = u"0"_s;
        Row(Pupils_Table, code)[u"Dob_as_pw"_s] = u"1"_s;
    }
    Row(Groups_Table, Row_Of_Group(u"Owls"_s))[u"Show_On_List"_s] = u"0"_s;
    Row(Groups_Table, Row_Of_Group(u"Owls"_s))[u"Dob_as_pw"_s] = u"1"_s;
    Expect_The_File("the group's update");
}

void Round_Trip::Rename_The_Group() {
    const auto form = Open_Security();
    const QString group = Row_Of_Group(u"Owls"_s);
    const QStringList members = Members(u"Owls"_s);
    Choose(u"Combo4"_s, u"Owls"_s);
    Type(u"Text3"_s, u"Barn Owl's"_s);
    outside.boxes.Will_Answer(Answer::Ok);
    Click(u"HotLabel4"_s);
    EXPECT_EQ(members.size(), Newcomers / 4);
    for (const QString& code : members)
        Row(Pupils_Table, code)[u"Group_Class"_s] = u"'Barn Owls'"_s;
    Row(Groups_Table, group)[u"Group_Name"_s] = u"'Barn Owls'"_s;
    Expect_The_File("the new name");
}

void Round_Trip::Correct_One_Pupil() {
    const auto form = Open_Fine_Tuning();
    const QString code = Code_Of(u"O'Sur7"_s);
    Choose_Pupil(code);
    Click(u"HotLabel4"_s);
    Type(u"Text3"_s, u"O'Sur - Hall"_s);
    Choose(u"Combo4"_s, u" 2002"_s);
    Choose(u"Combo3"_s, u"November"_s);
    Choose(u"Combo2"_s, u" 30"_s);
    Choose(u"Combo5"_s, u"Female"_s);
    Click(u"HotLabel2"_s);
    QMap<QString, QString>& row = Row(Pupils_Table, code);
    row[u"Surname"_s] = u"'O''Sur-Hall'"_s;
    row[u"DOB"_s] = u"'30/11/2002'"_s;
    row[u"Sex"_s] = u"'F'"_s;
    Expect_The_File("the correction");
}

void Round_Trip::Allow_A_Retest() {
    const auto form = Open_Fine_Tuning();
    const QString code = Code_Of(u"Smith-Jones"_s); // was here before, with all nine tests
    Choose_Pupil(code);
    Click(u"HotLabel5"_s);
    Click(u"Image1(2)"_s);
    Click(u"Image1(8)"_s);
    Click(u"HotLabel7"_s);
    EXPECT_EQ(Row(Pupils_Table, code)[u"Karrel"_s] + Row(Pupils_Table, code)[u"Pindo"_s], u"11"_s);
    Row(Pupils_Table, code)[u"Karrel"_s] = u"0"_s;
    Row(Pupils_Table, code)[u"Pindo"_s] = u"0"_s;
    Expect_The_File("the retest");
}

void Round_Trip::Delete_The_Group() {
    const auto form = Open<Form9>(Data(), counts);
    const QStringList members = Members(u"Barn Owls"_s);
    const QString group = Row_Of_Group(u"Barn Owls"_s);
    Choose(u"Combo1"_s, u"Barn Owls"_s);
    outside.boxes.Will_Answer(Answer::Yes);
    Click(u"HotLabel5"_s);
    for (const QString& code : members) {
        seen.remove(Pupils_Table + u' ' + code);
        for (int t = 1; t <= scoring::All_Tests; ++t)
            seen.remove(scoring::Test_At(t).Data_Table + u' ' + code);
    }
    EXPECT_EQ(Changes(seen, Read_Tables(sample)), QStringList{}) << "the group itself stays";

    Choose(u"Combo1"_s, u"Barn Owls"_s);
    outside.boxes.Will_Answer(Answer::Yes);
    Click(u"HotLabel5"_s);
    seen.remove(Groups_Table + u' ' + group);
    Expect_The_File("the group's end");
}

} // namespace

TEST_F(Round_Trip, EachStepChangesItsOwnCellsAndNoOther) {
    Import_The_Class_List();
    Set_The_Groups_Login();
    Rename_The_Group();
    Correct_One_Pupil();
    Allow_A_Retest();
    Delete_The_Group();
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Pupils"_s),
              QString::number(12 + Newcomers - Newcomers / 4));
    EXPECT_EQ(sample.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
}

} // namespace pupils
