#include "pupils/new_pupil.h"

#include "pupils/stored_pupils.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"
#include "support/table_changes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace pupils {
namespace {

class New_Pupil : public testing::Test {
protected:
    ~New_Pupil() override { EXPECT_TRUE(outside.boxes.shown.isEmpty()) << "making a pupil is silent"; }

    bool Insert(QStringList fields) { return maker.Insert_New_Pupil(fields); }

    Sample_File sample;
    Scripted_Platform outside;
    foundation::Installation installation = sample.Installed();
    Pupil_Maker maker{outside.platform, installation};
};

} // namespace

// ---- the code

TEST_F(New_Pupil, TheCodeFollowsTheLengthOfEachName) {
    // Drawn in turn: K, 4, 1, 7, Q, X, Z, and round again.
    const QList<double> numbers{0.39, 0.5, 0.12, 0.8, 0.62, 0.89, 0.97};
    struct Case {
        QString surname, forename, code;
    };
    const Case cases[] = {
        {u"Smith"_s, u"Jo"_s, u"SMIJOK417QXZ"_s},    {u"O"_s, u"Al"_s, u"OKNALD758ZKN"_s},
        {u"O'Brien"_s, u"Ann"_s, u"OOBANN341UQX"_s}, {u"Le Fay"_s, u"'"_s, u"LE OKN175XZK"_s},
        {u""_s, u"Ann"_s, u"ANN341UQX"_s},           {u"straße"_s, u"ßen"_s, u"STRßEN341UQX"_s},
        {u"ßa"_s, u"éa"_s, u"ßAKÉAN175XZK"_s},       {u"𠮷田太郎"_s, u"😀"_s, u"𠮷田太😀KN175XZK"_s},
    };
    for (const Case& tried : cases) {
        SCOPED_TRACE(tried.surname.toStdString());
        Listed_Random fresh;
        fresh.numbers = numbers;
        outside.random = fresh;
        maker.Generate_StudentCode(tried.surname, tried.forename);
        EXPECT_EQ(maker.New_StudentCode, tried.code);
    }
}

TEST_F(New_Pupil, ADigitIsNeverNineAndALetterNeverBeyondZ) {
    outside.random.numbers = {0.9999999999999999};
    maker.Generate_StudentCode(u"A"_s, u"B"_s);
    EXPECT_EQ(maker.New_StudentCode, u"AZZBZZ888ZZZ"_s);
    outside.random.numbers = {0.0};
    maker.Generate_StudentCode(u"A"_s, u"B"_s);
    EXPECT_EQ(maker.New_StudentCode, u"AAABAA000AAA"_s);
    outside.random.seeds.clear();
    outside.clock.now = QDateTime(QDate(2026, 6, 15), QTime(10, 30, 0, 250));
    maker.Generate_StudentCode(u"A"_s, u"B"_s);
    EXPECT_EQ(outside.random.seeds, QList<double>{37800.25}); // from the time of day
}

TEST(Replace_Chars, OverwritesInPlace) {
    QString text = u"O'N-e'l"_s;
    EXPECT_EQ(&Replace_Chars(text, u"'-"_s, u'O'), &text);
    EXPECT_EQ(text, u"OONOeOl"_s);
}

TEST(Normalise_Hyphen, TouchesTheFirstSpacedHyphenOnly) {
    const std::pair<QString, QString> cases[] = {{u"Smith - Jones"_s, u"Smith-Jones"_s},
                                                 {u"A - B - C"_s, u"A-B - C"_s},
                                                 {u"Smith-Jones"_s, u"Smith-Jones"_s},
                                                 {u"Smith -Jones"_s, u"Smith -Jones"_s},
                                                 {u" - "_s, u"-"_s},
                                                 {u""_s, u""_s}};
    for (const auto& [surname, normalised] : cases)
        EXPECT_EQ(Normalise_Hyphen(surname), normalised);
}

// ---- the statements

TEST_F(New_Pupil, AGroupIsMadeOnceAndOnlyItsNameAndListingAreWritten) {
    const QStringList before = sample.Column(u"SELECT Group_Name FROM Mevo_Groups"_s);
    ASSERT_TRUE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u""_s}));
    ASSERT_TRUE(
        Insert({u"Gray"_s, u"Ann"_s, u"F"_s, u"14/03/03"_s, u"OWLS"_s, u""_s})); // the same, however spelt
    ASSERT_TRUE(Insert({u"Groy"_s, u"Al"_s, u"M"_s, u"14/03/03"_s, u"Universal"_s, u""_s}));
    EXPECT_EQ(sample.Column(u"SELECT Group_Name FROM Mevo_Groups"_s), before + QStringList{u"Owls"_s});
    EXPECT_EQ(
        sample.Value(
            u"SELECT Show_On_List || (ID IS NULL) || (Dob_as_pw IS NULL) || (XtraField IS NULL) FROM Mevo_Groups WHERE Group_Name = 'Owls'"_s),
        u"1111"_s);
}

