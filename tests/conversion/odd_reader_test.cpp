#include "conversion/jet_samples.h"
#include "conversion/plain_database.h"
#include "conversion/refusal.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

// What is told of a genuine file by a reader that doesn't read it.
class Odd_Reader : public testing::Test {
protected:
    ~Odd_Reader() override { qunsetenv("MEVO_ODD_READER"); }

    QString Refused(const char* way) {
        qputenv("MEVO_ODD_READER", way);
        return Why_Refused(source, target, reader);
    }
    QList<conversion::Table_Summary> Converted(const char* way) {
        qputenv("MEVO_ODD_READER", way);
        return conversion::Convert_Jet_File(source, target, conversion::If_There_Is_One::Refuse, reader,
                                            [](const conversion::Progress&) {});
    }
    QList<QStringList> Rows(const QString& query) const { return Plain_Rows(target, query); }

    Conversion_Folder folder;
    QString source = folder.Put(u"source.mdb"_s, Bytes_Of(Test_Data(u"jet4-template.mdb"_s)));
    QString target = folder.Place(u"target.mdb"_s);
    conversion::Reader_Program reader{QStringLiteral(MEVO_ODD_JET_READER), 1500};
};

} // namespace

TEST_F(Odd_Reader, IsNeverBelieved) {
    for (const char* way :
         {"endless", "silent", "crashing", "one row less", "one row more", "without an end", "long claim",
          "no such value", "no such key", "no columns", "no name", "no column name", "impossible date",
          "two tables of a name", "a table too few", "noise", "nothing"}) {
        SCOPED_TRACE(way);
        EXPECT_FALSE(Refused(way).isEmpty());
        EXPECT_EQ(folder.Names(), QStringList{u"source.mdb"_s});
    }
}

TEST_F(Odd_Reader, ThatIsMissingIsNamed) {
    reader.path = folder.Place(u"no-reader"_s);
    EXPECT_TRUE(Refused("nothing").contains(u"no-reader"_s));
    EXPECT_EQ(folder.Names(), QStringList{u"source.mdb"_s});
}

TEST_F(Odd_Reader, WhatTheWatcherThrowsEndsItAndLeavesNothing) {
    qputenv("MEVO_ODD_READER", "silent");
    reader.longest_silence_ms = 60'000;
    const auto stop = [](const conversion::Progress&) { throw conversion::Refusal(u"stopped"_s); };
    EXPECT_THROW(
        conversion::Convert_Jet_File(source, target, conversion::If_There_Is_One::Refuse, reader, stop),
        conversion::Refusal);
    EXPECT_EQ(folder.Names(), QStringList{u"source.mdb"_s});
}

TEST_F(Odd_Reader, TwoRowsOfOneKeyAreBothKept) {
    const QList<conversion::Table_Summary> summary = Converted("twins");
    EXPECT_TRUE(summary.last().lost_key);
    EXPECT_EQ(summary.last().written, 4);
    EXPECT_EQ(Rows(u"SELECT StudentCode FROM Mevo_Pupils ORDER BY rowid"_s),
              (QList<QStringList>{{u"AAA"_s}, {u"BBB"_s}, {u"AAA"_s}, {u"CCC"_s}}));
    EXPECT_EQ(Rows(u"SELECT count(*) FROM sqlite_schema WHERE tbl_name = 'Mevo_Pupils'"_s),
              QList<QStringList>{{u"1"_s}});
}

TEST_F(Odd_Reader, NormsStandInRisingOrderOfRawScore) {
    Converted("shuffled norms");
    EXPECT_EQ(Rows(u"SELECT \"Raw Score\", \"Age 4 Centile\" FROM Karrel_Norms ORDER BY rowid"_s),
              (QList<QStringList>{{u"1"_s, u"3"_s}, {u"2"_s, u"6"_s}, {u"10"_s, u"30"_s}}));
}

TEST_F(Odd_Reader, TablesThatTheProgramDoesntKnowComeAlong) {
    Converted("all types");
    const QString table = u"\"A school's \"\"own\"\" table\""_s;
    EXPECT_EQ(Rows(u"SELECT Year, hex(\"Select\"), hex(\"a \"\"b\"\"\"), \"When\", Rate FROM "_s + table +
                   u" ORDER BY rowid"_s),
              (QList<QStringList>{{u"9007199254740993"_s, u"610062"_s, u"00FF"_s, u"05/06/2004 18:00:00"_s,
                                   u"0.10000000000000001"_s},
                                  {u"-1"_s, u"''"_s, u"''"_s, u"29/12/1899 06:00:00"_s, u"NULL"_s}}));
    EXPECT_EQ(
        Rows(u"SELECT typeof(\"Select\"), typeof(\"a \"\"b\"\"\") FROM "_s + table + u" ORDER BY rowid"_s),
        (QList<QStringList>{{u"text"_s, u"blob"_s}, {u"text"_s, u"null"_s}}));
    EXPECT_EQ(Rows(u"SELECT name, pk FROM pragma_table_info('A school''s \"own\" table') WHERE pk > 0"_s),
              (QList<QStringList>{{u"Year"_s, u"1"_s}, {u"Select"_s, u"2"_s}}));
}

// The file's spelling tells a file of an older version, so it stays; a wider column loses no letter.
TEST_F(Odd_Reader, KnownColumnsTakeTheProgramsTypesAndKeepTheirSpelling) {
    Converted("other types");
    EXPECT_EQ(Rows(u"SELECT name FROM sqlite_schema WHERE name LIKE 'mevo_pupils'"_s),
              QList<QStringList>{{u"MEVO_PUPILS"_s}});
    EXPECT_EQ(Rows(u"SELECT name, type, pk FROM pragma_table_info('MEVO_PUPILS')"_s),
              (QList<QStringList>{{u"studentcode"_s, u"TEXT"_s, u"1"_s},
                                  {u"Group_Class"_s, u"TEXT"_s, u"0"_s},
                                  {u"Tolvens"_s, u"NUMBER"_s, u"0"_s},
                                  {u"DOB"_s, u"DATE"_s, u"0"_s},
                                  {u"Yoon"_s, u"NUMBER"_s, u"0"_s}}));
    EXPECT_EQ(Rows(u"SELECT length(Group_Class), typeof(Tolvens), DOB, Yoon FROM MEVO_PUPILS"_s),
              (QList<QStringList>{{u"80"_s, u"integer"_s, u"3/4/2005"_s, u"''"_s}}));
}

// Both directions of what a column makes of a value count as equal; a changed one doesn't.
TEST_F(Odd_Reader, ComparingAllowsForTheTypesOfTheTarget) {
    for (const char* way :
         {"twins", "shuffled norms", "norms as texts", "all types", "numbered pupils", "other types"}) {
        SCOPED_TRACE(way);
        target = folder.Place(QString::fromLatin1(way));
        Converted(way);
        conversion::Comparison comparison(target);
        conversion::Compare_With_Jet_File(source, comparison, reader, [](const conversion::Progress&) {});
        EXPECT_TRUE(comparison.All_Equal()) << comparison.Examples().join(u'\n').toStdString();
    }
}
