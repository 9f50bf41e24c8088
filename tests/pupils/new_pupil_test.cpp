#include "pupils/new_pupil.h"

#include "pupils/record_page_fixture.h"

namespace pupils {
namespace {

class New_Pupil : public Record_Page {
protected:
    ~New_Pupil() override { EXPECT_TRUE(outside.boxes.shown.isEmpty()) << "making a pupil is silent"; }

    bool Insert(QStringList fields) {
        Look();
        return maker.Insert_New_Pupil(fields);
    }

    Pupil_Maker maker{outside.platform, installation};
};

} // namespace

// ---- the code

TEST_F(New_Pupil, TheCodeFollowsTheLengthOfEachName) {
    // Drawn in turn: K, 4, 1, 7, Q, X, Z, and round again.
    const QList<double> numbers{0.39, 0.5, 0.12, 0.8, 0.62, 0.89, 0.97};
    const struct {
        QString surname, forename, code;
    } cases[] = {
        {u"Smith"_s, u"Jo"_s, u"SMIJOK417QXZ"_s},    {u"O"_s, u"Al"_s, u"OKNALD758ZKN"_s},
        {u"O'Brien"_s, u"Ann"_s, u"OOBANN341UQX"_s}, {u"Le Fay"_s, u"'"_s, u"LE OKN175XZK"_s},
        {u""_s, u"Ann"_s, u"ANN341UQX"_s},           {u"straße"_s, u"ßen"_s, u"STRßEN341UQX"_s},
        {u"ßa"_s, u"éa"_s, u"ßAKÉAN175XZK"_s},       {u"𠮷田太郎"_s, u"😀"_s, u"𠮷田太😀KN175XZK"_s},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.surname.toStdString());
        outside.random = {};
        outside.random.numbers = numbers;
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

// ---- the statements

TEST_F(New_Pupil, AGroupIsMadeOnceAndOnlyItsNameAndListingAreWritten) {
    for (const QString& group : {u"Owls"_s, u"OWLS"_s, u"Universal"_s}) { // the same, however spelt
        ASSERT_TRUE(Insert({u"Grey"_s, u"Anna - Jo"_s, u"F"_s, u"14/03/03"_s, group, u""_s}));
        outside.random.numbers.append(0.5); // for another code
        QStringList expected = Rows_Of_A_New_Pupil(
            maker.New_StudentCode, u"'Grey'|'Anna - Jo'|'F'|'14/03/03'|'%1'|''|1"_s.arg(group));
        if (group == "Owls"_L1) expected += u"Mevo_Groups 6: new, Group_Name 'Owls', Show_On_List 1"_s;
        Expect_Changed(expected);
    }
}

TEST_F(New_Pupil, ApostrophesAreDoubledInNamesAndInThePupilsGroupOnly) {
    EXPECT_FALSE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u"it's"_s}));
    EXPECT_EQ(Changed(), QStringList{}) << "the password broke the first statement";
    EXPECT_FALSE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"St John's"_s, u""_s}));
    Expect_Changed(
        Rows_Of_A_New_Pupil(maker.New_StudentCode, u"'Grey'|'Anna'|'F'|'14/03/03'|'St John''s'|''|1"_s));
}

TEST_F(New_Pupil, AFailureKeepsWhatRanBeforeItInTheGivenOrder) {
    sample.Run(u"DROP TABLE mevo_karrel_data"_s);
    EXPECT_FALSE(Insert({u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u""_s}));
    QStringList reached;
    for (const QString& change : Changed())
        reached.append(change.section(u' ', 0, 0));
    EXPECT_EQ(reached, (QStringList{u"Mevo_Drell_data"_s, u"Mevo_Friends_data"_s, u"Mevo_Letters_data"_s,
                                    u"Mevo_Mirvel_data"_s, u"Mevo_Pindo_data"_s, u"Mevo_Pupils"_s,
                                    u"Mevo_Tolvens_data"_s}));
}

TEST_F(New_Pupil, ACodeThatIsTakenIsRefusedInSilence) {
    QStringList fields{u"Grey"_s, u"Anna"_s, u"F"_s, u"14/03/03"_s, u""_s, u""_s};
    EXPECT_TRUE(Insert(fields));
    EXPECT_FALSE(Insert(fields));
    EXPECT_EQ(Changed(), QStringList{});
    sample.Move_Away();
    EXPECT_FALSE(maker.Insert_New_Pupil(fields)); // nor is a missing file told
}

TEST_F(New_Pupil, NoFieldRunsASecondStatementOrReachesTheEngine) {
    const QStringList hostile{u"x'); DELETE FROM mevo_pupils; --"_s,
                              u"x', 1, 0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0); DROP TABLE mevo_groups; --"_s,
                              u"x'; ATTACH DATABASE '/tmp/other.db' AS other; --"_s,
                              u"x'; PRAGMA user_version = 7; --"_s,
                              u"' OR (SELECT load_extension('evil')) OR '"_s,
                              u"x' ; UPDATE mevo_pupils SET surname = 'gone"_s,
                              u"x\" ; DELETE FROM mevo_pupils; --"_s,
                              u"x'"_s + QChar(0) + u"; DELETE FROM mevo_pupils; --"_s,
                              u"'; BEGIN; DELETE FROM mevo_pupils; COMMIT; --"_s,
                              u"/*"_s,
                              u"--"_s,
                              u"?password"_s};
    Look();
    for (const QString& text : hostile) {
        SCOPED_TRACE(text.toStdString());
        for (const int place : {0, 1, 2, 3, 4, 5}) {
            QStringList fields{u"Hostile"_s, u"Hostile"_s, u"F"_s, u"14/03/03"_s, u"Owls"_s, u"cat"_s};
            fields[place] = text;
            maker.Insert_New_Pupil(fields);
        }
        for (const QString& change : Changed())
            EXPECT_TRUE(change.contains(u": new, "_s)) << change.toStdString();
        EXPECT_EQ(sample.Value(u"PRAGMA user_version"_s), u"0"_s);
    }
}

TEST_F(New_Pupil, PlaceHoldersWithinFieldsFollowTheOrderOfReplacing) {
    ASSERT_TRUE(Insert({u"?forename"_s, u"?surname"_s, u"F"_s, u"14/03/03"_s, u""_s, u""_s}));
    Expect_Changed(Rows_Of_A_New_Pupil(maker.New_StudentCode,
                                       u"'?surname'|'?surname'|'F'|'14/03/03'|'Universal'|''|1"_s));
    const QString without_end = u"?forename"_s.repeated(5000);
    EXPECT_FALSE(Insert({without_end, without_end, u"F"_s, u"14/03/03"_s, u""_s, u""_s}));
}

} // namespace pupils