TEST_F(New_Pupil, ApostrophesAreDoubledInNamesAndInThePupilsGroupOnly) {
    const Table_Rows all = Read_Tables(sample);
    EXPECT_FALSE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u"it's"_s}));
    EXPECT_EQ(Read_Tables(sample), all) << "the password broke the first statement";

    EXPECT_FALSE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"St John's"_s, u""_s}));
    const QString code = maker.New_StudentCode;
    EXPECT_EQ(sample.Value(u"SELECT group_class FROM Mevo_Pupils WHERE StudentCode = '%1'"_s.arg(code)),
              u"St John's"_s);
    for (const QString& table : Data_Tables())
        EXPECT_EQ(Filled_Columns(sample, table, code).size(), 1) << table.toStdString();
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Groups WHERE Group_Name LIKE 'St%'"_s), u"0"_s);
}

TEST_F(New_Pupil, AFailureKeepsWhatRanBeforeItInTheGivenOrder) {
    sample.Run(u"DROP TABLE mevo_karrel_data"_s);
    EXPECT_FALSE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u""_s}));
    QStringList reached;
    for (const QString& table : Data_Tables())
        if (table != "mevo_karrel_data"_L1 && !Filled_Columns(sample, table, maker.New_StudentCode).isEmpty())
            reached.append(table);
    reached.sort();
    EXPECT_EQ(reached, (QStringList{u"mevo_drell_data"_s, u"mevo_friends_data"_s, u"mevo_letters_data"_s,
                                    u"mevo_mirvel_data"_s, u"mevo_pindo_data"_s, u"mevo_tolvens_data"_s}));
    EXPECT_EQ(sample.Value(u"SELECT count(*) FROM Mevo_Groups WHERE Group_Name = 'Owls'"_s), u"0"_s);
}

TEST_F(New_Pupil, ACodeThatIsTakenIsRefusedInSilence) {
    const QStringList fields{u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u""_s, u""_s};
    EXPECT_TRUE(Insert(fields));
    const Table_Rows all = Read_Tables(sample);
    EXPECT_FALSE(Insert(fields));
    EXPECT_EQ(Read_Tables(sample), all);
    sample.Move_Away();
    EXPECT_FALSE(Insert(fields)); // nor is a missing file told
}

TEST_F(New_Pupil, NoFieldRunsASecondStatementOrReachesTheEngine) {
    const QStringList hostile{u"x'); DELETE FROM mevo_pupils; --"_s,
                              u"x', 1, 0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0); DROP TABLE mevo_groups; --"_s,
                              u"x'; ATTACH DATABASE '/tmp/other.db' AS other; --"_s,
                              u"x'; PRAGMA user_version = 7; --"_s,
                              u"' OR (SELECT load_extension('evil')) OR '"_s,
                              u"x' ; UPDATE mevo_pupils SET surname = 'gone"_s,
                              u"x]; DELETE FROM mevo_pupils"_s,
                              u"x\" ; DELETE FROM mevo_pupils; --"_s,
                              u"x'"_s + QChar(0) + u"; DELETE FROM mevo_pupils; --"_s,
                              u"'; BEGIN; DELETE FROM mevo_pupils; COMMIT; --"_s,
                              u"/*"_s,
                              u"--"_s,
                              u"?password"_s};
    const QString others =
        u"SELECT group_concat(StudentCode || Surname || Forename || ifnull(Password, ''), '') FROM Mevo_Pupils WHERE Surname <> 'Hostile' AND Forename <> 'Hostile'"_s;
    const QString tables = sample.Value(u"SELECT group_concat(sql) FROM sqlite_master"_s);
    const QString before = sample.Value(others);
    for (const QString& text : hostile) {
        SCOPED_TRACE(text.toStdString());
        for (const int place : {0, 1, 2, 3, 4, 5}) {
            QStringList fields{u"Hostile"_s, u"Hostile"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u"cat"_s};
            fields[place] = text;
            Insert(fields);
        }
        EXPECT_EQ(sample.Value(others), before);
        EXPECT_EQ(sample.Value(u"SELECT group_concat(sql) FROM sqlite_master"_s), tables);
        EXPECT_EQ(sample.Value(u"PRAGMA user_version"_s), u"0"_s);
    }
}

TEST_F(New_Pupil, PlaceHoldersWithinFieldsFollowTheOrderOfReplacing) {
    ASSERT_TRUE(Insert({u"?forename"_s, u"?surname"_s, u"F"_s, u"14/03/03"_s, u""_s, u""_s}));
    EXPECT_EQ(
        sample.Value(u"SELECT surname || '|' || forename FROM Mevo_Pupils WHERE StudentCode = '%1'"_s.arg(
            maker.New_StudentCode)),
        u"?surname|?surname"_s);
    const QString without_end = u"?forename"_s.repeated(5000);
    EXPECT_FALSE(Insert({without_end, without_end, u"F"_s, u"14/03/03"_s, u""_s, u""_s}));
}

} // namespace pupils
