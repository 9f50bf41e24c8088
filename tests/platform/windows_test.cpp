// What only Windows has, asked for by the program's own calls and looked at by the system's.

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/basics/system_failure.h"
#include "platform/database/files/new_file.h"
#include "platform/desktop/qt_platform.h"
#include "platform/preview/page_copy.h"
#include "support/controls.h"
#include "support/error_number.h"
#include "support/files.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <windows.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

class Windows : public testing::Test {
protected:
    Windows() {
        QDir(folder.path()).mkdir(u"with blanks"_s);
        blanks = QDir::toNativeSeparators(folder.filePath(u"with blanks"_s));
    }
    static bool Reg(const QStringList& words) { return QProcess::execute(u"reg"_s, words) == 0; }

    QTemporaryDir folder;
    QString blanks;
    desktop::Qt_Platform bodies;
    desktop::Platform& outside = bodies.Ports();
};

// A program like those of the suite: it writes its words into a file.
const QString Writes = u"\\cmd.exe /c echo 417> "_s;

} // namespace

TEST_F(Windows, TheRegistryIsReadWhereProgramsOfThirtyTwoBitsWrite) {
    const QString key = u"SOFTWARE\\Quend Research\\Mevo Test"_s;
    ASSERT_TRUE(Reg(
        {u"add"_s, u"HKLM\\"_s + key, u"/v"_s, u"Version"_s, u"/d"_s, u"9.0.1"_s, u"/f"_s, u"/reg:32"_s}));
    quintptr handle = 0;
    int type = 0;
    QByteArray buffer(16, 'x');
    ASSERT_EQ(outside.registry.Create_Key(key, desktop::Registry::Read_Access, handle), ERROR_SUCCESS);
    EXPECT_EQ(outside.registry.Query_Value(handle, u"Version"_s, type, buffer), ERROR_SUCCESS);
    EXPECT_EQ(type, desktop::Registry::String_Type);
    EXPECT_STREQ(buffer.constData(), "9.0.1");
    EXPECT_EQ(outside.registry.Query_Value(handle, u"None"_s, type, buffer), ERROR_FILE_NOT_FOUND);
    outside.registry.Close_Key(handle);
    Reg({u"delete"_s, u"HKLM\\"_s + key, u"/f"_s, u"/reg:32"_s});
}

TEST_F(Windows, PathsAreTheSystemsOwn) {
    const QString brief = outside.documents.Short_Path(blanks);
    EXPECT_FALSE(brief.isEmpty() || brief.contains(u' ')) << brief.toStdString();
    Write_Bytes(blanks + u"\\pupils.txt"_s, "");
    EXPECT_EQ(outside.files.Dir(brief + u"\\PUPILS.TXT"_s).toLower(), u"pupils.txt"_s);
    EXPECT_EQ(outside.documents.Short_Path(blanks + u" none"_s), QString());

    QString common;
    EXPECT_EQ(outside.folders.Folder_Path(desktop::Common_AppData, common), 0);
    EXPECT_TRUE(common == qEnvironmentVariable("ProgramData") && QDir(common).exists())
        << common.toStdString();
    EXPECT_NE(outside.folders.Folder_Path(0x7FFF, common), 0);

    EXPECT_EQ(basics::Native_Path(u"C:/Mevo\\a/../b c"_s), u"C:\\Mevo\\b c"_s);
    EXPECT_EQ(basics::Native_Path(u"\\\\server/mevo\\x.mdb"_s), u"\\\\server\\mevo\\x.mdb"_s);
}

