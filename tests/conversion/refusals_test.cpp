#include "conversion/jet_file.h"
#include "conversion/jet_samples.h"
#include "support/database_beside.h"
#include "support/narrow_places.h"
#include "support/on_windows.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

const QByteArray& Working() {
    static const QByteArray bytes = Bytes_Of(Test_Data(u"jet4-data.mdb"_s));
    return bytes;
}

QByteArray Changed(qsizetype at, const QByteArray& by) {
    QByteArray bytes = Working();
    return bytes.replace(at, by.size(), by);
}

// The page on which that text stands belongs to no table any more.
QByteArray Without_The_Page_Of(const QString& text) {
    QByteArray bytes = Working();
    constexpr qsizetype page = 4096;
    const qsizetype place = bytes.indexOf(Stored_Text(text));
    return bytes.replace(place / page * page, page, QByteArray(page, '\0'));
}

} // namespace

TEST(Refusals, SayWhatIsWrongAndLeaveNothing) {
    const std::tuple<QString, QByteArray, QString> cases[] = {
        {u"empty"_s, {}, u"empty"_s},
        {u"text"_s, "a line of text, and no database at all", u"no Access database"_s},
        {u"newer format"_s, Bytes_Of(Test_Data(u"expected-template.sqlite"_s)), u"needs no conversion"_s},
        {u"later Access"_s, Changed(4, "Standard ACE DB"), u"Access 2007 or later"_s},
        {u"unknown version"_s, Changed(0x14, "\x7f"), u"damaged"_s},
        {u"password"_s, With_Password(Working(), u"secret"_s), u"password"_s},
        {u"encrypted"_s, Encrypted(Working()), u"encrypted"_s},
        {u"header alone"_s, Working().left(100), u"no Access database"_s},
        {u"cut within a page"_s, Working().left(600'000), u"cut short"_s},
        {u"cut behind a page"_s, Working().left(100 * 4096), u"damaged"_s},
        {u"last page lost"_s, Working().chopped(60 * 4096), u"damaged"_s},
        {u"torn page"_s, Without_The_Page_Of(u"GREREN288IXR"_s), u"damaged"_s},
        {u"page of the catalogue"_s, Without_The_Page_Of(u"Yoon_TimeNorms"_s), u"list of its tables"_s},
        {u"nothing but a header"_s, Working().left(4096) + QByteArray(50 * 4096, '\0'), u"damaged"_s},
        {u"noise behind the header"_s, Working().left(4096) + QByteArray(50 * 4096, '\xa5'), u"damaged"_s},
    };
    for (const auto& [name, bytes, told] : cases) {
        SCOPED_TRACE(name.toStdString());
        const Conversion_Folder folder;
        const QString source = folder.Put(u"source.mdb"_s, bytes);
        const QString why = Why_Refused(source, folder.Place(u"target.mdb"_s));
        EXPECT_TRUE(why.contains(told)) << why.toStdString();
        EXPECT_FALSE(why.contains(u'\n'));
        EXPECT_EQ(folder.Names(), QStringList{u"source.mdb"_s});
        EXPECT_EQ(Bytes_Of(source), bytes);
    }
}

// A flipped letter can't be noticed, and is converted as it stands; half of them fall where pages are linked.
TEST(Refusals, FlippedBitsGiveAWholeTargetOrNone) {
    std::mt19937 random(1);
    int converted = 0;
    for (int file = 0; file < 40; ++file) {
        SCOPED_TRACE(file);
        QByteArray bytes = Working();
        const quint32 page = random() % quint32(bytes.size() / 4096) * 4096;
        for (const quint32 at : {page + random() % 96, random() % quint32(bytes.size())})
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
        const Conversion_Folder folder;
        const QString target = folder.Place(u"target.mdb"_s);
        const QString why = Why_Refused(folder.Put(u"source.mdb"_s, bytes), target);
        EXPECT_EQ(folder.Names().contains(u"target.mdb"_s), why.isEmpty());
        EXPECT_EQ(folder.Names().size(), why.isEmpty() ? 2 : 1);
        if (!why.isEmpty()) continue;
        EXPECT_EQ(Database_Beside(target).Value(u"PRAGMA integrity_check"_s), u"ok"_s);
        ++converted;
    }
    EXPECT_TRUE(converted > 0 && converted < 40) << converted;
}

TEST(Refusals, AFileThatIsNone) {
    const Conversion_Folder folder;
    QDir(folder.Place(u"."_s)).mkdir(u"sub"_s);
    EXPECT_EQ(Why_Refused(folder.Place(u"none.mdb"_s), folder.Place(u"t"_s)), u"There is no such file."_s);
    EXPECT_EQ(Why_Refused(folder.Place(u"sub"_s), folder.Place(u"t"_s)), u"It is a folder."_s);
    EXPECT_EQ(folder.Names(), QStringList{u"sub"_s});
}

TEST(Refusals, ATargetThatMayNotBeWritten) {
    const Conversion_Folder folder;
    const QByteArray bytes = Bytes_Of(Test_Data(u"jet4-template.mdb"_s));
    const QString source = folder.Put(u"source.mdb"_s, bytes);
    QDir(folder.Place(u"."_s)).mkdir(u"sub"_s);
    folder.Put(u"taken.mdb"_s, "something of the user's");
    folder.Put(u"open.mdb-journal"_s, "what another program left");
    QFile::link(u"/dev/null"_s, folder.Place(u"device"_s));
    QFile::link(folder.Place(u"nowhere"_s), folder.Place(u"dangling.mdb"_s));
    const QStringList before = folder.Names();
    const std::pair<QString, QString> cases[] = {
        {u"source.mdb"_s, u"into itself"_s},
        {u"sub/../source.mdb"_s, u"into itself"_s},
        {u"sub"_s, u"is a folder"_s},
        {u"device"_s, On_Windows ? u"there already"_s : u"isn't a file"_s}, // there a link is a file
        {u"taken.mdb"_s, u"there already"_s},
        {u"dangling.mdb"_s, u"there already"_s},
        {u"open.mdb"_s, u"open.mdb-journal"_s},
        {u"missing/target.mdb"_s, u"can't be written: Path not found"_s},
    };
    for (const auto& [target, told] : cases) {
        SCOPED_TRACE(target.toStdString());
        const QString why = Why_Refused(source, folder.Place(target));
        EXPECT_TRUE(why.contains(told)) << why.toStdString();
        EXPECT_EQ(folder.Names(), before);
    }
    EXPECT_EQ(Bytes_Of(folder.Place(u"taken.mdb"_s)), "something of the user's");
    EXPECT_EQ(Bytes_Of(source), bytes);
}

TEST(Refusals, ADiskWithoutRoom) {
    const Small_Disk disk(512);
    if (!disk.Is_There()) GTEST_SKIP() << "this account may not mount a disk";
    for (const int free_kilobytes : {0, 8, 100, 250}) {
        SCOPED_TRACE(free_kilobytes);
        disk.Fill_Up_To(free_kilobytes);
        const QStringList before = QDir(disk.Folder()).entryList(QDir::Files);
        const QString why = Why_Refused(Test_Data(u"jet4-data.mdb"_s), disk.Folder() + u"/target.mdb"_s);
        EXPECT_TRUE(why.contains(u"full"_s)) << why.toStdString();
        EXPECT_EQ(QDir(disk.Folder()).entryList(QDir::Files), before);
    }
}

TEST(Refusals, AFolderThatMayNotBeWritten) {
    const Conversion_Folder folder;
    const Plain_Account account;
    if (!account.Is_There()) GTEST_SKIP() << "this account may write everywhere";
    const QString file = Test_Data(u"jet4-data.mdb"_s);
    if (!QFile(file).open(QIODevice::ReadOnly))
        GTEST_SKIP() << "the sources lie where that account may not look";
    const QString why = Why_Refused(file, u"/target.mdb"_s);
    EXPECT_TRUE(why.contains(u"can't be written: Permission denied"_s)) << why.toStdString();
}

TEST(Refusals, OnlyGenuineFilesCountAsSuch) {
    const Conversion_Folder folder;
    const std::pair<QByteArray, bool> cases[] = {
        {Working(), true},
        {Encrypted(Working()), true}, // what is wrong with it is told when it is converted
        {Working().left(1000), true},
        {Bytes_Of(Test_Data(u"expected-template.sqlite"_s)), false},
        {"Standard Jet DB", false},
        {{}, false},
    };
    for (const auto& [bytes, is_one] : cases)
        EXPECT_EQ(conversion::Is_Jet_File(folder.Put(u"file"_s, bytes)), is_one)
            << bytes.left(20).toStdString();
    EXPECT_FALSE(conversion::Is_Jet_File(folder.Place(u"none"_s)));
    EXPECT_FALSE(conversion::Is_Jet_File(folder.Place(u"."_s)));
}
