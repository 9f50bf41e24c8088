#include "sampledb/sample_data.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/printing.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

using Row = QStringList;
using Reader = test_support::Database_Beside;

class SampleData : public testing::Test {
protected:
    QString Database(const sample_data::Options& options) {
        const QString file = folder.filePath(u"%1-%2.mdb"_s.arg(options.pupils).arg(options.seed));
        sample_data::Write_Database(file, options);
        return file;
    }

    QTemporaryDir folder;
};

const QString Table_Names = u"SELECT name FROM sqlite_schema WHERE type = 'table'"_s;

QList<Row> Table_Rows(const Reader& reader, const QString& table) {
    return reader.Rows(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(table));
}

} // namespace

TEST_F(SampleData, TheSeedAloneTellsTheRowsAndATemplateHasThemWithoutThePupils) {
    sample_data::Write_Template(folder.filePath(u"empty.mdb"_s), 7);
    const Reader empty(folder.filePath(u"empty.mdb"_s));
    QFile::rename(Database({.pupils = 12, .seed = 7}), folder.filePath(u"first.mdb"_s));
    const Reader working(folder.filePath(u"first.mdb"_s));
    const Reader again(Database({.pupils = 12, .seed = 7}));
    const Reader other(Database({.pupils = 12, .seed = 8}));
    for (const QString& table : {u"Mevo_Pupils"_s, u"Yoon_Norms"_s})
        EXPECT_NE(Table_Rows(working, table), Table_Rows(other, table));
    for (const QString& table : empty.Column(Table_Names)) {
        SCOPED_TRACE(table.toStdString());
        EXPECT_EQ(Table_Rows(working, table), Table_Rows(again, table));
        if (table == u"Mevo_Groups"_s) continue;
        const bool is_a_pupils = table.endsWith(u"_data"_s) || table == u"Mevo_Pupils"_s;
        EXPECT_EQ(Table_Rows(empty, table).isEmpty(), is_a_pupils);
        EXPECT_EQ(Table_Rows(empty, table) == Table_Rows(working, table), !is_a_pupils);
    }
    EXPECT_EQ(Table_Rows(empty, u"Mevo_Groups"_s),
              (QList<Row>{{u"1"_s, u"Universal"_s, u"0"_s, u"1"_s, u""_s}}));
}

TEST_F(SampleData, ReplacesAnOlderFileByOneThatAnySqliteToolCanUseAndLeavesNothingBeside) {
    test_support::Write_Bytes(folder.filePath(u"12-1.mdb"_s), QByteArray(1 << 20, 'x'));
    const Reader reader(Database({.pupils = 12, .seed = 1}));
    EXPECT_EQ(reader.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
    EXPECT_EQ(reader.Value(u"PRAGMA journal_mode"_s), u"delete"_s);
    EXPECT_EQ(reader.Rows(u"SELECT coll, count(*) FROM sqlite_schema m, pragma_index_xinfo(m.name) x "
                          "WHERE m.type = 'index' AND x.key = 1 GROUP BY coll"_s),
              (QList<Row>{{u"BINARY"_s, u"10"_s}}));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"12-1.mdb"_s});
}

TEST_F(SampleData, SaysInOneLineWhichFileItCantWrite) {
    try {
        sample_data::Write_Template(folder.filePath(u"missing/empty.mdb"_s), 1);
        FAIL() << "a file in a folder that doesn't exist";
    } catch (const std::runtime_error& error) {
        const QString text = QString::fromUtf8(error.what());
        EXPECT_TRUE(text.contains(u"empty.mdb"_s)) << error.what();
        EXPECT_FALSE(text.contains(u'\n')) << error.what();
    }
}
