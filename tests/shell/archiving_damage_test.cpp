// Long rows of faults: each load must leave the old database or the new one.

#include "shell/archiving_fixture.h"
#include "support/narrow_places.h"

#include <random>

using namespace test_support;

namespace {

class Rows_Of_Faults : public Archiving {
protected:
    Rows_Of_Faults() { Work_In(sample.Folder() + u"/in use"_s); }
    void Work_In(const QString& folder) {
        QDir().mkpath(folder);
        installation.Database_Path = folder + u"/Mevo05Data.mdb"_s;
    }
    void Put_Working_Database_Back() {
        QFile::remove(installation.Database_Path);
        ASSERT_TRUE(QFile::copy(sample.Path(), installation.Database_Path));
        for (const QString& name : Archives())
            QFile::remove(In_Archives(name));
    }
    // Loads with that much room, more each time, until all steps are done: some fail, and some don't.
    void Load_With(qint64 most, qint64 step, const std::function<int(qint64 room)>& load) {
        int failed = 0;
        for (qint64 room = 0; room < most; room += step) {
            SCOPED_TRACE(room);
            const int error = load(room);
            EXPECT_TRUE(error == 0 || error == basics::errors::Disk_Full) << error;
            failed += error != 0;
            Expect_Old_Or_New(error);
        }
        EXPECT_GT(failed, most / step / 5);
        EXPECT_LT(failed, most / step);
    }
    // How many pupils a load leaves, and that it leaves them whole.
    void Expect_Old_Or_New(int error) {
        Expect_Whole(installation.Database_Path, error == 0 ? u"30"_s : u"12"_s);
        EXPECT_EQ(QDir(QFileInfo(installation.Database_Path).path()).entryList({u"*.part"_s, u"*-journal"_s}),
                  QStringList());
        EXPECT_EQ(Archives().filter(u"before_load"_s).size(), error == 0 ? 1 : 0);
    }
};

} // namespace

TEST_F(Rows_Of_Faults, FlippedBitsAreFoundOrHarmlessAndALostEndIsFound) {
    const QByteArray sound = Bytes_Of(archive.Path());
    std::mt19937 random(5); // NOLINT: the same files in every run
    std::uniform_int_distribution<qsizetype> anywhere(0, sound.size() - 1);
    std::uniform_int_distribution<qsizetype> in_the_header(0, 99);
    int refused = 0;
    constexpr int files = 300;
    for (int file = 0; file < files; ++file) {
        QByteArray bytes = sound;
        for (int flip = 0; flip <= file % 8; ++flip) {
            const qsizetype byte = file % 3 == 0 ? in_the_header(random) : anywhere(random);
            bytes[byte] = static_cast<char>(bytes[byte] ^ (1 << (flip % 8)));
        }
        const bool cut_off = file % 3 == 1;
        if (cut_off) bytes.truncate(anywhere(random));
        SCOPED_TRACE(file);
        const QString hostile = archive.Folder() + u"/hostile.mdb"_s;
        Write_Bytes(hostile, bytes);
        Put_Working_Database_Back();
        Open();
        const int error = Error_Of_Loading(hostile);
        refused += error != 0;
        EXPECT_TRUE(error != 0 || !cut_off);
        const Database_Beside database(installation.Database_Path);
        ASSERT_EQ(database.Value(u"PRAGMA integrity_check"_s), u"ok"_s);
        ASSERT_TRUE(error == 0 || Bytes_Of(installation.Database_Path) == Bytes_Of(sample.Path()));
    }
    EXPECT_GT(refused, files / 4);
    EXPECT_LT(refused, files);
    RecordProperty("refused", refused);
}

TEST_F(Rows_Of_Faults, ADiskThatFillsUpAnywhereLeavesTheOldOrTheNewDatabase) {
    const int size = static_cast<int>(QFileInfo(archive.Path()).size() / 1024);
    const Small_Disk disk(size * 8);
    if (!disk.Is_There()) GTEST_SKIP() << "no right to mount a small disk";
    Work_In(disk.Folder());
    installation.Archive_Folder = disk.Folder() + u"/archives"_s;
    QDir().mkpath(installation.Archive_Folder);
    Open();
    Load_With(size * 5, size / 12, [&](qint64 free) {
        QFile::remove(disk.Folder() + u"/ballast"_s);
        Put_Working_Database_Back();
        disk.Fill_Up_To(static_cast<int>(free));
        return Error_Of_Loading(archive.Path());
    });
}

TEST_F(Rows_Of_Faults, AQuotaAtAnyLengthLeavesTheOldOrTheNewDatabase) {
    if (!Bounded_Files(1024 * 1024 * 1024).Is_There()) GTEST_SKIP() << "no bound for the size of files";
    const qint64 size = QFileInfo(archive.Path()).size();
    Load_With(size * 3 / 2, size / 40, [&](qint64 bound) {
        Put_Working_Database_Back();
        Open();
        const Bounded_Files quota(bound);
        return Error_Of_Loading(archive.Path());
    });
}
