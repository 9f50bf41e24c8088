#include "conversion/jet_samples.h"
#include "conversion/plain_database.h"
#include "shell/archiving_fixture.h"

using namespace test_support;

namespace {

class Older_Archive : public Archiving {
protected:
    Older_Archive() { Write_Bytes(file, Bytes_Of(Test_Data(u"jet4-data.mdb"_s))); }
    QString file = In_Archives(u"spring.2009.mdb"_s);
    QString copy = In_Archives(u"spring.2009_converted.mdb"_s);
};

} // namespace

TEST_F(Older_Archive, IsViewedAsItsConvertedCopyOnlyIfWished) {
    Open();
    View(file, {Answer::No}); // stops without a word
    outside.boxes.Expect_Last(
        Box_Style::Yes_No_Information, u"Older file format"_s,
        u"This archive was saved in the older Access format. Do you wish to make a converted copy beside it and go on with that?"_s);
    EXPECT_FALSE(installation.Viewing_Mode);
    EXPECT_EQ(installation.Connection_String, Names_File(sample.Path()));
    View(file, {Answer::Yes, Answer::Ok});
    EXPECT_EQ(Last_Box().text,
              u"The database "_s + copy + u" is now held in Viewing Mode (note that you cannot edit it)."_s);
    EXPECT_TRUE(installation.Viewing_Mode);
    EXPECT_EQ(installation.Connection_String, Names_File(copy));
    EXPECT_EQ(installation.Current_Database_Path, copy);
    EXPECT_EQ(Tables_That_Differ(Test_Data(u"expected-data.sqlite"_s), copy), QStringList());
    EXPECT_EQ(Archives(), (QStringList{u"spring.2009.mdb"_s, u"spring.2009_converted.mdb"_s}));
    EXPECT_EQ(Bytes_Of(file), Bytes_Of(Test_Data(u"jet4-data.mdb"_s)));
    EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
}

TEST_F(Older_Archive, IsLoadedAsItsConvertedCopyOnlyIfWished) {
    Open();
    Load(file, {Answer::Yes, Answer::No});
    EXPECT_EQ(outside.boxes.Titles().last(), u"Older file format"_s);
    EXPECT_EQ(Working(Count), u"12"_s);
    EXPECT_EQ(Archives(), QStringList{u"spring.2009.mdb"_s});
    Load(file, {Answer::Yes, Answer::Yes, Answer::Ok});
    EXPECT_EQ(Last_Box().text,
              u"The database: \r"_s + copy + u"\r has now been loaded and becomes the working database."_s);
    EXPECT_EQ(Working(Count), u"40"_s);
    EXPECT_EQ(Caption(*page, u"Label13"_s), u"40"_s);
    EXPECT_EQ(Working_Password(), u"admin"_s);
    EXPECT_EQ(Password_In(copy), u"secret"_s); // the chosen file takes the password in force
    EXPECT_EQ(Bytes_Of(file), Bytes_Of(Test_Data(u"jet4-data.mdb"_s)));
}

TEST_F(Older_Archive, ThatCantBeConvertedIsToldAndChangesNothing) {
    Open();
    const QByteArray sound = Bytes_Of(file);
    const std::pair<QByteArray, QString> cases[] = {
        {With_Password(sound, u"geheim"_s), u"It is protected by a database password."_s},
        {Encrypted(sound), u"It is encrypted."_s},
        {sound.left(100 * 4096), u"It is damaged: "_s},
    };
    for (const auto& [bytes, reason] : cases) {
        SCOPED_TRACE(reason.toStdString());
        Write_Bytes(file, bytes);
        View(file, {Answer::Yes, Answer::Ok});
        ASSERT_EQ(outside.boxes.shown.size(), 2);
        EXPECT_EQ(Last_Box().style, Box_Style::Critical);
        EXPECT_EQ(Last_Box().title, u"Older file format"_s);
        EXPECT_TRUE(
            Last_Box().text.startsWith(u"The archive "_s + file + u" can't be converted.\r"_s + reason));
        EXPECT_FALSE(installation.Viewing_Mode);
        EXPECT_EQ(installation.Connection_String, Names_File(sample.Path()));
        EXPECT_EQ(Archives(), QStringList{u"spring.2009.mdb"_s});
        EXPECT_FALSE(Shown(*page, u"pbrConversion"_s));
        EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
    }
}

TEST_F(Older_Archive, AnEarlierCopyIsNotOverwritten) {
    Write_Bytes(copy, "something of the user's");
    Open();
    Load(file, {Answer::Yes, Answer::Yes, Answer::Ok});
    EXPECT_TRUE(Last_Box().text.endsWith(u"The target "_s + QDir::toNativeSeparators(copy) +
                                         u" is there already."_s));
    EXPECT_EQ(Bytes_Of(copy), "something of the user's");
    EXPECT_EQ(Working(Count), u"12"_s);
}
