#include "platform/desktop/disk_ports.h"
#include "platform/desktop/user_settings.h"
#include "support/printing.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(IniFile, ReadsAsTheSystemDoes) {
    const std::pair<QString, QString> cases[] = {
        {u"[SETTINGS]\r\ndatabase_sharepath=\\\\server\\mevo\r\n"_s, u"\\\\server\\mevo"_s},
        {u"[settings]\nDATABASE_SHAREPATH =  C:\\data  \n"_s, u"C:\\data"_s},
        {u"[Other]\ndatabase_sharepath=no\n[SETTINGS]\ndatabase_sharepath=\"C:\\my data\"\n"_s,
         u"C:\\my data"_s},
        {u"[SETTINGS]\n;database_sharepath=old\ndatabase_sharepath=new=1\n"_s, u"new=1"_s},
        {u"[SETTINGS]\ndatabase_sharepath=\n"_s, u""_s},
    };
    for (const auto& [text, value] : cases) {
        SCOPED_TRACE(text.toStdString());
        const QString found = desktop::Ini_Value(text, u"SETTINGS"_s, u"database_sharepath"_s);
        EXPECT_FALSE(found.isNull());
        EXPECT_EQ(found, value);
    }
    for (const QString& without : {u""_s, u"[SETTINGS]\n"_s, u"[SETTINGS]\nother=1"_s,
                                   u"database_sharepath=x"_s, u"[OTHER]\ndatabase_sharepath=x"_s})
        EXPECT_TRUE(desktop::Ini_Value(without, u"SETTINGS"_s, u"database_sharepath"_s).isNull())
            << without.toStdString();
}

TEST(UserSettings, AreThereAtTheNextStartAndStopNoWorkWhereTheyCannotBeKept) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"mevo/settings.ini"_s);
    const auto settings = desktop::Make_User_Settings(file);
    EXPECT_FALSE(settings->Is_On(u"Reports/Switch"_s));
    settings->Turn(u"Reports/Switch"_s, true);
    settings->Keep(u"Pages/Text"_s, u" Zoë; a,b = \"c\" "_s);
    const auto next = desktop::Make_User_Settings(file);
    EXPECT_TRUE(next->Is_On(u"Reports/Switch"_s));
    EXPECT_EQ(next->Value(u"Pages/Text"_s, {}), u" Zoë; a,b = \"c\" "_s);
    const auto nowhere = desktop::Make_User_Settings(file + u"/below a file.ini"_s);
    nowhere->Turn(u"Reports/Switch"_s, true);
    EXPECT_EQ(nowhere->Value(u"Pages/Text"_s, u"missing"_s), u"missing"_s);
}
