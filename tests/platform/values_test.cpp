#include "platform/basics/bounded.h"
#include "platform/basics/dates.h"
#include "platform/basics/kept_date.h"
#include "platform/basics/native_path.h"
#include "platform/basics/number_text.h"
#include "platform/basics/text_order.h"
#include "platform/basics/value.h"
#include "support/error_number.h"
#include "support/files.h"
#include "support/printing.h"

#include <QDir>
#include <QTemporaryDir>
#include <compare>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace basics;
using test_support::Error_Number;

TEST(NumberText, TwoDecimalsRoundTheDecimalValueAwayFromZero) {
    const std::pair<double, QString> cases[] = {
        {1.005, u"1.01"_s},       {1005 / 1000.0, u"1.01"_s}, {2.675, u"2.68"_s},   {0, u"0.00"_s},
        {0.004, u"0.00"_s},       {0.005, u"0.01"_s},         {9.995, u"10.00"_s},  {0.0049, u"0.00"_s},
        {1234.5, u"1234.50"_s},   {12.344999, u"12.34"_s},    {-1.005, u"-1.01"_s}, {-0.001, u"0.00"_s},
        {999999, u"999999.00"_s}, {1e-9, u"0.00"_s}};
    for (const auto& [number, text] : cases) {
        SCOPED_TRACE(number);
        EXPECT_EQ(Two_Decimals(number), text);
    }
}

TEST(NumberText, TheSignsPlaceIsKeptForWhatIsNotNegative) {
    EXPECT_EQ(Signed_Number(87), u" 87"_s);
    EXPECT_EQ(Signed_Number(0), u" 0"_s);
    EXPECT_EQ(Signed_Number(-2147467259), u"-2147467259"_s);
    EXPECT_EQ(Plain_Number(-1.88), u"-1.88"_s);
    EXPECT_EQ(Plain_Number(0.1 + 0.2), u"0.3"_s);
}

TEST(Rounding, TiesGoToTheEvenNumber) {
    const std::pair<double, double> cases[] = {{2.5, 2},   {3.5, 4},    {-2.5, -2},
                                               {-3.5, -4}, {2.4999, 2}, {0.49999999999999994, 0},
                                               {0.5, 0},   {1.5, 2}};
    for (const auto& [number, rounded] : cases) {
        SCOPED_TRACE(number);
        EXPECT_EQ(Round_To_Even(number), rounded);
    }
}

TEST(NameOrder, IsOneOnEverySystem) {
    // Each comes before all that follow; "=" stands between those that differ in case or coding alone.
    const QStringList places =
        u"; Zoe;- none -;'Ann';(Ann);10 Owls;2 Owls;Ægir=æGIR;Agnes;d'Arcy=D'ARCY;De Souza Ava=de souza ava;"
        "De Souza Zoe;Dean;Đorđe;Edge;Elan;Élan=éLAN=E\u0301lan;Ember;Galla;Gal·la=Gaŀla;Ipek;İpek;Işık;"
        "Łukasz;Lukes;Nậm=Na\u0302\u0323m;Nunez;Nuñez;Núñez;O Hara;O'Hara=O'HARA;O’Hara;Oakes;Odegaard;"
        "Ødegaard;Odell;Smith;Smith Jones;Smith-Jones;Smithson;Strass;Straß=STRAẞ;Szabo;"
        "Zoe=ZOE=Zo\u00ADe;Zoé;Zoë;Zog;Þór;"
        "Αθηνά;Ёлкин;Иван;王;\uFFFD;𠮷"_s.split(u';');
    int told_by_starts = 0;
    for (qsizetype at = 0; at < places.size() * places.size(); ++at) {
        const qsizetype one = at / places.size();
        const qsizetype other = at % places.size();
        for (const QString& left : places[one].split(u'='))
            for (const QString& right : places[other].split(u'=')) {
                const std::string texts[] = {left.toStdString(), right.toStdString()};
                SCOPED_TRACE(texts[0] + " and " + texts[1]);
                EXPECT_EQ(Compare_Names(texts[0], texts[1]) <=> 0, one <=> other);
                const auto by_starts = Compare_Starts(Name_Start(texts[0]), Name_Start(texts[1]));
                EXPECT_EQ(by_starts.value_or(one - other) <=> 0, one <=> other);
                told_by_starts += by_starts.has_value();
            }
    }
    EXPECT_GT(told_by_starts, places.size() * places.size() / 2) << "most of them begin differently";
    EXPECT_EQ(Compare_Names("Zo\xFF", "zo\uFFFD"), 0);
    const std::tuple<QString, QString, bool> parts[] = {{u"zizek"_s, u"Žižek Luka"_s, true},
                                                        {u"ŁUK"_s, u"Lukes Ann"_s, true},
                                                        {u"k l"_s, u"Žižek Luka"_s, true},
                                                        {u"zek"_s, u"Ze"_s, false},
                                                        {u""_s, u"Ann"_s, true},
                                                        {u"lukaz"_s, u"Łukasik"_s, false}};
    for (const auto& [part, text, stands] : parts)
        EXPECT_EQ(Stands_In(part.toStdString(), text.toStdString()), stands) << qPrintable(part);
}

