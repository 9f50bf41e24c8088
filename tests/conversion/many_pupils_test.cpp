#include "conversion/jet_samples.h"
#include "conversion/plain_database.h"
#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

// 63 times 40 pupils: the most that the program lists, and more pages than a table's own map of them takes.
TEST(ManyPupils, AreAllConverted) {
    QStringList codes;
    for (const QStringList& row :
         Plain_Rows(Test_Data(u"expected-data.sqlite"_s), u"SELECT StudentCode FROM Mevo_Pupils"_s))
        codes.append(row.first());
    const Conversion_Folder folder;
    const QString source =
        folder.Put(u"many.mdb"_s, With_Pupils_Repeated(Bytes_Of(Test_Data(u"jet4-data.mdb"_s)), codes, 63));
    const QString target = folder.Place(u"target.mdb"_s);

    qint64 read = 0;
    for (const conversion::Table_Summary& table : Convert(source, target)) {
        EXPECT_FALSE(table.lost_key) << table.table.toStdString();
        read += table.read;
    }
    EXPECT_EQ(read, 1524 + 62 * 40 * 10);
    EXPECT_EQ(Plain_Rows(target, u"SELECT count(DISTINCT StudentCode) FROM Mevo_Pupils"_s),
              QList<QStringList>{{u"2520"_s}});
    // Each copy holds what its pupil holds, but for the code.
    EXPECT_EQ(Plain_Rows(target,
                         u"SELECT count(*) FROM (SELECT Surname, Forename, DOB, Comment, Yoon_age FROM "
                         "Mevo_Pupils GROUP BY 1, 2, 3, 4, 5 HAVING count(*) % 63 = 0)"_s),
              QList<QStringList>{{u"40"_s}});
}
