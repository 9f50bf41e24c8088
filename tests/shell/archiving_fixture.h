#pragma once

#include "conversion/older_files.h"
#include "platform/basics/run_time_error.h"
#include "sampledb/sample_data.h"
#include "shell/archiving.h"
#include "support/database_beside.h"
#include "support/error_number.h"
#include "support/files.h"
#include "support/page_fixture.h"

#include <QDir>
#include <QFile>

namespace test_support {

using namespace Qt::StringLiterals;
using namespace shell;
using desktop::Answer;
using desktop::Box_Style;

// Copies as the program does, until it is told to fail.
class Copies_That_May_Fail final : public database::File_Copies {
public:
    void Copy(const QString& source, const QString& target) override {
        Fail_If_Told();
        real.Copy(source, target);
    }
    void Replace(const database::Replacement& order) override {
        Fail_If_Told();
        spared = order.spared;
        if (meanwhile) meanwhile();
        real.Replace(order);
    }
    int fails_with = 0;
    QStringList spared;
    std::function<void()> meanwhile;

private:
    void Fail_If_Told() const {
        if (fails_with != 0) basics::Raise(fails_with);
    }
    database::Safe_Copies real;
};

// The sample is the working database.
class Archiving : public Page_Fixture {
protected:
    Archiving() {
        sample_data::Write_Template(installation.Empty_Database_Path, 1);
        installation.Archive_Folder = sample.Folder() + u"/archives"_s;
        installation.Admin_Password = u"secret"_s;
        QDir().mkpath(installation.Archive_Folder);
    }
    ~Archiving() override {
        EXPECT_TRUE(outside.file_dialogs.answers.isEmpty());
        EXPECT_TRUE(outside.input_box.answers.isEmpty());
    }

    void Open() {
        page =
            std::make_unique<Form60>(outside.platform, navigator, installation, counts, copies, older_files);
        page->Load();
        Show_On_Screen(*page);
    }
    // What a click on a button meets: the boxes' answers, the password typed, the file chosen.
    void Press(const QString& button, const QList<Answer>& answers, const QStringList& typed = {},
               const QStringList& chosen = {}) {
        for (const Answer answer : answers)
            outside.boxes.Will_Answer(answer);
        outside.input_box.answers = typed;
        outside.file_dialogs.answers = chosen;
        outside.boxes.shown.clear();
        Click(*page, button);
    }
    void Save(const QString& file, const QList<Answer>& answers = {Answer::Ok}) {
        Press(u"HotLabel2"_s, answers, {}, {file});
    }
    void Load(const QString& file, const QList<Answer>& answers = {Answer::Yes, Answer::Ok}) {
        Press(u"HotLabel4"_s, answers, {u"secret"_s}, {file});
    }
    void View(const QString& file, const QList<Answer>& answers = {Answer::Ok}) {
        Press(u"HotLabel3"_s, answers, {}, {file});
    }
    void Start_Afresh(const QList<Answer>& answers = {Answer::Yes, Answer::Ok}) {
        Press(u"HotLabel5"_s, answers, {u"secret"_s});
    }
    // The run-time error that a load ends in; 0 if it succeeds.
    int Error_Of_Loading(const QString& file) {
        outside.boxes = {};
        outside.boxes.Will_Answer(Answer::Yes);
        outside.boxes.Will_Answer(Answer::Ok);
        outside.input_box.answers = {u"secret"_s};
        outside.file_dialogs.answers = {file};
        try {
            page->HotLabel4_Click();
            return 0;
        } catch (const basics::Run_Time_Error& error) {
            EXPECT_GT(error.Description.size(), 8);
            EXPECT_FALSE(error.Description.contains(u"not an error"_s));
            outside.boxes = {};
            return error.Number;
        }
    }
    void Expect_Told(const QString& text) const {
        outside.boxes.Expect_Last(Box_Style::Plain, desktop::Default_Box_Title(), text);
    }
    const Box_Shown& Last_Box() const { return outside.boxes.shown.last(); }
    static void Expect_Whole(const QString& file, const QString& pupils) {
        const Database_Beside database(file);
        EXPECT_EQ(database.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
        EXPECT_EQ(database.Value(Count), pupils);
    }
    QStringList Archives() const { return QDir(installation.Archive_Folder).entryList(QDir::Files); }
    QString In_Archives(const QString& name) const { return installation.Archive_Folder + u'/' + name; }
    QString Working(const QString& sql) const { return sample.Value(sql); }
    QString Working_Password() const { return Password_In(sample.Path()); }
    static QString Password_In(const QString& file) {
        return Database_Beside(file).Value(
            u"SELECT Admin_Password FROM Customer_Details WHERE Product_Name = 'MEVO'"_s);
    }
    static QString Names_File(const QString& file) { return foundation::Connection_String_For(file); }
    static inline const QString Count = u"SELECT count(*) FROM Mevo_Pupils"_s;

    Sample_File archive{30};
    Menu_Counts counts;
    Copies_That_May_Fail copies;
    conversion::Jet_Files older_files;
    std::unique_ptr<Form60> page;
};

} // namespace test_support
