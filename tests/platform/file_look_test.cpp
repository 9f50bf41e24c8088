#include "foundation/schema.h"
#include "platform/database/engine_errors.h"
#include "platform/database/files/file_look.h"
#include "support/error_number.h"
#include "support/files.h"
#include "support/other_workstation.h"
#include "support/printing.h"
#include "support/sample_file.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;
using namespace test_support;

TEST(FileLook, TellsWhoseDatabaseItIsAndOfWhichVersion) {
    const Sample_File sample;
    EXPECT_TRUE(foundation::Is_Of_Version_51(Look_Into(sample.Path()).tables));
    sample.Make_Older();
    sample.Run(u"ALTER TABLE Karrel_Norms RENAME \"Raw Score\" TO Raw"_s); // its rows' places tell the score
    sample.Make_UTF_16();
    const File_Look look = Look_Into(sample.Path());
    EXPECT_EQ(look.encoding, u"UTF-16le"_s);
    EXPECT_EQ(look.damage, u""_s);
    EXPECT_EQ(look.tables[u"Mevo_Pupils"_s].first(), u"StudentCode"_s);
    EXPECT_EQ(Lacking(look.tables, foundation::Needed_Tables()), QStringList());
    EXPECT_FALSE(foundation::Is_Of_Version_51(look.tables));

    sample.Run(u"ALTER TABLE Mevo_Means RENAME Module TO Other"_s);
    sample.Run(u"DROP TABLE Yoon_Norms"_s);
    EXPECT_EQ(Lacking(Look_Into(sample.Path()).tables, foundation::Needed_Tables()),
              (QStringList{u"Mevo_Means.Module"_s, u"Yoon_Norms"_s}));
    Write_Bytes(sample.Path(), Bytes_Of(sample.Path()).chopped(4096));
    EXPECT_NE(Look_Into(sample.Path()).damage, u""_s);
    Write_Bytes(sample.Path(), "no database");
    EXPECT_EQ(Error_Number([&] { Look_Into(sample.Path()); }), errors::Engine_Failure);
}

// What a stopped machine left beside it counts, and stays for the program that opens the file next.
TEST(FileLook, ChangesNothingInTheFileOrBesideIt) {
    const Sample_File crashed, logged;
    Crash_In_A_Transaction(crashed.Path());
    Other_Workstation writer(logged.Path());
    writer.Run(u"PRAGMA journal_mode = WAL"_s);
    writer.Run(u"CREATE TABLE Logged (a)"_s);
    writer.Leave_Abruptly();
    const auto all_there = [](const Sample_File& sample) {
        QByteArrayList all;
        for (const QString& name : QDir(sample.Folder()).entryList(QDir::Files))
            all.append(name.toUtf8() + Bytes_Of(sample.Folder() + u'/' + name));
        return all;
    };
    for (const Sample_File* sample : {&crashed, &logged}) {
        const QByteArrayList before = all_there(*sample);
        const File_Look look = Look_Into(sample->Path());
        EXPECT_EQ(look.damage, u""_s);
        EXPECT_EQ(look.tables.contains(u"Logged"_s), sample == &logged);
        EXPECT_GT(before.size(), 1);
        EXPECT_TRUE(all_there(*sample) == before);
    }
}
