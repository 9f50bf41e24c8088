#include "foundation/start_up.h"

#include "conversion/jet_samples.h"
#include "foundation/database_version.h"
#include "platform/basics/run_time_error.h"
#include "support/error_number.h"
#include "support/hostile_files.h"
#include "support/printing.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace foundation;
using namespace test_support;
using desktop::Answer;

namespace {

class Start_Up : public testing::Test {
protected:
    Start_Up() { installation.App_Path = u"C:\\Mevo"_s; }
    ~Start_Up() override { outside.boxes.Expect_All_Asked(); }

    void Share(const QString& value) { outside.ini.values[u"SETTINGS/database_sharepath"_s] = value; }
    void Put_Template_On(const QString& asked, const QString& spelt = u"Mevo05EmptyDatabase.mdb"_s) {
        outside.files.names[asked] = spelt;
    }
    QString Read() { return Read_Product_Ini(outside.platform, installation); }

    Scripted_Platform outside;
    Installation installation;
};

} // namespace

TEST_F(Start_Up, TheShareNamesThePathsIfItHoldsTheTemplate) {
    const std::tuple<QString, QString, QString> cases[] = {
        {u"\\\\server\\mevo"_s, u"\\\\server\\mevo\\"_s, u"Mevo05EmptyDatabase.mdb"_s},
        {u"\\\\server\\mevo\\"_s, u"\\\\server\\mevo\\"_s, u"mevo05emptydatabase.MDB"_s},
        {u"D"_s, u"D"_s, u"Mevo05EmptyDatabase.mdb"_s}, // one character is glued to the names
    };
    for (const auto& [share, base, spelt] : cases) {
        SCOPED_TRACE(share.toStdString());
        Share(share);
        Put_Template_On(base + u"Mevo05EmptyDatabase.mdb"_s, spelt);
        EXPECT_EQ(Read(), u"SET"_s);
        EXPECT_EQ(installation.Database_Path, base + u"Mevo05Data.mdb"_s);
        EXPECT_EQ(installation.Archive_Folder, base);
    }
    EXPECT_EQ(outside.ini.asked.first(), u"C:\\Mevo\\product.ini"_s);
}

TEST_F(Start_Up, AKeyLeftEmptyIsTakenWithoutAWord) {
    Share(u""_s);
    EXPECT_EQ(Read(), u"BLANK"_s);
    EXPECT_TRUE(outside.boxes.shown.isEmpty());
}

TEST_F(Start_Up, AMissingKeyLooksLikeAShareWithoutATemplate) {
    outside.boxes.Will_Answer(Answer::Ok);
    EXPECT_EQ(Read(), u"BLANK"_s);
    outside.boxes.Expect_Last(
        desktop::Box_Style::Critical, u"Warning"_s,
        u"Please check that the file 'Mevo05EmptyDatabase' is in the folder path C:\\Mevo\\product.ini\\\r"
        "Otherwise I will look for databases in the the default path:\r"
        "C:\\Documents and Settings\\All Users\\Application Data\\.\r"
        "\r"
        "To avoid this message and use the default path please edit the file \r"
        "C:\\Mevo\\Product.ini so there is nothing after the equals sign in 'database='"_s);
    EXPECT_FALSE(installation.Share_Is_Away) << "none is named";
    Share(u"\\\\server\\away"_s);
    outside.boxes.Will_Answer(Answer::Ok);
    EXPECT_EQ(Read(), u"BLANK"_s);
    EXPECT_TRUE(installation.Share_Is_Away);
}

TEST_F(Start_Up, AnErrorInTheIniIsToldAndStartUpGoesOn) {
    outside.ini.fails = true;
    outside.boxes.Will_Answer(Answer::Ok);
    EXPECT_EQ(Read(), u"ERROR"_s);
    EXPECT_EQ(outside.boxes.shown[0].title, u"Error"_s);
    EXPECT_EQ(outside.boxes.shown[0].text,
              u"Error Reading INI File -  75 from Mevo\rPath/File access error"_s);
    EXPECT_EQ(installation.Database_Path, u""_s);
}

TEST_F(Start_Up, TheMachinesFolderHasTheDefaultLayoutAndWithoutItTheProgramEnds) {
    outside.folders.common_app_data = u"C:\\ProgramData"_s;
    Form8(outside.platform, installation).Find_CommonAppData();
    EXPECT_EQ(installation.Database_Path,
              u"C:\\ProgramData\\Quend Research\\Quend Mevo\\5.07\\Mevo05Data.mdb"_s);
    EXPECT_EQ(installation.Archive_Folder, u"C:\\ProgramData\\Quend Research\\Quend Mevo\\5.07\\archives"_s);
    outside.folders.result = 1;
    outside.boxes.Will_Answer(Answer::Ok);
    EXPECT_THROW(Form8(outside.platform, installation).Find_CommonAppData(), Program_Ended);
    EXPECT_EQ(outside.boxes.shown[0].text, u"Folder Not Valid on this OS"_s);
}

namespace {

class Start_Up_On_A_Database : public Start_Up {
protected:
    void Start() {
        Share(sample.Folder());
        Put_Template_On(sample.Folder() + u"\\Mevo05EmptyDatabase.mdb"_s);
        Form8 form(outside.platform, installation);
        form.Load();
        form.Timer1_Timer(u"C:\\Mevo"_s);
    }
    void Expect_Refused(const QString& told) {
        const QByteArray before = Bytes_Of(sample.Path());
        try {
            Start();
            ADD_FAILURE() << "it starts";
        } catch (const basics::Run_Time_Error& error) {
            EXPECT_TRUE(error.Description.size() > 8 && error.Description.contains(told)) << error.what();
        }
        EXPECT_EQ(Bytes_Of(sample.Path()), before);
    }
    Sample_File sample;
};

} // namespace

