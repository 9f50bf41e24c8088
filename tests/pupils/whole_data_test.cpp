#include "keeping/earlier_takings.h"
#include "pupils/fine_tuning_page.h"
#include "pupils/record_page_fixture.h"
#include "pupils/whole_data_page.h"
#include "scoring/score_rows.h"
#include "support/files.h"

#include <QDir>
#include <gtest/gtest.h>

namespace pupils {
namespace {

using scoring::Test_At;
using scoring::Why_Section;

class Whole_Data_Of_A_Pupil : public Record_Page {
protected:
    scoring::Why_Words All_Data(const QString& code) {
        return All_Data_Of(code, installation, outside.platform).words;
    }
    QString Stored(const QString& column, const QString& code, const QString& table = u"Mevo_Pupils"_s) {
        return sample.Value(u"SELECT %1 FROM %2 WHERE StudentCode = '%3'"_s.arg(column, table, code));
    }
    QStringList In_The_Schools_Folder() const { return QDir(sample.Folder()).entryList(QDir::Files); }
};

QString As_One_Text(const scoring::Why_Words& words, const QString& heading) {
    QString text;
    for (const Why_Section& part : words.sections)
        if (part.heading == heading) {
            text += u'\n' + part.lines.join(u'\n');
            for (const QStringList& row : part.rows)
                text += u"\n|"_s + row.join(u'|') + u'|';
        }
    return text;
}

} // namespace

TEST_F(Whole_Data_Of_A_Pupil, HoldsEveryAnswerAndTheScoresOfTheReports) {
    const QStringList before = In_The_Schools_Folder();
    foundation::Access_Holder holder(outside.platform);
    auto scores = std::make_unique<scoring::Scoring_Data>();
    scoring::Scoring pass = scoring::Pass_Over(*scores, installation, holder);
    scoring::Load_All_Norms(holder, installation, scores->norms);
    scoring::Load_Pupil_Lists(holder, installation, outside.clock, scores->pupils);
    scoring::Summary_Cells cells;
    int answers = 0;
    for (int p = 1; p <= scores->pupils.Pupils_Listed; ++p) {
        const QString code = scores->pupils.Student_Code[p];
        const auto rows = scoring::Score_Rows(p, scoring::Passes_Wanted::Raw_And_Time, pass, cells);
        const scoring::Why_Words words = All_Data(code);
        const QString told = As_One_Text(words, u"Scores"_s);
        for (int t = 1; t <= scoring::All_Tests; ++t) {
            SCOPED_TRACE(code.toStdString() + ", test " + std::to_string(t));
            const QStringList& row = rows[t - 1];
            const QString score = u'|' + row.sliced(5, 7).join(u'|') + u'|';
            EXPECT_TRUE(row[6].isEmpty() || told.contains(score)) << score.toStdString();
            const QString text = As_One_Text(words, u"Answers: "_s + Test_At(t).Test_Name);
            if (t == scoring::test_index::Pindo || t == scoring::test_index::Karrel)
                continue; // other words stand for what is stored
            for (const QString& column : Test_At(t).Columns.Names(scoring::Item_Field::Chosen)) {
                QString stored = Stored(column, code, Test_At(t).Data_Table);
                if (stored == "NULL"_L1 || stored.isEmpty()) continue;
                stored = stored == "-2"_L1 ? u"no answer"_s : stored.replace(u","_s, u", "_s);
                EXPECT_TRUE(text.contains(u'|' + stored + u'|')) << stored.toStdString();
                ++answers;
            }
        }
    }
    EXPECT_GT(answers, 500);
    EXPECT_EQ(In_The_Schools_Folder(), before);
}

TEST_F(Whole_Data_Of_A_Pupil, TellsWhatWasBeforeARetestAndWhatCantBeRead) {
    const QString code =
        sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Tolvens = 1 AND Drell = 1"_s);
    const QString known = As_One_Text(All_Data(code), u"Answers: Tolvens"_s).section(u'\n', 2);
    EXPECT_FALSE(known.isEmpty());
    keeping::Keep_Takings(sample.Path(), code, {1}, outside.clock.now);
    sample.Run(u"UPDATE Mevo_Pupils SET Tolvens = 0, Comment = 'One' || char(13, 10) || '=Two' WHERE "
               "StudentCode = '%1'"_s.arg(code));
    sample.Run(u"DROP TABLE Mevo_Drell_data"_s);
    const scoring::Why_Words words = All_Data(code);
    EXPECT_TRUE(As_One_Text(words, u"Answers: Tolvens"_s).contains(u"still holds these answers"_s));
    EXPECT_EQ(As_One_Text(words, u"Earlier answers: Tolvens"_s).section(u'\n', 2), known);
    EXPECT_TRUE(As_One_Text(words, u"Scores"_s).contains(u"|Tolvens|retest allowed|"_s));
    EXPECT_TRUE(As_One_Text(words, u"Scores"_s).contains(u"|Drell|can't be scored|"_s));
    EXPECT_TRUE(As_One_Text(words, u"Earlier results"_s).contains(u"|Tolvens|earlier|"_s));
    EXPECT_TRUE(As_One_Text(words, u"Answers: Drell"_s).contains(u"Not all can be read"_s));
    EXPECT_TRUE(As_One_Text(words, u"Answers: Mirvel"_s).size() > 20) << "the others go on";
    const QString csv = QString::fromUtf8(As_Csv(words, basics::Decimal_Mark::Comma));
    EXPECT_TRUE(csv.contains(u"Details;;User ID;%1\r\n"_s.arg(code)));
    EXPECT_TRUE(csv.contains(u"Comment;;;One\r\nComment;;;'=Two\r\n"_s));
    EXPECT_TRUE(csv.contains(u"Scores;1;State;retest allowed\r\n"_s));
}

TEST_F(Whole_Data_Of_A_Pupil, IsShownAlsoOfOneWithoutResultsAndLeavesFineTuningAsItIs) {
    sample.Run(u"UPDATE Mevo_Pupils SET Tolvens = NULL, Pindo = 2 WHERE Surname = 'D''Souza'"_s);
    for (const foundation::Test_Tables& test : foundation::Tests_In_Order())
        sample.Run(u"DELETE FROM %1 WHERE StudentCode = '%2'"_s.arg(test.data_table, Code_Of(u"D'Souza"_s)));
    Form15 fine_tuning(outside.platform, navigator, Data());
    Show(fine_tuning);
    fine_tuning.Timer1_Timer();
    Look();
    Click(u"AllData"_s);
    EXPECT_EQ(navigator.opened_on_top, QList<shell::Page_Id>{shell::Page_Id::Pupil_Data});
    const QString status = QString::number(lists.Test_Status[9][1]);
    {
        Whole_Data_Page shown(outside.platform, navigator, Data());
        Show(shown);
        shown.Load();
        Click(u"HotLabel2"_s);
        EXPECT_EQ(outside.printers.printed, QStringList{u"Mevo data of a pupil"_s});
        Click(u"HotLabel1"_s);
    }
    EXPECT_EQ(navigator.closed, 1);
    EXPECT_EQ(lists.Student_Code[1] + QString::number(lists.Test_Status[9][1]),
              Code_Of(u"D'Souza"_s) + status);
    EXPECT_EQ(Changed(), QStringList());
}

} // namespace pupils
