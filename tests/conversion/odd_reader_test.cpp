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
        return Convert(source, target, reader);
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