TEST_F(Start_Up_On_A_Database, ReadsTheLastRowOfThisProduct) {
    sample.Run(u"INSERT INTO Customer_Details VALUES ('Mevo', '9', 'wrong case', 'no', 'no')"_s);
    sample.Run(
        u"INSERT INTO Customer_Details VALUES ('MEVO', '5.11', 'Customer', 'Élan School', 'secret')"_s);
    sample.Run(u"INSERT INTO Customer_Details VALUES (NULL, '1', 'none', 'none', 'none')"_s);
    Start();
    EXPECT_EQ(installation.Institution, u"Élan School"_s);
    EXPECT_EQ(installation.Admin_Password.As_Text(), u"secret"_s);
    EXPECT_EQ(installation.Connection_String,
              u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + sample.Folder() + u"\\Mevo05Data.mdb"_s);
    sample.Run(u"DELETE FROM Customer_Details"_s);
    installation = {};
    Start();
    EXPECT_TRUE(installation.Admin_Password.Is_Empty()); // no password can match
}

// Whatever lies under the database's name: an error that says so, soon, and the file as it was.
TEST_F(Start_Up_On_A_Database, WhatIsNoDatabaseOfTheSuiteIsARunTimeErrorAndStaysAsItIs) {
    for (const Hostile_File& hostile : What_Nothing_Can_Be_Made_Of(Bytes_Of(sample.Path()))) {
        SCOPED_TRACE(hostile.name);
        hostile.Write_To(sample.Path());
        Expect_Refused({});
    }
    Write_Bytes(sample.Path(), QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4096, '\0'));
    Expect_Refused({});
    Write_Bytes(sample.Path(), Bytes_Of(Test_Data(u"jet4-data.mdb"_s)));
    Expect_Refused(u"older Access (Jet) format"_s);
    Expect_Refused(u"mevo-convert"_s);
    sample.Move_Away();
    EXPECT_NE(Error_Number([this] { Start(); }), 0);
    QDir().mkdir(sample.Path());
    EXPECT_NE(Error_Number([this] { Start(); }), 0);
}

TEST_F(Start_Up_On_A_Database, AFileWithoutCustomersIsPutToTheUser) {
    sample.Run(u"DROP TABLE Customer_Details"_s);
    outside.boxes.Expect_Abort_Ends([this] { Start(); });
    EXPECT_TRUE(outside.boxes.shown.last().text.contains(u"Customer_Details"_s));
}

TEST_F(Start_Up_On_A_Database, AnOlderFileIsBroughtUpInPlace) {
    sample.Make_Older();
    outside.boxes.Will_Answer(Answer::Ok);
    Start();
    EXPECT_EQ(outside.boxes.shown[0].text, u"Will now convert your database to the new version 5.1"_s);
    EXPECT_EQ(outside.boxes.shown[0].style, desktop::Box_Style::Information);
    EXPECT_TRUE(Database_Is_Version_51(installation));
    EXPECT_EQ(sample.Value(u"SELECT ID || Group_Name || Dob_as_pw || Show_On_List FROM Mevo_Groups"_s),
              u"1Universal01"_s);
    EXPECT_EQ(
        sample.Value(u"SELECT count(*) FROM Mevo_Pupils WHERE Show_Name = 1 AND Group_Class = 'Universal' "
                     "AND Dob_as_pw = 1 AND Password IS NULL"_s),
        u"12"_s);
    Start(); // and no box the second time
}

TEST_F(Start_Up_On_A_Database, AHalfConvertedFileIsReportedAtEachStart) {
    sample.Run(u"ALTER TABLE Mevo_Pupils DROP COLUMN Dob_as_pw"_s);
    for (int start = 1; start <= 2; ++start) {
        outside.boxes.Will_Answer(Answer::Ok);
        outside.boxes.Will_Answer(Answer::Ok);
        Start();
        EXPECT_TRUE(outside.boxes.shown.last().text.startsWith(
            u"Error with updating to v5.1 database: table Mevo_Groups already exists - Error number -"_s))
            << outside.boxes.shown.last().text.toStdString();
    }
}

TEST_F(Start_Up_On_A_Database, TheGroupsTableIsFoundByItsExactNameAmongAHundredAtMost) {
    installation.Connection_String = Connection_String_For(sample.Path());
    const int tables = sample.Value(u"SELECT count(*) FROM sqlite_master WHERE type = 'table'"_s).toInt();
    for (int i = 0; i < 80; ++i)
        sample.Run(u"CREATE TABLE MSys%1 (a)"_s.arg(i));
    for (int i = tables; i < 100; ++i)
        sample.Run(u"CREATE TABLE More%1 (a)"_s.arg(i));
    EXPECT_TRUE(Groups_Table_Exists(installation));
    sample.Run(u"CREATE TABLE One_Too_Many (a)"_s);
    EXPECT_THROW(Groups_Table_Exists(installation), basics::Run_Time_Error);
    sample.Run(u"ALTER TABLE Mevo_Groups RENAME TO other"_s);
    sample.Run(u"ALTER TABLE other RENAME TO MEVO_GROUPS"_s);
    sample.Run(u"DROP TABLE One_Too_Many"_s);
    EXPECT_FALSE(Groups_Table_Exists(installation)); // it must be spelt so
}