TEST(StoredDates, AreReadInEveryFormThatFilesHold) {
    const std::pair<QString, QString> cases[] = {
        {u"01/02/2003"_s, u"01/02/2003"_s},         {u"1/2/03"_s, u"01/02/2003"_s},
        {u"01/02/30"_s, u"01/02/1930"_s},           {u"01/02/29"_s, u"01/02/2029"_s},
        {u"2003-02-01"_s, u"01/02/2003"_s},         {u"2003-02-01 09:05:07"_s, u"01/02/2003 09:05:07"_s},
        {u"01/02/2003 00:00:00"_s, u"01/02/2003"_s}};
    for (const auto& [stored, text] : cases) {
        SCOPED_TRACE(stored.toStdString());
        const auto date = Stored_Date(stored);
        ASSERT_TRUE(date.has_value());
        EXPECT_EQ(Date_Text(*date), text);
        EXPECT_EQ(Stored_Date_Text(stored), text);
        EXPECT_EQ(QString(Kept_Date(stored)), text);
    }
    for (const QString& none : {u""_s, u"31/02/2003"_s, u"13/13/2003"_s, u"yesterday"_s, u"2003"_s})
        EXPECT_TRUE(!Stored_Date(none) && Stored_Date_Text(none) == none && QString(Kept_Date(none)) == none)
            << none.toStdString();
    EXPECT_TRUE(Kept_Date(u" \t "_s).isEmpty() && QString(Kept_Date(u" "_s)).isEmpty());
}

TEST(TaggedValue, ConvertsByTheRunTimesRules) {
    EXPECT_EQ(Value(2.5).As_Integer(), 2);
    EXPECT_EQ(Value(u"023"_s).As_Integer(), 23);
    EXPECT_EQ(Error_Number([] { Value().As_Integer(); }), errors::Invalid_Use_Of_Null);
    EXPECT_EQ(Error_Number([] { Value().As_Text(); }), errors::Invalid_Use_Of_Null);
    EXPECT_EQ(Error_Number([] { Value(u"twelve"_s).As_Long(); }), errors::Type_Mismatch);
    EXPECT_EQ(Error_Number([] { Value(32768).As_Integer(); }), errors::Overflow);
    EXPECT_EQ(Value(32767.4).As_Integer(), 32767);
    EXPECT_EQ(Value().Text_Or_Empty(), u""_s);
}

TEST(TaggedValue, ComparesAsStored) {
    EXPECT_TRUE(Value() == Value());
    EXPECT_TRUE(Value() == Value(u""_s));
    EXPECT_TRUE(Value(3) == Value(3.0));
    EXPECT_FALSE(Value(3) == Value(u"3"_s));
    EXPECT_FALSE(Value(u"Red"_s) == Value(u"red"_s));
    EXPECT_TRUE(Value(-1).Reads(u"-1"));
    EXPECT_TRUE(Value(u"-1"_s).Reads(u"-1"));
}

TEST(BoundedList, RefusesAPlaceBeyondItsEnds) {
    Bounded<int, 3> list;
    list[3] = 7;
    EXPECT_EQ(list[3], 7);
    EXPECT_EQ(Error_Number([&] { list[4] = 1; }), errors::Subscript_Out_Of_Range);
    EXPECT_EQ(Error_Number([&] { list[-1] = 1; }), errors::Subscript_Out_Of_Range);
}

#ifndef _WIN32
TEST(NativePath, FindsWhatDiffersInCaseAndKeepsWhatIsMissing) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath(u"System"_s);
    const QString file = folder.filePath(u"System/P_Grey.BMP"_s);
    test_support::Write_Bytes(file, "");
    EXPECT_EQ(Native_Path(folder.path() + u"\\system\\p_grey.bmp"_s), file);
    EXPECT_EQ(Native_Path(folder.path() + u"\\system\\absent.bmp"_s),
              folder.filePath(u"System/absent.bmp"_s));
    EXPECT_EQ(Native_Path(folder.path() + u"/\\System\\P_Grey.BMP"_s), file);
}
#endif
