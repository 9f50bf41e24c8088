#include "sampledb/sample_data.h"
#include "setup/command_line.h"
#include "setup/folders.h"
#include "setup/wizard.h"
#include "support/command_line.h"
#include "support/controls.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/narrow_places.h"
#include "support/on_windows.h"

#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

// A computer with a program's folder, a template and a school of its own.
class Set_Up : public testing::Test {
protected:
    Set_Up() {
        QFile::setPermissions(computer.path(),
                              QFile::Permissions(0x7755)); // an account without rights sees it
        for (const QString& made : {u"program"_s, u"suite"_s, u"old"_s, u"full"_s, u"damaged"_s})
            QDir(computer.path()).mkdir(made);
        sample_data::Write_Template(At(u"suite/Mevo05EmptyDatabase.mdb"_s), 1);
        sample_data::Write_Template(At(u"full/mevo05emptydatabase.mdb"_s), 1);
        sample_data::Write_Database(At(u"full/Mevo05Data.mdb"_s), {.pupils = 12});
        for (const auto& [from, to] :
             {std::pair{u"data"_s, u"Mevo05Data.mdb"_s}, {u"template"_s, u"Mevo05EmptyDatabase.mdb"_s}})
            QFile::copy(u"%1/jet4-%2.mdb"_s.arg(QStringLiteral(MEVO_TEST_DATA), from), At(u"old/"_s + to));
        for (const QString& name : {u"Mevo05Data.mdb"_s, u"Mevo05EmptyDatabase.mdb"_s})
            Write_Bytes(At(u"damaged/"_s + name), "neither");
        Write_Bytes(At(u"password"_s), "sesame\r\nignored");
    }

    QString At(const QString& name) const { return computer.filePath(name); }
    set_up::Around Around() const {
        const QString programs = QCoreApplication::applicationDirPath();
        return {At(u"program"_s), At(u"data/all/users"_s), programs + u"/mevo-setup"_s,
                conversion::Reader_Beside_This_Program()};
    }
    // "@" in an argument stands for the computer's folder.
    Outcome Run(const QString& arguments, const QByteArray& typed = {}) const {
        QStringList words{u"mevo-setup"_s};
        for (QString word : QProcess::splitCommand(arguments))
            words.append(word.replace(u'@', computer.path()));
        QBuffer input;
        input.setData(typed);
        input.open(QIODevice::ReadOnly);
        return Outcome_Of([&](QIODevice& output, QTextStream& errors) {
            return set_up::Run_Command(words, Around(), {input, output, errors});
        });
    }
    QStringList In(const QString& file, const QString& sql) const {
        return Database_Beside(At(file)).Column(sql);
    }

    QTemporaryDir computer;
};

constexpr QFile::Permissions Nobody_Writes(0x5555);
const QString Own_Row =
    u"SELECT Institution || '/' || Admin_Password FROM Customer_Details WHERE Product_Name = 'MEVO'"_s;
const QString Groups = u"SELECT Group_Name FROM Mevo_Groups ORDER BY ID"_s;

} // namespace

TEST_F(Set_Up, ANewSchoolHasItsNameInBothFilesAndItsClassesAndPassword) {
    const struct {
        QString from;
        QString password;
        QByteArray typed;
    } cases[] = {{u"@/suite/Mevo05EmptyDatabase.mdb"_s, u"@/password"_s, {}},
                 {u"@/old/Mevo05EmptyDatabase.mdb"_s, u"-"_s, "sesame\n"}};
    for (const auto& [from, password, typed] : cases) {
        SCOPED_TRACE(from.toStdString());
        QDir(At(u"new"_s)).removeRecursively();
        const Outcome outcome = Run(
            u"--folder @/new/ --school \"Oak's Hill\" --classes \"1 Oak, 1 Ash,Universal\" --from %1 --password-from %2 --sheets margins"_s
                .arg(from, password),
            typed);
        EXPECT_EQ(outcome.status, 0) << outcome.errors.join(u'\n').toStdString();
        EXPECT_TRUE(outcome.output.contains(u"Mevo05Data.mdb: Oak's Hill, no pupils, version 5.1"_s));
        for (const QString& file : {u"new/Mevo05Data.mdb"_s, u"new/Mevo05EmptyDatabase.mdb"_s})
            EXPECT_EQ(In(file, Own_Row), QStringList{u"Oak's Hill/sesame"_s});
        EXPECT_EQ(In(u"new/Mevo05Data.mdb"_s, Groups), (QStringList{u"Universal"_s, u"1 Oak"_s, u"1 Ash"_s}));
        EXPECT_EQ(In(u"new/Mevo05EmptyDatabase.mdb"_s, Groups), QStringList{u"Universal"_s});
        EXPECT_EQ(Bytes_Of(At(u"program/product.ini"_s)),
                  u"[SETTINGS]\r\ndatabase_sharepath=%1\r\n"_s.arg(QDir::toNativeSeparators(At(u"new"_s)))
                      .toUtf8());
        EXPECT_EQ(Bytes_Of(At(u"new/Mevo05School.ini"_s)), "[Reports]\r\nKeep_To_Margins=1\r\n");
    }
}

