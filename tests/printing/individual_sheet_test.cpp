#include "printing/individual_sheet.h"

#include "platform/recorded_page.h"
#include "printing/product_lines.h"
#include "printing/pupil_on_paper.h"

using namespace printing;
using namespace test_support;

namespace {

class Individual_Report_Sheet : public Pupil_On_Paper {
protected:
    Individual_Report_Sheet() {
        scoring::Show_Test_Names(state.summary);
        report.Report_Setup();
    }

    // All eight tests at one centile.
    void Score_All_At(qint16 centile, double z = 0) {
        for (int t = 1; t <= 8; ++t) {
            scores.Raw_Centile[t] = centile;
            scores.Raw_ZScore[t] = z;
            state.summary(t + 1, 3) = QString::number(centile);
        }
    }
    const preview::Drawing& Build(const Report_Sections& sections = {}) {
        report.Build_Report(sections);
        return sheet.Page(1);
    }
    QStringList Words(int count) {
        QStringList words;
        for (int i = 1; i <= count; ++i)
            words.append(u"word%1"_s.arg(i % 10));
        return words;
    }

    preview::ViewPro sheet;
    Individual_Sheet report{sheet, {installation, state, scores}, outside.platform};
};

} // namespace

TEST_F(Individual_Report_Sheet, TextsStandWhereTheTwipsSay) {
    const std::tuple<QString, QPoint, preview::Text_Style> texts[] = {
        {u"Mevo ID: SMIOLI633THJ"_s, {913 + 90, 984 + 30}, {9, false}},
        {u"D.O.B: 09/02/2020"_s, {913 + 3700 + 90, 984 + 30}, {9, false}},
        {u"Date printed: 15/06/2026"_s, {913 + 6500 + 90, 984 + 30}, {9, false}},
        {u"Accuracy"_s, {440, 9560}, {8, true}},
        {u"Assessor's comments"_s, {144, 11264}, {10, true}},
        {u"Works with care."_s, {144, 11480}, {9, false}},
    };
    const preview::Drawing& page = Build();
    for (const auto& [text, place, style] : texts) {
        const auto line = Only_Line(page, text);
        EXPECT_EQ(QPoint(line.x, line.y), place) << text.toStdString();
        EXPECT_EQ(line.style, style) << text.toStdString();
    }
    EXPECT_EQ(sheet.PageCount(), 1);
}

TEST_F(Individual_Report_Sheet, TheHeadingOfTheScoresIsBoldOnGreyEachTime) {
    Score_All_At(40);
    state.comment.Pupil_Comment.clear(); // nothing sets the colours back behind the legend
    for (int build = 1; build <= 2; ++build) {
        SCOPED_TRACE(build);
        const preview::Drawing& page = Build();
        const auto heading = Only_Line(page, u"Module"_s), name = Only_Line(page, u"Letter names"_s);
        EXPECT_TRUE(heading.style.bold && !name.style.bold);
        EXPECT_EQ(Colour_At(page, heading.x, heading.y), QColor(192, 192, 192));
        EXPECT_EQ(Colour_At(page, name.x, name.y).rgb(), QColor(Qt::white).rgb());
        EXPECT_EQ(Lines_Drawn(page, Qt::black).first().pen.width, 10) << "the chart's are wider";
    }
}

TEST_F(Individual_Report_Sheet, ABlankCellIsAHyphenAndABlankNameIsNot) {
    const auto hyphens = [this](int from, int to) { // of the places from the left
        const auto all = Lines_Of(Build({.Profile = false}), u"-"_s);
        return std::count_if(all.begin(), all.end(),
                             [&](const auto& one) { return one.x >= from && one.x < to; });
    };
    constexpr int names = 792, numbers = names + 1440, centiles = numbers + 720;
    EXPECT_EQ(hyphens(names, numbers), 0);
    EXPECT_EQ(hyphens(numbers, centiles), 9);
    state.summary(2, 1) = u""_s;  // an empty name prints as a space
    state.summary(3, 1) = u" "_s; // a space is the blank of this column
    state.summary(4, 2) = u" "_s; // and not of the others
    EXPECT_EQ(hyphens(names, numbers), 1);
    EXPECT_EQ(hyphens(numbers, centiles), 8);
}

