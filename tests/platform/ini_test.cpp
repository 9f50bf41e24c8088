#include "platform/desktop/qt_platform.h"
#include "support/printing.h"

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
