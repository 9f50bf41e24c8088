#include "printing/individual_report.h"

#include "printing/pupil_on_paper.h"
#include "support/controls.h"

using namespace printing;
using namespace test_support;
using desktop::Pointer_Shape;

namespace {

class Individual_Report_Page : public Pupil_On_Paper {
protected:
    Individual_Report_Page() {
        scores.Raw_Centile[1] = 40;
        page.resize(1366, 768);
        page.Load();
    }

    preview::Preview_Window& Preview() { return Control<preview::Preview_Window>(page, u"ViewPro1"_s); }
    // A screen reader is told the words of the page on view.
    bool On_View(const QString& text) { return Preview().accessibleDescription().contains(text); }
    bool Ticked(int i) { return !Control<QLabel>(page, u"Image1(%1)"_s.arg(i)).pixmap().isNull(); }

    Recording_Navigator navigator;
    Form94 page{outside.platform, navigator, {installation, state, scores}};
};

} // namespace

TEST_F(Individual_Report_Page, OpensWithTheWholeReportAtTheSmallestZoom) {
    EXPECT_EQ(outside.pointer.shapes, (QList{Pointer_Shape::Hourglass, Pointer_Shape::Default}));
    for (const QString& text :
         {u"Smith Oliver"_s, u"Module"_s, u"Centiles"_s, u"Accuracy"_s, u"Works with care."_s})
        EXPECT_TRUE(On_View(text)) << text.toStdString();
    EXPECT_EQ(Preview().ZoomPercent(), 40);
    EXPECT_TRUE(Ticked(2));
    EXPECT_FALSE(Ticked(0) || Ticked(1));
    EXPECT_FALSE(Shown(page, u"Image1(3)"_s));
}

TEST_F(Individual_Report_Page, ABoxTakesItsSectionOutAndBringsItBack) {
    const std::tuple<QString, QString, QString, QString> boxes[] = {
        {u"Check3"_s, u"Label8"_s, u"Summary"_s, u"Module"_s},
        {u"Check4"_s, u"Label9"_s, u"Profile"_s, u"Centiles"_s},
        {u"Check1"_s, u"Label2"_s, u"Legend"_s, u"Accuracy"_s},
        {u"Check2"_s, u"Label3"_s, u"Comments"_s, u"Works with care."_s}};
    for (const auto& [box, label, caption, text] : boxes) {
        SCOPED_TRACE(caption.toStdString());
        EXPECT_EQ(Caption(page, label), caption);
        Click(page, box);
        for (const auto& other : boxes)
            EXPECT_EQ(On_View(std::get<3>(other)), std::get<0>(other) != box)
                << std::get<3>(other).toStdString();
        Click(page, label); // the caption belongs to its box
        EXPECT_TRUE(On_View(text));
    }
}

TEST_F(Individual_Report_Page, SaysThatACommentRunsOverWhileItIsPrinted) {
    EXPECT_FALSE(Shown(page, u"CommentNotice"_s));
    state.comment.Pupil_Comment =
        QString(Lines_Of_Comment({}).room + 2, u'\n'); // one more than ends of lines
    page.Build_Report();
    EXPECT_EQ(Caption(page, u"CommentNotice"_s), u"3 lines over"_s);
    EXPECT_TRUE(Shown(page, u"CommentNotice"_s));
    Click(page, u"Check2"_s);
    EXPECT_FALSE(Shown(page, u"CommentNotice"_s));
}

TEST_F(Individual_Report_Page, BeginsWithinTheMarginsAsTheSchoolSettledUntilTheAccountHasChosen) {
    const std::tuple<QString, QString, bool> cases[] = {
        {u"1"_s, {}, true}, {u"0"_s, {}, false}, {u"1"_s, u"0"_s, false}, {u"0"_s, u"1"_s, true}};
    for (const auto& [school, account, kept] : cases) {
        SCOPED_TRACE(school.toStdString() + account.toStdString());
        outside.ini.values[u"Reports/Keep_To_Margins"_s] = school;
        outside.settings.kept.clear();
        if (!account.isEmpty()) outside.settings.kept[u"Reports/Keep_To_Margins"_s] = account;
        Form94 opened(outside.platform, navigator, {installation, state, scores});
        EXPECT_EQ(Control<QCheckBox>(opened, u"KeepToMargins"_s).isChecked(), kept);
    }
    EXPECT_TRUE(outside.ini.asked.last().endsWith(u"Mevo05School.ini"_s));
}

TEST_F(Individual_Report_Page, PrintsOneSheetAsItIsOnView) {
    Click(page, u"HotLabel2"_s);
    EXPECT_EQ(outside.printers.pages.size(), 1);
    EXPECT_EQ(outside.pointer.shapes.last(), Pointer_Shape::Default);
    const QImage whole = outside.printers.pages.first();
    Click(page, u"Check4"_s);
    Click(page, u"HotLabel2"_s);
    EXPECT_NE(outside.printers.pages.last(), whole);
}

TEST_F(Individual_Report_Page, AFaultOfThePrinterIsToldAndThePageGoesOn) {
    outside.printers.broken = true;
    outside.boxes.Will_Answer(desktop::Answer::Ok, [this] {
        EXPECT_EQ(outside.pointer.shapes.last(), Pointer_Shape::Default); // not over the box
    });
    Click(page, u"HotLabel2"_s);
    ASSERT_EQ(outside.boxes.shown.size(), 1);
    EXPECT_EQ(outside.boxes.shown[0].style, desktop::Box_Style::Critical);
    EXPECT_EQ(outside.boxes.shown[0].text, u"The printer is stopped."_s);
    outside.printers.broken = false;
    Click(page, u"HotLabel2"_s);
    EXPECT_EQ(outside.printers.pages.size(), 1);
}

TEST_F(Individual_Report_Page, CopiesTheSheetInAllForms) {
    Click(page, u"HotLabel3"_s);
    ASSERT_EQ(outside.clipboard.copied.size(), 1);
    EXPECT_TRUE(outside.clipboard.copied[0].svg.contains("Cognitive Profile"));
    EXPECT_FALSE(outside.clipboard.copied[0].wmf.isEmpty());
    EXPECT_FALSE(outside.clipboard.copied[0].picture.isNull());
}
