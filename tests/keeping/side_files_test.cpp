#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/narrow_places.h"
#include "support/other_workstation.h"
#include "support/sample_file.h"

#include <QFile>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;
using namespace keeping;
using namespace test_support;

namespace {

const QDateTime Now(QDate(2026, 6, 15), QTime(10, 30));

class Side_Files : public testing::Test {
protected:
    void Keep(const QList<int>& tests) { Keep_Takings(sample.Path(), code, tests, Now); }
    QList<Taking> Kept() const { return Takings_Of(sample.Path(), code); }

    Sample_File sample;
    QString code = sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Karrel = 1 AND Drell = 1"_s);
    QString companion = Companion_Of(sample.Path());
};

TEST_F(Side_Files, KeepsARowAsItStandsAndOnlyOnce) {
    sample.Run(u"ALTER TABLE Mevo_Karrel_data ADD COLUMN [not read] TEXT"_s);
    sample.Run(u"UPDATE Mevo_Karrel_data SET [not read] = 7, Level_11_time = 12.5, Level_12_time = NULL"_s);
    const QString answers = u"SELECT quote([not read]) || quote(Level_11_time) || quote(Level_12_time) || "
                            "quote(Level_13_req) FROM Mevo_Karrel_data WHERE StudentCode = '%1'"_s.arg(code);
    Keep({3, 6});
    Keep({3});
    ASSERT_EQ(Kept().size(), 2);
    EXPECT_EQ(Database_Beside(companion).Value(answers), sample.Value(answers));
    EXPECT_EQ(QString::number(Kept()[0].age),
              sample.Value(u"SELECT Karrel_age FROM Mevo_Pupils WHERE StudentCode = '%1'"_s.arg(code)));
    sample.Run(u"UPDATE Mevo_Karrel_data SET Level_13_colourchosen = 'another'"_s);
    Keep({3});
    EXPECT_EQ(Kept().size(), 3);
}

TEST_F(Side_Files, ARemovedPupilLeavesNoByte) {
    const QString other = sample.Value(
        u"SELECT StudentCode FROM Mevo_Pupils WHERE Karrel = 1 AND StudentCode <> '%1'"_s.arg(code));
    Keep({3, 6});
    Keep_Takings(sample.Path(), other, {3}, Now);
    Add_Changes(sample.Path(), Act::Retest_Allowed, {code, other}, u"Karrel"_s, Now);
    ASSERT_TRUE(Bytes_Of(companion).contains(code.toUtf8()));
    EXPECT_EQ(Remove_Takings(companion, {code}), 2);
    EXPECT_EQ(Remove_Changes_About(sample.Path(), {code}), 1);
    for (const QString& file : {companion, Changes_Of(sample.Path())}) {
        EXPECT_FALSE(Bytes_Of(file).contains(code.toUtf8()));
        EXPECT_TRUE(Bytes_Of(file).contains(other.toUtf8()));
    }
}

TEST_F(Side_Files, SayWhatKeepsThemFromBeingUsed) {
    std::unique_ptr<Other_Workstation> other;
    struct Case {
        QString name;
        std::function<void()> spoil;
        Side_State state;
        bool may_add;
    };
    const Case cases[] = {
        {u"missing"_s, [&] { QFile::remove(companion); }, Side_State::Missing, true},
        {u"sound"_s, [] {}, Side_State::Ready, true},
        {u"empty"_s, [&] { Write_Bytes(companion, {}); }, Side_State::Ready, true},
        {u"no database"_s, [&] { Write_Bytes(companion, QByteArray(4096, 'x')); }, Side_State::Damaged,
         false},
        {u"torn"_s, [&] { Write_Bytes(companion, Bytes_Of(companion).left(3000)); }, Side_State::Damaged,
         false},
        {u"another's"_s, [&] { Database_Beside(companion).Run({u"PRAGMA application_id = 3"_s}); },
         Side_State::Damaged, false},
        {u"later"_s, [&] { Database_Beside(companion).Run({u"PRAGMA user_version = 2"_s}); },
         Side_State::Of_A_Later_Version, false},
        {u"locked"_s,
         [&] {
             other = std::make_unique<Other_Workstation>(companion);
             other->Run(u"BEGIN EXCLUSIVE"_s);
         },
         Side_State::In_Use, false},
    };
    for (const Case& spoilt : cases) {
        SCOPED_TRACE(spoilt.name.toStdString());
        Keep({3});
        spoilt.spoil();
        const Side_Look look = Look_At_Companion(sample.Path());
        EXPECT_EQ(look.state, spoilt.state) << look.words.toStdString();
        EXPECT_EQ(look.words.isEmpty(), spoilt.may_add);
        EXPECT_EQ(Quietly([&] { Keep({6}); }), spoilt.may_add);
        other.reset();
        QFile::remove(companion);
    }
}

TEST_F(Side_Files, AreReadButNotAddedToWhereTheyAreReadOnly) {
    Keep({3});
    QFile::setPermissions(companion, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    QFile::setPermissions(sample.Folder(), QFile::Permissions(0x7755));
    const Plain_Account plain;
    if (!plain.Is_There()) GTEST_SKIP() << "the account may write whatever it likes";
    EXPECT_EQ(Look_At_Companion(sample.Path()).state, Side_State::Read_Only);
    EXPECT_FALSE(Quietly([&] { Keep({6}); }));
    EXPECT_EQ(Kept().size(), 1);
}

} // namespace
