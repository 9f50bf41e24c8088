#include "printing/batch_list.h"

#include "support/printing.h"
#include "support/sample_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace printing;
using test_support::Sample_File;

TEST(BatchList, AgesHaveTwoDigitsOfMonths) {
    const std::pair<int, QString> cases[] = {{0, u"0:00"_s},  {9, u"0:09"_s},  {87, u"7:03"_s},
                                             {84, u"7:00"_s}, {95, u"7:11"_s}, {130, u"10:10"_s}};
    for (const auto& [months, text] : cases)
        EXPECT_EQ(AgeFromMonths(months), text);
}

TEST(BatchList, AValueIsFoundAtItsFirstPlaceLetterByLetter) {
    basics::Bounded<QString, 5> codes;
    codes[1] = u"AB"_s;
    codes[3] = u"ab"_s;
    codes[4] = u"ab"_s;
    codes[5] = u"last"_s;
    EXPECT_EQ(FindInArray(codes, u"AB"_s), 1);
    EXPECT_EQ(FindInArray(codes, u"ab"_s), 3);
    EXPECT_EQ(FindInArray(codes, u"Ab"_s), -1);
    EXPECT_EQ(FindInArray(codes, u""_s), 0);
    EXPECT_EQ(FindInArray(codes, u"last"_s), -1); // the topmost place is not looked at
}

TEST(BatchList, TheCodeIsWhatFollowsTheFirstDivider) {
    scoring::Pupil_Lists pupils;
    pupils.Student_Code[1] = u"THOANN123ABC"_s;
    pupils.Student_Code[2] = u"LE FAY - 1"_s;
    EXPECT_EQ(Places_Of({u"Thompson-Ellis, Ann - THOANN123ABC"_s, // a plain hyphen is harmless
                         u"Thompson - Ellis, Ann - THOANN123ABC"_s, u"Le Fay, Morgan - LE FAY - 1"_s,
                         u"Nobody, At All - XXX"_s, u""_s /* a name without a value */},
                        pupils),
              (QList<qint16>{1, -1, 2, -1, -1}));
    const Found_Entries found = Find_By_Code({u"Thompson - Ellis, Ann - THOANN123ABC"_s,
                                              u"Fay, M - LE FAY - 1"_s, u"Nobody - At, All - XXX"_s, u""_s},
                                             pupils);
    EXPECT_EQ(found.places, (QList<qint16>{1, 2}));
    EXPECT_EQ(found.lost, (QStringList{u"Nobody - At, All - XXX"_s, u"A pupil without a whole name"_s}));
}

TEST(BatchList, AnErrorEndsAListInSilence) {
    const Sample_File sample;
    const QString connection = sample.Installed().Connection_String;
    int taken = 0;
    const auto count = [&](const QString&) { ++taken; };
    EXPECT_FALSE(Read_Pupil_Entries(connection, u"Mrs O'Hara's class"_s, count)); // nothing is escaped
    sample.Run(u"DROP TABLE Mevo_Groups"_s);
    EXPECT_FALSE(Read_Group_Names(connection, count));
    sample.Move_Away();
    EXPECT_FALSE(Read_Pupil_Entries(connection, u"ALL"_s, count));
    EXPECT_EQ(taken, 0);
}
