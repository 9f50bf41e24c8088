#include "shell/settings.h"

#include "platform/basics/run_time_error.h"
#include "support/page_fixture.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace shell;
using namespace test_support;
using desktop::Answer;
using desktop::Box_Style;

namespace {

const QString Active_X = u"SOFTWARE\\Macromedia\\FlashPlayerActiveX\\"_s;
const QString Active_X_32 = u"SOFTWARE\\Wow6432Node\\Macromedia\\FlashPlayerActiveX\\"_s;
const QString Plug_In = u"SOFTWARE\\Macromedia\\FlashPlayerPlugin\\"_s;

class Settings : public Page_Fixture {
protected:
    Settings() { installation.Admin_Password = u"admin"_s; }

    void Will_Type(const QString& entry) {
        outside.dialogs.Will_Do([this, entry](QDialog& dialog) {
            prompts.append(Caption(dialog, u"Label1"_s) + u" / "_s + Caption(dialog, u"Label2"_s));
            QTest::keyClicks(&Control<QLineEdit>(dialog, u"Text1"_s), entry);
            Click(dialog, u"HotLabel1"_s);
        });
    }
    void Will_Quit() {
        outside.dialogs.Will_Do([](QDialog& dialog) { Click(dialog, u"HotLabel3"_s); });
    }
    void Change() {
        outside.boxes.Will_Answer(Answer::Yes);
        Click(page, u"HotLabel2"_s);
    }
    QString Stored() const {
        return sample.Value(u"SELECT Admin_Password FROM Customer_Details WHERE Product_Name = 'MEVO'"_s);
    }

    Form20 page{outside.platform, navigator, installation};
    QStringList prompts;
};

} // namespace

TEST_F(Settings, TheLastPlayerFoundIsShown) {
    using Found = Scripted_Registry::Version;
    constexpr int text = 1;
    constexpr int number = 4;
    const QString none = u"Flash Player not installed"_s;
    const struct {
        QHash<QString, Found> versions;
        QString shown;
    } cases[] = {
        {{}, none},
        {{{Active_X, {text, "9.0"}}}, u"9.0"_s},
        {{{Active_X, {text, "9.0"}}, {Active_X_32, {text, "10.1"}}}, u"10.1"_s},
        {{{Active_X, {text, "11.0"}}, {Plug_In, {text, "10.0"}}}, u"10.0"_s},
        {{{Active_X, {text, "11.0"}}, {Plug_In, {number, "10.0"}}},
         u"11.0"_s}, // no text: as if it weren't there
        {{{Plug_In, {text, ""}}}, none},
        {{{Plug_In, {text, QByteArray("8.0\0left over", 13)}}}, u"8.0"_s},
        {{{Plug_In, {text, QByteArray(1024, '7')}}}, QString(1024, u'7')}, // no NUL in the whole buffer
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.shown.toStdString());
        outside.registry.versions = tried.versions;
        outside.registry.asked.clear();
        page.Load();
        EXPECT_EQ(Caption(page, u"lblFlashVersion"_s), tried.shown);
        EXPECT_EQ(outside.registry.asked, (QStringList{Active_X, Active_X_32, Plug_In}));
        EXPECT_TRUE(outside.registry.open.isEmpty());
        Point_At(page, u"lblFlashVersion"_s);
        EXPECT_EQ(Caption(page, u"Label1"_s).endsWith(u"this is already installed."_s), tried.shown != none);
    }
}

TEST_F(Settings, OnlyTwoEqualEntriesBecomeThePassword) {
    const QString password = u"O'Hara \"9\""_s;
    const std::tuple<QString, QString, QString, QString, QString> cases[] = {
        // typed twice, the title and the text, what is stored
        {u"secret"_s, u"Secret"_s, u"Error"_s, u"Cannot change password."_s, u"admin"_s},
        {password, password, u"New password"_s, u"The new Administrator's password is - "_s + password,
         password},
        {u""_s, u""_s, u"New password"_s, u"The new Administrator's password is - "_s, u""_s},
    };
    sample.Run(u"INSERT INTO Customer_Details (Product_Name, Admin_Password) VALUES ('OTHER', 'theirs')"_s);
    page.Load();
    for (const auto& [first, second, title, text, stored] : cases) {
        SCOPED_TRACE(second.toStdString());
        const QString in_force = installation.Admin_Password.As_Text();
        Will_Type(first);
        Will_Type(second);
        outside.boxes.Will_Answer(Answer::Yes);
        outside.boxes.Will_Answer(Answer::Ok);
        Click(page, u"HotLabel2"_s);
        outside.boxes.Expect_Last(Box_Style::Information, title, text);
        EXPECT_EQ(prompts, (QStringList{u"Enter your NEW password / Password: "_s + in_force,
                                        u"Enter NEW password again / Password: "_s + in_force}));
        prompts.clear();
        EXPECT_EQ(installation.Admin_Password.As_Text(), stored);
        EXPECT_EQ(Stored(), stored);
    }
    EXPECT_EQ(outside.boxes.shown[0].style, Box_Style::Yes_No);
    EXPECT_EQ(outside.boxes.shown[0].title, u"Change admin password"_s);
    EXPECT_EQ(outside.boxes.shown[0].text, u"Do you wish to change your administrator's password ?"_s);
    EXPECT_EQ(sample.Value(u"SELECT Admin_Password FROM Customer_Details WHERE Product_Name = 'OTHER'"_s),
              u"theirs"_s);
}

TEST_F(Settings, LeavingAnywhereIsSilentAndChangesNothing) {
    page.Load();
    outside.boxes.Will_Answer(Answer::No);
    Click(page, u"HotLabel2"_s);
    Will_Quit();
    Change();
    Will_Type(u"secret"_s);
    Will_Quit();
    Change();
    EXPECT_EQ(outside.boxes.Titles(), QStringList(3, u"Change admin password"_s));
    EXPECT_EQ(installation.Admin_Password.As_Text(), u"admin"_s);
    EXPECT_EQ(Stored(), u"admin"_s);
}

TEST_F(Settings, WithoutTheProductsRowOrTheDatabaseTheChangeFails) {
    page.Load();
    for (int entry = 0; entry < 4; ++entry)
        Will_Type(u"secret"_s);
    sample.Move_Away();
    outside.boxes.Expect_Abort_Ends([this] { page.Change_Password(); });
    sample.Put_Back();
    sample.Run(u"DELETE FROM Customer_Details"_s);
    EXPECT_THROW(page.Change_Password(), basics::Run_Time_Error);
}
