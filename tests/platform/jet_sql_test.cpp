#include "platform/database/engine_errors.h"
#include "platform/database/jet_sql.h"
#include "support/error_number.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

// With its texts left where they are.
static Translated_Statement Translated(const QString& jet) {
    return Translate_Jet(Lifted_Statement{jet, {}, false});
}

TEST(JetDialect, IsSaidInTheEnginesWords) {
    const std::pair<QString, QString> cases[] = {
        // A sum joins texts where a text stands in it.
        {u"SELECT   surname + ', ' + forename + ' - ' + studentcode AS student FROM p"_s,
         u"SELECT surname || ', ' || forename || ' - ' || studentcode AS student FROM p"_s},
        {u"SELECT a + b FROM t WHERE (x + y) > 0 AND n = 'q'"_s,
         u"SELECT a + b FROM t WHERE ( x + y ) > 0 AND n = 'q'"_s},
        {u"SELECT a + b, c + 'x' FROM t"_s, u"SELECT a + b , c || 'x' FROM t"_s},
        {u"SELECT (a + 'x') + b FROM t"_s, u"SELECT ( a || 'x' ) || b FROM t"_s},
        {u"SELECT t.a + 'x' FROM t"_s, u"SELECT t . a || 'x' FROM t"_s},
        {u"UPDATE t SET n = n + 1 WHERE c = 'a'"_s, u"UPDATE t SET n = n + 1 WHERE c = 'a'"_s},
        {u"SELECT \"it's\" + a FROM t"_s, u"SELECT 'it''s' || a FROM t"_s},
        // Sized texts are limited in definitions only.
        {u"ALTER TABLE Mevo_Pupils ADD [password] TEXT(50)"_s,
         u"ALTER TABLE Mevo_Pupils ADD [password] TEXT(50) COLLATE NOCASE CHECK(length([password]) <= 50)"_s},
        {u"SELECT text(50) FROM t"_s, u"SELECT text ( 50 ) FROM t"_s},
        // What is sorted is sorted by the text order.
        {u"SELECT * FROM t ORDER BY Surname,Forename"_s,
         u"SELECT * FROM t ORDER BY Surname COLLATE TEXT_ORDER , Forename COLLATE TEXT_ORDER"_s},
        {u"SELECT * FROM t ORDER BY a DESC, f(b, c) ASC;"_s,
         u"SELECT * FROM t ORDER BY a COLLATE TEXT_ORDER DESC , f ( b , c ) COLLATE TEXT_ORDER ASC"_s},
        // There are no comments.
        {u"UPDATE t SET a = '' -- WHERE b = 1"_s, u"UPDATE t SET a = '' - - WHERE b = 1"_s},
        {u"SELECT 1 /* all */ FROM t"_s, u"SELECT 1 / * all * / FROM t"_s},
    };
    for (const auto& [jet, sql] : cases)
        EXPECT_EQ(Translated(jet).sql, sql);
}

TEST(JetDialect, RefusesWhateverIsNotOneWholeStatement) {
    for (const QString& jet : {u"SELECT 1; DELETE FROM t"_s, u"UPDATE t SET a = 'x"_s, u"SELECT [a FROM t"_s,
                               u"UPDATE t SET a = ?sol"_s, u"SELECT :name FROM t"_s, u"SELECT `a` FROM t"_s,
                               u""_s, u" ; "_s, u"SELECT 1 \x01"_s, u"SELECT * FROM t WHERE c = 'O'Brien'"_s})
        EXPECT_EQ(test_support::Error_Number([&] { Translated(jet); }), errors::Syntax) << jet.toStdString();
}

TEST(JetDialect, NamesTheTableThatARecordsetWritesTo) {
    EXPECT_EQ(Translated(u"SELECT * FROM Mevo_Pupils WHERE StudentCode = 'x'"_s).table, u"Mevo_Pupils"_s);
    EXPECT_EQ(Translated(u"SELECT * FROM [Mevo_Pupils]"_s).with_row_identity,
              u"SELECT rowid , * FROM [Mevo_Pupils]"_s);
    for (const QString& derived : {u"SELECT DISTINCT a FROM t"_s, u"SELECT a FROM t, u"_s,
                                   u"SELECT a FROM t GROUP BY a"_s, u"DELETE FROM t"_s})
        EXPECT_EQ(Translated(derived).table, u""_s);
}
