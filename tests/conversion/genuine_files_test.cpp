#include "conversion/jet_samples.h"
#include "conversion/plain_database.h"
#include "foundation/schema.h"
#include "support/database_beside.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

class Genuine_Files : public testing::Test {
protected:
    QString Converted(const QString& name) {
        const QString target = folder.Place(name + u".converted"_s);
        Convert(Test_Data(name), target);
        return target;
    }
    static QString Cell(const QString& file, const QString& query) {
        return Database_Beside(file).Value(query);
    }
    Conversion_Folder folder;
};

} // namespace

TEST_F(Genuine_Files, ComeOutAsWhatTheyWereMadeFrom) {
    const std::pair<QString, QString> cases[] = {
        {u"jet4-data.mdb"_s, u"expected-data.sqlite"_s},
        {u"jet4-template.mdb"_s, u"expected-template.sqlite"_s},
    };
    for (const auto& [source, expected] : cases) {
        SCOPED_TRACE(source.toStdString());
        EXPECT_EQ(Tables_That_Differ(Test_Data(expected), Converted(source)), QStringList());
    }
}

TEST_F(Genuine_Files, OneOfAnOlderVersionIsConvertedAsItIs) {
    const QString expected = folder.Put(u"expected.sqlite"_s, Bytes_Of(Test_Data(u"expected-data.sqlite"_s)));
    Database_Beside(expected).Run({u"DROP TABLE Mevo_Groups"_s,
                                   u"ALTER TABLE Mevo_Pupils DROP COLUMN Group_Class"_s,
                                   u"ALTER TABLE Mevo_Pupils DROP COLUMN Password"_s,
                                   u"ALTER TABLE Mevo_Pupils DROP COLUMN Show_Name"_s,
                                   u"ALTER TABLE Mevo_Pupils DROP COLUMN Dob_as_pw"_s});
    EXPECT_EQ(Tables_That_Differ(expected, Converted(u"jet4-before-5.1.mdb"_s)), QStringList());
}

TEST_F(Genuine_Files, TablesHaveTheProgramsTypesAndKeys) {
    const QString converted = Converted(u"jet4-data.mdb"_s);
    QStringList statements;
    for (const foundation::Table& table : foundation::Database_Tables())
        statements.append(foundation::Create_Table_Statement(table));
    const QString fresh = folder.Put(u"fresh"_s, {});
    Database_Beside(fresh).Run(statements);
    const QString columns =
        u"SELECT m.name, i.name, i.type, i.pk FROM sqlite_schema m, pragma_table_info(m.name) i "
        "WHERE m.type = 'table' ORDER BY 1, 2"_s;
    const QList<QStringList> expected = Plain_Rows(fresh, columns);
    ASSERT_GT(expected.size(), 500);
    EXPECT_EQ(Plain_Rows(converted, columns), expected);
    // What the types alone don't tell: no index in the order that the program replaces, and short texts
    // bounded.
    EXPECT_EQ(Cell(converted, u"SELECT count(*) FROM sqlite_schema m, pragma_index_list(m.name) l, "
                              "pragma_index_xinfo(l.name) x WHERE x.coll <> 'BINARY'"_s),
              u"0"_s);
    const QString pupils = u"SELECT sql FROM sqlite_schema WHERE name = 'Mevo_Pupils'"_s;
    EXPECT_TRUE(Cell(converted, pupils).contains(u"CHECK(length(\"Group_Class\") <= 50)"_s));
}

TEST_F(Genuine_Files, DatesStandInTheOneFormThatTheProgramWrites) {
    const QString converted = Converted(u"jet4-data.mdb"_s);
    EXPECT_EQ(
        Cell(
            converted,
            u"SELECT count(*) FROM Mevo_Pupils WHERE DOB NOT GLOB '[0-3][0-9]/[01][0-9]/[12][0-9][0-9][0-9]'"_s),
        u"0"_s);
}

// The format's short form of a text: two marks, then a byte a character, and a zero byte wherever it goes
// over to two bytes a character and back; and characters beyond the first 65536, which take four bytes. Each
// is put where a code of twelve characters stood.
TEST_F(Genuine_Files, TextsOfEveryFormAreRead) {
    const QString rare = u"Zo\U0001F600\U00020BB7 12345"_s;
    const QByteArray short_form =
        QByteArray::fromHex("fffe") + "Zo\xeb O'Haras " + '\0' + Stored_Text(u"Łą€"_s) + '\0' + "xy";
    const QByteArray code = Stored_Text(u"ROBMIA187MZX"_s);
    for (const auto& [stored, text] :
         {std::pair(short_form, u"Zoë O'Haras Łą€xy"_s), {Stored_Text(rare), rare}}) {
        ASSERT_EQ(stored.size(), code.size());
        const QByteArray file = Bytes_Of(Test_Data(u"jet4-data.mdb"_s)).replace(code, stored);
        const QString target = folder.Place(text);
        Convert(folder.Put(u"source.mdb"_s, file), target);
        EXPECT_EQ(Cell(target, u"SELECT StudentCode FROM Mevo_Pupils WHERE Surname = 'Robertsham' AND "
                               "Forename = 'Mia'"_s),
                  text);
    }
}
