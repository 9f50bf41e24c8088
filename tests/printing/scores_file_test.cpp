#include "printing/scores_file.h"

#include "reports/scored_page.h"
#include "scores/score_lines.h"
#include "support/files.h"

#include <QDir>
#include <gtest/gtest.h>
#include <numeric>

using namespace test_support;

namespace {

class Scores_File_Saved : public Scored_Page {
protected:
    void Load() {
        scoring::Load_All_Norms(scoring_holder, installation, scores.norms);
        scoring::Load_Pupil_Lists(scoring_holder, installation, outside.clock, scores.pupils);
    }
    // Of all pupils; `clicks` in the dialog. As text, without the mark at its begin.
    QString Saved(const QStringList& clicks) {
        const QString file = taken_out.path() + u"/scores.csv"_s;
        outside.dialogs.Will_Do([clicks](QDialog& dialog) {
            for (const QString& name : clicks + QStringList{u"HotLabel1"_s})
                Click(dialog, name);
        });
        outside.file_dialogs.answers = {file};
        QList<qint16> places(scores.pupils.Pupils_Listed);
        std::iota(places.begin(), places.end(), qint16(1));
        printing::Save_Scores(
            {places, lost, u"Mevo scores"_s}, scoring, [this](int done) { shown.append(done); },
            outside.platform);
        const QByteArray bytes = Bytes_Of(file);
        EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
        return QString::fromUtf8(bytes.sliced(3));
    }
    QString By_The_Tool() {
        return score_export::Score_Lines(sample.Path(), scoring::Passes_Wanted::Raw_And_Time,
                                         outside.platform);
    }
    QStringList In_The_Schools_Folder() const { return QDir(sample.Folder()).entryList(QDir::Files); }

    QTemporaryDir taken_out;
    QStringList lost;
    QList<int> shown;
};

QList<QStringList> Fields_In(const QString& text, QChar separator) {
    QList<QStringList> records;
    for (const QString& line : text.split(u"\r\n"_s, Qt::SkipEmptyParts))
        records.append(line.split(separator));
    return records;
}

} // namespace

TEST_F(Scores_File_Saved, HoldsWhatTheToolWritesInEitherForm) {
    Load();
    scores.scores.Raw_Centile[1] = 77; // as the page shows it
    const QStringList before = In_The_Schools_Folder();
    const QString by_the_tool = By_The_Tool();
    EXPECT_EQ(Saved({u"RowForEachTest"_s}), by_the_tool);
    const QList<QStringList> rows = Fields_In(by_the_tool, u',');
    const QList<QStringList> wide = Fields_In(Saved({u"RowForEachPupil"_s, u"DecimalComma"_s}), u';');
    ASSERT_EQ(wide.size(), 1 + rows.size() / 9);
    int compared = 0;
    for (qsizetype i = 1; i < rows.size(); ++i) {
        const QStringList& by_pupil = wide[1 + (i - 1) / 9];
        EXPECT_EQ(by_pupil.first(2), rows[i].first(2));
        for (qsizetype column = 3; column < rows[0].size(); ++column) {
            const QString name =
                scoring::Test_At(static_cast<int>((i - 1) % 9) + 1).Status_Column + u'_' + rows[0][column];
            const qsizetype at = wide[0].indexOf(name);
            EXPECT_EQ(at < 0 ? QString() : by_pupil[at], QString(rows[i][column]).replace(u'.', u','))
                << name.toStdString();
            compared += at < 0 ? 0 : 1;
        }
    }
    EXPECT_EQ(compared, (wide.size() - 1) * (wide[0].size() - 3));
    EXPECT_EQ(shown.first(), 1);
    EXPECT_EQ(scores.scores.Raw_Centile[1], 77);
    EXPECT_EQ(outside.settings.kept[u"Csv/Decimal_Comma"_s], u"1"_s) << "offered again the next time";
    EXPECT_EQ(In_The_Schools_Folder(), before);
}

TEST_F(Scores_File_Saved, NobodyIsLostForOneWhoCantBeScored) {
    const QString code = Code_Where(u"Tolvens = 1"_s);
    Set(code, u"Level_11_holes_req = NULL"_s, u"Mevo_Tolvens_data"_s);
    Set(code, u"Surname = '=1+1', Forename = 'Ann \"Bo\",' || char(10)"_s);
    Load();
    lost = {u"Somebody - Else"_s};
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    const QString text = Saved({});
    EXPECT_TRUE(outside.boxes.shown.last().text.endsWith(u"\rSomebody - Else"_s));
    EXPECT_TRUE(outside.boxes.shown.last().text.contains(u"=1+1 Ann"_s));
    EXPECT_EQ(text.count(u"\r\n"_s), 1 + 9 * scores.pupils.Pupils_Listed);
    EXPECT_TRUE(text.contains(code + u",\"'=1+1 Ann \"\"Bo\"\",\n\",Tolvens,1,"_s));
    // Where nothing can be read at all, nothing is written and nobody is blamed.
    sample.Move_Away();
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    EXPECT_EQ(Saved({}), text) << "the earlier file";
    EXPECT_TRUE(outside.boxes.shown.last().text.contains(u"nothing has been saved"_s));
}