TEST_F(Individual_Report_Sheet, TheChartFollowsTheScaleAndTheGround) {
    Score_All_At(84, 0.995);
    const QString z_title = u"Standard Deviation Units (Z Scores)"_s;
    const std::tuple<QString, QString, QString, QColor, int> cases[] = {
        {u"P"_s, u"GREY"_s, u"Centiles"_s, Qt::black, 9320 - 84 * 50},
        {u"P"_s, u"WHITE"_s, u"Centiles"_s, Qt::white, 9320 - 84 * 50},
        {u"Z"_s, u"GREY"_s, z_title, Qt::white, 6820 - 979},
        {u"Z"_s, u"WHITE"_s, z_title, Qt::white, 6820 - 979},
    };
    for (const auto& [mode, ground, title, low_in_chart, bar_top] : cases) {
        SCOPED_TRACE((mode + ground).toStdString());
        state.Chart_Mode = mode;
        state.Chart_Background = ground;
        const preview::Drawing& page = Build({.Legend = false});
        EXPECT_EQ(Lines_Of(page, title).size(), 1);
        EXPECT_EQ(Colour_At(page, 1300, 9300).rgb(), low_in_chart.rgb()); // left of the bars
        EXPECT_EQ(Rectangles_Filled(page, Red).first().y, bar_top + 20);
    }
}

TEST_F(Individual_Report_Sheet, TheNoteReturnsUntilThePageIsOpenedAnew) {
    Score_All_At(40);
    EXPECT_TRUE(Lines_Of(Build(), Note).isEmpty());
    scores.Tolvens_Terminated = true;
    EXPECT_TRUE(Lines_Of(Build({.Profile = false}), Note).isEmpty());
    const auto& note = Only_Line(Build(), Note);
    EXPECT_EQ(QPoint(note.x, note.y), QPoint(500, 4160));
    EXPECT_EQ(note.colour, QColor(0, 0, 255));
    scores.Tolvens_Terminated = false;
    state.Chart_Mode = u"Z"_s;
    EXPECT_EQ(Lines_Of(Build(), Note).size(), 1);
    EXPECT_TRUE(Lines_Of(Build({.Profile = false}), Note).isEmpty());
    report.Report_Setup();
    EXPECT_TRUE(Lines_Of(Build(), Note).isEmpty());
}

TEST_F(Individual_Report_Sheet, ALongCommentIsWholeAndTheFootGivesWay) {
    const QStringList words = Words(400);
    state.comment.Pupil_Comment = words.join(u' ');
    const preview::Drawing& page = Build();
    EXPECT_EQ(sheet.PageCount(), 1);
    QStringList printed;
    double last = 0;
    for (const auto& line : All_Of<preview::Text_Operation>(page))
        if (line.text.startsWith(u"word"_s)) {
            printed += line.text.split(u' ');
            last = std::max(last, Ink_Of(line).bottom());
            EXPECT_LE(Ink_Of(line).right(), 144 + 10080);
        }
    EXPECT_EQ(printed, words);
    ASSERT_GT(last, 14810); // or this comment is too short for the case
    EXPECT_LT(last, 16838);
    const auto covers = Rectangles_Filled(page, Qt::white);
    ASSERT_FALSE(covers.isEmpty());
    const auto& cover = covers.last();
    const QRectF foot = Ink_Of(Lines_Of(page, u"Hillside Primary School"_s).first());
    EXPECT_TRUE(QRectF(cover.x, cover.y, cover.width, cover.height).contains(foot));
    EXPECT_LT(cover.y, 14800);

    state.comment.Pupil_Comment = Words(200).join(u' ');
    EXPECT_NE(Rectangles_Filled(Build(), Qt::white).last().width, 11906);
}

