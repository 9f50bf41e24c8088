#include "printing/batch_sheets.h"

#include "platform/recorded_page.h"
#include "printing/batch_list.h"
#include "printing/pupil_on_paper.h"

using namespace printing;
using namespace test_support;

namespace {

class Batch_Report_Sheets : public Pupil_On_Paper {
protected:
    Batch_Report_Sheets() {
        for (int p = 1; p <= 40; ++p) {
            pupils.Student_Code[p] = u"CODE%1"_s.arg(p);
            pupils.Pupil_Name_List[p] = u"Pupil Number%1"_s.arg(p);
            pupils.Pupil_DOB_List[p] = u"09/02/2020"_s;
            pupils.Pupil_Test_Age[p] = 87;
            cohort.Cohort_Pupil[p] = static_cast<qint16>(p);
        }
        report.Report_Setup();
    }

    void Score(int p, int t, qint16 centile) { cohort.Cohort_Raw_Centile[p][t] = centile; }
    void Build(int count, Batch_Options options = {u"WHITE"_s, Pupil_Label::Name, u"ALL"_s}) {
        report.Build_Batch(count, options);
    }
    QList<qsizetype> Notes_By_Page() const {
        QList<qsizetype> notes;
        for (int page = 1; page <= sheets.PageCount(); ++page)
            notes.append(Lines_Of(sheets.Page(page), Note).size());
        return notes;
    }

    scoring::Pupil_Lists pupils;
    scoring::Cohort_Tables cohort;
    preview::ViewPro sheets;
    Batch_Sheets report{sheets, {installation, state, pupils, cohort}, outside.platform};
};

} // namespace

TEST_F(Batch_Report_Sheets, EachPupilShowsHisOwnScoresWhateverHisRank) {
    Score(1, 1, 90);
    Score(3, 1, 40);
    Take_Batch({3}, cohort);
    Build(1);
    const auto bars = Rectangles_Filled(sheets.Page(1), Red);
    ASSERT_EQ(bars.size(), 1);
    EXPECT_EQ(bars[0].height, 40 * 25 - 40);
    EXPECT_EQ(Lines_Of(sheets.Page(1), u"Pupil Number3"_s).size(), 1);
}

TEST_F(Batch_Report_Sheets, EverySheetHasItsHeadAndItsNumber) {
    Build(9, {u"WHITE"_s, Pupil_Label::Name, u"Class 1 Oak"_s});
    for (int number = 1; number <= 2; ++number) {
        const preview::Drawing& page = sheets.Page(number);
        const auto& title = Only_Line(
            page, u"Mevo multiple graphical profiles (Y-axis in Centile scores). Printed on: 15/06/2026"_s);
        EXPECT_EQ(title.y, 72);
        EXPECT_NEAR(Ink_Of(title).center().x(), 11906 / 2.0 - 720, 1);
        EXPECT_EQ(Only_Line(page, u"Class or Group represented is: Class 1 Oak"_s).y, 312);
        EXPECT_EQ(Lines_Of(page, u"Hillside Primary School"_s).size(), 1);
        EXPECT_EQ(Lines_Of(page, u"Page %1"_s.arg(number)).size(), 1);
        EXPECT_TRUE(Lines_Of(page, u"Page %1"_s.arg(3 - number)).isEmpty());
        const desktop::Printed_Document document = sheets.Document(u"Batch"_s, number, 2);
        EXPECT_EQ(document.bookmarks.size(), number == 1 ? 9u : 1u); // a pupil each
        EXPECT_EQ(document.bookmarks.back().title, u"Pupil Number9"_s);
        EXPECT_EQ(document.bookmarks.back().page, 3 - number);
    }
    state.Chart_Mode = u"Z"_s;
    Build(1);
    Only_Line(
        sheets.Page(1),
        u"Mevo multiple graphical profiles (Y-axis in Standard Deviation Units or Z-Scores). Printed on:15/06/2026"_s);
}

TEST_F(Batch_Report_Sheets, ATerminatedPupilBringsTheNoteToAllLaterSheets) {
    Score(10, 1, 40);
    cohort.Cohort_Tolvens_Terminated[10] = true; // on the second of four sheets
    cohort.Cohort_Tolvens_Terminated[1] = true;  // has no score
    Build(32);
    EXPECT_EQ(Notes_By_Page(), (QList<qsizetype>{0, 1, 1, 1}));
    const auto& note = Only_Line(sheets.Page(3), Note);
    EXPECT_EQ(QPoint(note.x, note.y), QPoint(500, 480));
    cohort.Cohort_Tolvens_Terminated[10] = false;
    Build(9); // nor does it go while the page is open
    EXPECT_EQ(Notes_By_Page(), (QList<qsizetype>{1, 1}));
}

TEST_F(Batch_Report_Sheets, ALongNameStaysInItsCellAndAboveTheChart) {
    const QString names[] = {u"Featherstonehaugh-Öztürk Ángeles-Élodie B"_s,
                             u"Wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww"_s, u"Świątek Zoë"_s};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        pupils.Pupil_Name_List[1] = name;
        Build(1);
        const preview::Drawing& page = sheets.Page(1);
        const auto in_cell =
            Those_Of<preview::Text_Operation>(page, [](const auto& line) { return line.x == 514; });
        ASSERT_EQ(in_cell.size(), 1); // one line
        EXPECT_LE(Ink_Of(in_cell[0]).right(), 500 + 1720);
        EXPECT_LT(Ink_Of(in_cell[0]).bottom(), 1000);
        EXPECT_EQ(in_cell[0].text.left(10), name.left(10));
        EXPECT_EQ(Only_Line(page, u"Age: 7:03"_s).style, in_cell[0].style);
        EXPECT_EQ(in_cell[0].style.font_size, 6);
    }
}

TEST_F(Batch_Report_Sheets, NothingOverlapsOnAFullSheet) {
    installation.Institution = u"St Bartholomew's and Holy Trinity Church of England School"_s;
    for (int p = 1; p <= 8; ++p) {
        pupils.Pupil_Name_List[p] = u"Featherstonehaugh-Öztürk Ángeles-Élodie B"_s;
        cohort.Cohort_Tolvens_Terminated[p] = cohort.Cohort_Friends_Terminated[p] = true;
        for (int t = 1; t <= 8; ++t)
            Score(p, t, static_cast<qint16>(11 * p));
    }
    for (const QString& mode : {u"P"_s, u"Z"_s}) {
        state.Chart_Mode = mode;
        Build(8);
        QStringList overlaps = Overlaps(sheets.Page(1));
        // The heading that each miniature repeats lies on itself.
        overlaps.removeAll(u"Assessor's comments / Assessor's comments"_s);
        EXPECT_EQ(overlaps, QStringList()) << mode.toStdString();
    }
}