TEST_F(Set_Up, ThisComputersOwnFolderIsMadeAndNeedsNoName) {
    EXPECT_EQ(Run(u"--from @/old"_s).status, 0);
    EXPECT_EQ(Bytes_Of(At(u"program/product.ini"_s)), "[SETTINGS]\r\ndatabase_sharepath=\r\n");
    EXPECT_TRUE(QFileInfo(At(u"data/all/users/archives"_s)).isDir());
    EXPECT_GT(In(u"data/all/users/Mevo05Data.mdb"_s, u"SELECT count(*) FROM Mevo_Pupils"_s)[0].toInt(), 0);
    const Outcome told = Run({});
    EXPECT_TRUE(told.output.contains(u"with results, version 5.1"_s)) << told.output.toStdString();
}

TEST_F(Set_Up, RefusesInOneLineAndLeavesEverythingAsItWas) {
    const std::pair<QString, QString> cases[] = {
        {u"--folder @/none"_s, u"There is no folder"_s},
        {u"--folder @/none --from @/suite/nothing.mdb"_s, u"nothing.mdb"_s},
        {u"--folder @/none/below --school A --from @/suite/Mevo05EmptyDatabase.mdb"_s,
         u"There is no folder"_s},
        {u"--folder @/none --school A"_s, u"The school's own template is needed"_s},
        {u"--folder @/none --from @/suite/Mevo05EmptyDatabase.mdb --school A --group nobody's"_s,
         On_Windows ? u"the installer"_s : u"nobody's"_s},
        {u"--folder @/none --school A --from @/full/Mevo05Data.mdb"_s, u"12 pupils"_s},
        {u"--folder @/none --school A --classes \"1 Oak,1 oak\""_s, u"named twice"_s},
        {u"--folder @/none --school A --password-from @/nothing"_s, u"can't be read"_s},
        {u"--folder @/none --school A --password-from -"_s, u"password is empty"_s},
        {u"--folder @/none --classes A"_s, u"go with --school"_s},
        {u"--folder @/full --school A"_s, u"lies there already"_s},
        {u"--folder @/full --from @/old"_s, u"lies there already"_s},
        {u"--folder @/suite"_s, u"no school's database"_s},
        {u"--folder @/old"_s, u"older Access format"_s},
        {u"--folder @/damaged"_s, u"Unrecognized database format"_s},
        {u"--folder @/full --sheets middle"_s, u"margins or corner"_s},
        {u"--folder @/full more"_s, u"Usage"_s},
    };
    const QByteArray before = Bytes_Of(At(u"full/Mevo05Data.mdb"_s));
    for (const auto& [arguments, told] : cases) {
        SCOPED_TRACE(arguments.toStdString());
        Run(arguments).Expect_Refusal(u"mevo-setup"_s, told);
    }
    EXPECT_EQ(Bytes_Of(At(u"full/Mevo05Data.mdb"_s)), before);
    EXPECT_FALSE(QFileInfo::exists(At(u"none"_s)));
    EXPECT_FALSE(QFileInfo::exists(At(u"program/product.ini"_s)));
}

TEST_F(Set_Up, AnAdministratorIsToldTheLineAndTheCommandWhereProductIniCantBeWritten) {
    QFile::setPermissions(At(u"program"_s), Nobody_Writes);
    const Plain_Account plain;
    if (!plain.Is_There()) GTEST_SKIP() << "no account without rights here";
    const Outcome outcome = Run(u"--folder @/full"_s);
    EXPECT_EQ(outcome.status, 1);
    ASSERT_EQ(outcome.errors.size(), 1);
    EXPECT_TRUE(outcome.errors[0].contains(u"database_sharepath="_s + At(u"full"_s)));
    EXPECT_TRUE(outcome.errors[0].contains(u"| sudo tee"_s));
}

