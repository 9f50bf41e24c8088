#include "scoring/pupil_lists.h"
#include "scoring/scoring_bench.h"

using namespace Qt::StringLiterals;
using namespace scoring;
using test_support::Error_Number;
using namespace scoring::test_index;

namespace {

// Four pupils of whom nobody has done a test, until a case says so.
class Lists : public Scoring_Bench {
protected:
    Lists() {
        for (int t = 1; t <= All_Tests; ++t)
            sample.Run(
                u"UPDATE Mevo_Pupils SET %1 = 0, %1_age = 0, %1_date = NULL"_s.arg(Test_At(t).Status_Column));
        const QString names[][2] = {
            {u"Grey"_s, u"Zoe"_s}, {u"grey"_s, u"Anna"_s}, {u"Élan"_s, u"Bo"_s}, {u"Ember"_s, u"Cy"_s}};
        for (int p = 1; p <= 4; ++p)
            Set(p, u"Surname = '%1', Forename = '%2'"_s.arg(names[p - 1][0], names[p - 1][1]));
        codes = data.pupils.Student_Code;
    }

    void Set(int pupil, const QString& settings) {
        const QString code = codes[pupil].isEmpty() ? data.pupils.Student_Code[pupil] : codes[pupil];
        sample.Run(u"UPDATE Mevo_Pupils SET %1 WHERE StudentCode = '%2'"_s.arg(settings, code));
    }

    void Load() { Load_Pupil_Lists(holder, installation, desktop.clock, lists); }

    QStringList Names() {
        QStringList names;
        Load();
        for (int p = 1; p <= lists.Pupils_Listed; ++p)
            names.append(lists.Pupil_Name_List[p]);
        return names;
    }

    Of_Each_Pupil<QString> codes; // by the pupil's number in these cases
    Pupil_Lists lists;
};

} // namespace

TEST_F(Lists, HoldWhoeverHasDoneAnyTestInTheOrderOfNamesWhateverTheCase) {
    EXPECT_EQ(Names(), QStringList());
    Set(1, u"Pindo = 1"_s);
    Set(2, u"Tolvens = 1, BliksFriends = 1, Yoon = NULL"_s); // the sum has no value
    Set(3, u"Mirvel = 2"_s);
    EXPECT_EQ(Names(), (QStringList{u"Élan Bo"_s, u"Grey Zoe"_s}));
    EXPECT_EQ(lists.Test_Status[Mirvel][1], 2);
    EXPECT_EQ(lists.Test_Status[Pindo][2], 1);
    EXPECT_EQ(lists.Student_Code[2], codes[1]);
    EXPECT_EQ(Pupil_List_Entry(lists, 2), u"Grey Zoe ("_s + codes[1] + u')');
    for (int p = 1; p <= 4; ++p)
        Set(p, u"Yoon = 1"_s);
    EXPECT_EQ(Names(), (QStringList{u"Élan Bo"_s, u"Ember Cy"_s, u"grey Anna"_s, u"Grey Zoe"_s}));
}

TEST_F(Lists, ReadNamesAndDatesWithoutAValueAsEmpty) {
    Set(1, u"Yoon = 1, Surname = NULL, DOB = NULL"_s);
    Set(2, u"Yoon = 1, Yoon_date = '2010-02-03', DOB = '16/06/2020'"_s); // a day after today's
    EXPECT_EQ(Names(), (QStringList{u" Zoe"_s, u"grey Anna"_s}));
    EXPECT_EQ(lists.Pupil_DOB_List[1], u""_s);
    EXPECT_EQ(lists.Pupil_Age_Now[1], 0);
    EXPECT_EQ(lists.Test_Date[Yoon][1], u""_s);
    EXPECT_EQ(lists.Pupil_DOB_List[2], u"16/06/2020"_s);
    EXPECT_EQ(lists.Pupil_Age_Now[2], 71);
    EXPECT_EQ(lists.Test_Date[Yoon][2], u"03/02/2010"_s);
}

TEST_F(Lists, RefuseAnAgeWithoutAValueOfAListedPupil) {
    Set(1, u"Drell_age = NULL"_s);
    Load();
    Set(1, u"Yoon = 1"_s);
    EXPECT_EQ(Error_Number([&] { Load(); }), basics::errors::Invalid_Use_Of_Null);
}

TEST_F(Lists, TheAgeAtTestIsTheGreatest) {
    Set(1, u"Yoon = 1, Tolvens_age = 60, Drell_age = 62, Yoon_age = 61"_s);
    Set(3, u"Yoon = 1, Tolvens_age = 0, Pindo_age = 59"_s);
    Set(4, u"Yoon = 1"_s);
    Load();
    EXPECT_EQ(lists.Pupil_Test_Age[3], 62);
    EXPECT_EQ(lists.Pupil_Test_Age[1], 59);
    EXPECT_EQ(lists.Pupil_Test_Age[2], 0);
}

TEST_F(Lists, EndAtTwoThousandFiveHundredPupils) {
    Set(1, u"Yoon = 1"_s);
    sample.Run(u"CREATE TABLE more AS SELECT * FROM Mevo_Pupils WHERE Yoon = 1"_s);
    const QString copies =
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2500) "
        "INSERT INTO Mevo_Pupils (StudentCode, %1) SELECT 'copy' || i, %1 FROM more, n LIMIT %2"_s;
    QStringList columns = sample.Column(u"SELECT name FROM pragma_table_info('Mevo_Pupils')"_s);
    columns.removeAll(u"StudentCode"_s);
    sample.Run(copies.arg(columns.join(u", "_s)).arg(2499));
    Load();
    EXPECT_EQ(lists.Pupils_Listed, 2500);
    sample.Run(u"UPDATE Mevo_Pupils SET Yoon = 1"_s);
    EXPECT_EQ(Error_Number([&] { Load(); }), basics::errors::Subscript_Out_Of_Range);
}