TEST_F(Windows, AWordProcessorFindsThePageOnTheClipboardInItsSize) {
    outside.clipboard.Put(preview::Copy_Of(preview::Drawing{11906, 16838, {}})); // twips: A4
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto picture = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    ENHMETAHEADER header{};
    EXPECT_GT(GetEnhMetaFileHeader(picture, sizeof header, &header), 0U);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_DIB));
    CloseClipboard();
    constexpr int pixel = 30; // hundredths of a millimetre, by which a frame is rounded
    EXPECT_NEAR(header.rclFrame.right - header.rclFrame.left, 21'000, pixel);
    EXPECT_NEAR(header.rclFrame.bottom - header.rclFrame.top, 29'700, pixel);
}

TEST_F(Windows, ANewFileTakesAPlaceOnlyFromWhoLetsItGo) {
    const QString place = blanks + u"\\Élan.mdb"_s;
    const auto put = [&place](const QByteArray& bytes, auto move) {
        return Error_Number([&] {
            database::New_File file(place);
            file.Write(bytes);
            file.Flush_And_Close();
            move(file);
        });
    };
    const auto over = [](database::New_File& file) { file.Move_To_Its_Place(); };
    EXPECT_EQ(put("first", over), 0);
    EXPECT_EQ(put("second", over), 0);
    EXPECT_EQ(put("third", [](database::New_File& file) { EXPECT_FALSE(file.Move_Unless_Taken()); }), 0);
    EXPECT_EQ(Bytes_Of(place), "second");
    HANDLE held = CreateFileW(reinterpret_cast<const wchar_t*>(place.utf16()), GENERIC_READ, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(put("fourth", over), basics::errors::Permission_Denied);
    QFile beside(place);
    EXPECT_FALSE(beside.open(QIODevice::ReadOnly)); // by which other calls may end in the same way
    EXPECT_EQ(basics::Number_Of_Last_Failure(), basics::errors::Permission_Denied);
    CloseHandle(held);
    EXPECT_EQ(Bytes_Of(place), "second");
    EXPECT_EQ(QDir(blanks).entryList(QDir::Files), QStringList{u"Élan.mdb"_s});
}

TEST_F(Windows, AFullDiskIsToldAsSuch) {
    QFile full(u"Z:/dev/full"_s); // under Wine alone
    if (!full.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) GTEST_SKIP() << "no disk is full here";
    EXPECT_NE(full.write("x"), 1);
    EXPECT_EQ(basics::Number_Of_Last_Failure(), basics::errors::Disk_Full);
}

TEST_F(Windows, OtherProgramsAreStartedFromFoldersWithBlanks) {
    ASSERT_TRUE(QFile::copy(QDir(qEnvironmentVariable("SystemRoot")).filePath(u"system32/cmd.exe"_s),
                            blanks + u"\\cmd.exe"_s));
    outside.processes.Start(blanks + Writes + folder.filePath(u"code"_s));
    EXPECT_TRUE(Wait_Until([&] { return Bytes_Of(folder.filePath(u"code"_s)).startsWith("417"); }));
    EXPECT_EQ(Error_Number([&] { outside.processes.Start(blanks + u"\\none.exe 417"_s); }),
              basics::errors::File_Not_Found);

    const QString manual = blanks + u"\\Teacher's manual.mevo-htm"_s;
    Write_Bytes(manual, "<p>Hello");
    const QString classes = u"HKLM\\Software\\Classes\\"_s;
    ASSERT_TRUE(Reg({u"add"_s, classes + u".mevo-htm"_s, u"/ve"_s, u"/d"_s, u"MevoTest"_s, u"/f"_s}));
    ASSERT_TRUE(Reg({u"add"_s, classes + u"MevoTest\\shell\\open\\command"_s, u"/ve"_s, u"/d"_s,
                     u"cmd.exe /c copy \"%1\" "_s + QDir::toNativeSeparators(folder.filePath(u"opened"_s)),
                     u"/f"_s}));
    EXPECT_GT(outside.documents.Shell_Open(manual, blanks), 32);
    EXPECT_TRUE(Wait_Until([&] { return Bytes_Of(folder.filePath(u"opened"_s)) == "<p>Hello"; }));
    EXPECT_EQ(outside.documents.Shell_Open(blanks + u"\\none.mevo-htm"_s, blanks), ERROR_FILE_NOT_FOUND);
    for (const QString& made : {u".mevo-htm"_s, u"MevoTest"_s})
        Reg({u"delete"_s, classes + made, u"/f"_s});
}

TEST_F(Windows, ASoundEndsAlsoWithoutADevice) {
    QElapsedTimer time;
    time.start();
    for (const QString& sound :
         {QStringLiteral(MEVO_ASSETS) + u"/Sounds/system/miniklik.wav"_s, u"none.wav"_s})
        outside.sound.Play(sound);
    EXPECT_LT(time.elapsed(), 3000);
}