TEST_F(Set_Up, TheCheckTellsWhatAFolderLacksAndLeavesNothingInIt) {
    const QStringList before = QDir(At(u"full"_s)).entryList();
    const Outcome good = Run(u"--folder @/full --check"_s);
    EXPECT_TRUE(good.output.contains(u"good: A lock of one process is seen by another."_s))
        << good.output.toStdString();
    EXPECT_FALSE(good.output.contains(u"bad:"_s)) << good.output.toStdString();
    EXPECT_EQ(QDir(At(u"full"_s)).entryList(), before);
    EXPECT_TRUE(Run(u"--folder @/none --check"_s).output.contains(u"bad: There is no folder"_s));
    const QFile::Permissions usual = QFile::permissions(At(u"full"_s));
    QFile::setPermissions(At(u"full"_s), Nobody_Writes);
    {
        const Plain_Account plain;
        if (!plain.Is_There()) GTEST_SKIP() << "no account without rights here";
        const Outcome read_only = Run(u"--folder @/full --check"_s);
        EXPECT_EQ(read_only.status, 1);
        EXPECT_TRUE(read_only.output.startsWith(
            u"bad: This account can't make or change files in the folder.\n    Give"_s));
    }
    QFile::setPermissions(At(u"full"_s), usual);
}

TEST_F(Set_Up, MevoIsStartedWhereWhatItWouldOpenCanBeOpened) {
    const std::pair<QByteArray, bool> cases[] = {
        {"full", true}, {"full/", true}, {"suite", false}, {"damaged", false}, {"none", false}};
    for (const auto& [folder, is_found] : cases) {
        SCOPED_TRACE(folder.toStdString());
        Write_Bytes(At(u"program/product.ini"_s),
                    "[SETTINGS]\r\ndatabase_sharepath=" + At(QString::fromUtf8(folder)).toUtf8() + "\r\n");
        EXPECT_EQ(set_up::Mevo_Finds_Its_Database(At(u"program"_s)), is_found);
    }
}

TEST_F(Set_Up, TheWizardIsWalkedThroughByKeysAlone) {
    QStringList started;
    set_up::Wizard_State state{Around(), {}, {}, [&](const QString& program) {
                                   started.append(program);
                                   return true;
                               }};
    set_up::Wizard wizard(state);
    wizard.show();
    wizard.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&wizard));
    // A button that is clicked by its letter goes down, and acts as it comes up.
    const auto alt = [&](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
        const QList<QAbstractButton*> buttons = wizard.findChildren<QAbstractButton*>();
        EXPECT_TRUE(Wait_Until([&] {
            return std::none_of(buttons.begin(), buttons.end(),
                                [](const auto* button) { return button->isDown(); });
        }));
    };
    const auto type = [](const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); };
    const auto page = [&] { return wizard.currentPage()->objectName(); };
    const auto on_by = [&](Qt::Key key, const QString& name) {
        alt(key);
        EXPECT_TRUE(Wait_Until([&] { return page() == name; })) << page().toStdString();
    };
    alt(Qt::Key_F);
    EXPECT_TRUE(Caption(*wizard.currentPage(), u"Help"_s).contains(u"several computers"_s));
    alt(Qt::Key_O);
    type(At(u"new"_s));
    EXPECT_FALSE(Caption(*wizard.currentPage(), u"Help"_s).isEmpty());
    on_by(Qt::Key_N, u"What_Page"_s);
    alt(Qt::Key_E);
    for (const auto& [key, text] : {std::pair{Qt::Key_M, u"Hill School"_s},
                                    {Qt::Key_C, u"1 Oak, 1 Ash, 1 Elm"_s},
                                    {Qt::Key_P, u"key"_s},
                                    {Qt::Key_G, u"another"_s},
                                    {Qt::Key_L, At(u"suite/Mevo05EmptyDatabase.mdb"_s)}}) {
        alt(key);
        type(text);
    }
    on_by(Qt::Key_N, u"What_Page"_s);
    EXPECT_EQ(Caption(*wizard.currentPage(), u"Notice"_s), u"The two passwords differ."_s);
    alt(Qt::Key_G);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    type(u"key"_s);
    on_by(Qt::Key_N, u"Sheets_Page"_s);
    on_by(Qt::Key_N, u"Check_Page"_s);
    EXPECT_FALSE(Control<QPlainTextEdit>(wizard, u"Findings"_s).toPlainText().contains(u"Bad:"_s));
    on_by(Qt::Key_S, u"Done_Page"_s);
    EXPECT_TRUE(
        Control<QPlainTextEdit>(wizard, u"Result"_s).toPlainText().contains(u"Hill School, no pupils"_s));
    alt(Qt::Key_F);
    EXPECT_TRUE(Wait_Until([&] { return !wizard.isVisible(); }));
    EXPECT_EQ(started, QStringList{u"mevo"_s});
    EXPECT_EQ(In(u"new/Mevo05Data.mdb"_s, Own_Row), QStringList{u"Hill School/key"_s});
    EXPECT_EQ(In(u"new/Mevo05Data.mdb"_s, Groups).size(), 4);
}