TEST_F(Individual_Report_Sheet, ACommentIsOverWhereItClearsTheFootInEitherPosition) {
    const int room = Lines_Of_Comment({}).room;
    for (const bool moved : {false, true})
        for (const int lines : {1, room, room + 1}) {
            SCOPED_TRACE((moved ? 1000 : 0) + lines);
            sheet.Keep_To_Margins = moved;
            const QString& comment = state.comment.Pupil_Comment = QStringList(lines, u"gyp"_s).join(u'\n');
            const preview::Drawing& page = Build();
            EXPECT_EQ(Lines_Of(page, u"gyp"_s).size(), Lines_Of_Comment(comment).used);
            const auto covers = Rectangles_Filled(page, Qt::white);
            EXPECT_EQ(!covers.isEmpty() && covers.last().width == 11906,
                      Lines_Of_Comment(comment).Over() > 0);
            if (lines <= room) {
                EXPECT_EQ(Overlaps(page).filter(u"gyp"_s), QStringList());
            }
        }
}

TEST_F(Individual_Report_Sheet, NothingOverlapsInAnyState) {
    const QString names[] = {u"Smith Oliver"_s,
                             u"Featherstonehaugh-Cholmondeley-Majoribanks Maximilian Ángeles-Élodie Öztürk"_s,
                             u"Wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww"_s};
    const QString schools[] = {
        u"Hillside Primary School"_s,
        u"St Bartholomew's and Holy Trinity Church of England Primary School and Nursery"_s};
    state.comment.Pupil_Comment = Words(150).join(u' ');
    for (std::size_t i = 0; i < 2 * std::size(names); ++i) {
        const QString& name = state.Pupil_Name = names[i / 2];
        installation.Institution = schools[i % 2];
        for (int terminated = 0; terminated < 4; ++terminated)
            for (const qint16 centile : {2, 60}) {
                SCOPED_TRACE(name.toStdString() + std::to_string(terminated));
                scores.Tolvens_Terminated = terminated & 1;
                scores.Friends_Terminated = terminated & 2;
                state.Show_Time_Bars = terminated == 0;
                Score_All_At(centile);
                EXPECT_EQ(Overlaps(Build()), QStringList());
                const QRectF head = Ink_Of(Lines_Of(sheet.Page(1), installation.Institution).last());
                EXPECT_GE(head.top(), 0);
                EXPECT_NEAR(head.center().x(), 11906 / 2.0, 1);
            }
    }
}

TEST_F(Individual_Report_Sheet, InsideTheMarginsAllMovesAndTheSchoolStandsAlone) {
    const preview::Drawing told = Build();
    sheet.Keep_To_Margins = true;
    const preview::Drawing moved = Build();
    for (const QString& text : {u"Smith Oliver"_s, u"Module"_s, u"Accuracy"_s, u"Works with care."_s})
        EXPECT_EQ(QPoint(Only_Line(moved, text).x, Only_Line(moved, text).y),
                  QPoint(Only_Line(told, text).x + 720, Only_Line(told, text).y + 1080));
    EXPECT_NEAR(Ink_Of(Only_Line(moved, u"Smith Oliver"_s)).center().x(), 11906 / 2.0, 1);
    const QRectF school = Ink_Of(Lines_Of(moved, u"Hillside Primary School"_s).last());
    EXPECT_NEAR(school.center().y(), 1080 / 2.0, 1);
    EXPECT_EQ(Overlaps(moved), QStringList());
    state.comment.Pupil_Comment = Words(400).join(u' ');
    const auto& last = std::get<preview::Text_Operation>(Build().operations.back());
    EXPECT_EQ(last.text, Long_Product_Line());
    EXPECT_LT(Ink_Of(last).bottom(), 16838);
    EXPECT_EQ(Overlaps(sheet.Page(1)).filter(last.text), QStringList()) << "a long comment moves less far";
}

TEST_F(Individual_Report_Sheet, WhatDividesCellsIsNoTroubleInAName) {
    installation.Institution = u"St Mary's; Leeds | North"_s;
    state.Pupil_DOB = u"09|02;2020"_s;
    const preview::Drawing& page = Build();
    EXPECT_EQ(Lines_Of(page, u"St Mary's\u037E Leeds \u00A6 North"_s).size(), 2);
    EXPECT_EQ(Only_Line(page, u"Date printed: 15/06/2026"_s).x, 913 + 6500 + 90);
}
