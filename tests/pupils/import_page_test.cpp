#include "pupils/import_page.h"

#include "pupils/record_page_fixture.h"
#include "support/files.h"

#include <QHeaderView>
#include <QStringEncoder>
#include <gtest/gtest.h>

namespace pupils {
namespace {

class Import : public Record_Page {
protected:
    Import() {
        Show(form);
        form.Load();
        Look();
    }

    QString Write(const QByteArray& bytes, const QString& name = u"pupils.txt"_s) {
        const QString file = sample.Folder() + u'/' + name;
        Write_Bytes(file, bytes);
        return file;
    }
    void Preview(const QString& file) {
        outside.file_dialogs.answers.append(file);
        Click(u"PreviewImport"_s);
    }
    void Preview_Bytes(const QByteArray& bytes) { Preview(Write(bytes)); }
    void Import_All(Answer answer = Answer::Yes) {
        outside.boxes.Will_Answer(answer);
        Click(u"HotLabel3"_s);
    }
    // The number of the unhandled error that an import ends in.
    int Import_Error() {
        outside.boxes.Will_Answer(Answer::Yes);
        return Error_Number([this] { form.HotLabel3_Click(); });
    }
    QStringList Row(int row) { return Grid_Row(Control<grid::fpSpread>(form, u"Spread1"_s), row); }
    QString Offered() {
        return (Enabled(u"HotLabel3"_s) ? u"import "_s : u""_s) +
               (Enabled(u"HotLabel4"_s) ? u"print"_s : u""_s);
    }
    List_To_Import prepared;
    Form42 form{outside.platform, navigator, installation, prepared};
};

const QString Both = u"import print"_s;
const QByteArray Good = "Smith,Jane,F,14/03/2003,Class 1,\r\n";

QString Told(const QString& errors, int count) {
    return QString::number(count) +
           u" record(s) could not be imported because of invalid data.\r\rErroneous records are:\r\r"_s +
           errors;
}

QString Marked_Rows(const grid::fpSpread& grid) {
    QStringList rows;
    for (int row = 1; row <= grid.rowCount(); ++row)
        if (!grid.Mark_Of(row).isEmpty()) rows.append(QString::number(row));
    return grid.verticalHeader()->isVisible() ? rows.join(u' ') : QString();
}

} // namespace

// ---- preview

TEST_F(Import, AsksForTheFileAndACancelLeavesTheStateAsItWas) {
    EXPECT_FALSE(Shown(u"ProgressBar1"_s));
    Preview(u""_s);
    EXPECT_EQ(Typed(u"Text1"_s), u"*.txt"_s);
    EXPECT_EQ(Offered(), u""_s);
    const desktop::File_Question& asked = outside.file_dialogs.asked.first();
    EXPECT_EQ(asked.title, u"TXT Comma-seperated files"_s);
    EXPECT_EQ(asked.filter, u"Text comma-seperated (.txt) (*.txt);;Comma Seperated (.csv) (*.csv)"_s);
    EXPECT_EQ(asked.file_name, u"*.txt"_s);
    EXPECT_EQ(asked.folder, installation.Archive_Folder);
    Preview_Bytes(Good);
    EXPECT_EQ(Typed(u"Text1"_s), sample.Folder() + u"/pupils.txt"_s);
    Preview(u""_s);
    EXPECT_EQ(Offered(), Both);
    EXPECT_EQ(Import_Error(), 52);
    EXPECT_EQ(Pupils(), u"12"_s);
}

TEST_F(Import, ACleanPreviewShowsTheRecordsAndCreatesNothing) {
    Preview_Bytes("Smith - Jones,Jane,female,1 Feb 2003,,\r\n\r\nO'Neill,Al,Mrs,14/3/03,Class 1,it's,x\r\n");
    const QString to_come = u"(will be created)"_s;
    EXPECT_EQ(Row(1), (QStringList{u"Smith-Jones"_s, u"Jane"_s, u"F"_s, u"01/02/03"_s, to_come,
                                   u"Universal"_s, u""_s}));
    EXPECT_EQ(Row(2).join(u""_s), u""_s) << "an empty line leaves its row";
    EXPECT_EQ(Row(3),
              (QStringList{u"O'Neill"_s, u"Al"_s, u"M"_s, u"14/03/03"_s, to_come, u"Class 1"_s, u"it's"_s}));
    EXPECT_EQ(Offered(), Both);
    EXPECT_EQ(Changed(), QStringList{});
}

TEST_F(Import, BadRecordsAreListedAndNothingIsOffered) {
    Preview_Bytes(Good);
    outside.boxes.Will_Answer(Answer::Ok);
    Preview_Bytes("\nSmith,,F,14/03/2003,,\nKane,Mo,M,1/2/2003,,\nBrown,Bo,X,14/03/2003,,\n");
    Expect_Box(
        Box_Style::Exclamation, u"Import a fixed format comma-seperated file into Mevo"_s,
        Told(
            u"Record 2 has a missing forename.\r\nRecord 4 has an invalid or missing gender indicator.\r\n"_s,
            2));
    EXPECT_EQ(Offered(), u""_s);
    EXPECT_EQ(Row(3).first(), u"Kane"_s) << "the good ones are shown";
    Preview_Bytes(Good);
    EXPECT_EQ(Offered(), Both);
}

// ---- import

TEST_F(Import, MakesThePupilsOfTheFileInAllTables) {
    Preview_Bytes("Smith - O'Hara,D'Arcy,female,29 Feb 2004,Owls,cat\r\n"
                  "Kane,Mo,m,1/2/99,,,ignored\n"
                  "Zo\xEB,Ren\xE9,F,1.2.2003,OWLS,\r");
    Import_All(Answer::No);
    EXPECT_EQ(Changed() + QStringList{Caption(u"Label3"_s)}, QStringList{u""_s});
    Import_All();
    Expect_Box(Box_Style::Yes_No_Question, u"Confirm all details accurate and complete"_s,
               u"Are you sure that all these details are accurate?"_s);
    Expect_Changed(Rows_Of_A_New_Pupil(Code_Of(u"Smith-O'Hara"_s),
                                       u"'Smith-O''Hara'|'D''Arcy'|'F'|'29/02/04'|'Owls'|'cat'|0"_s) +
                   Rows_Of_A_New_Pupil(Code_Of(u"Kane"_s), u"'Kane'|'Mo'|'M'|'01/02/99'|'Universal'|''|1"_s) +
                   Rows_Of_A_New_Pupil(Code_Of(u"Zoë"_s), u"'Zoë'|'René'|'F'|'01/02/03'|'OWLS'|''|1"_s) +
                   QStringList{u"Mevo_Groups 6: new, Group_Name 'Owls', Show_On_List 1"_s});
    EXPECT_EQ(Caption(u"Label3"_s),
              u"3 pupils have now been imported. Please now check their settings on the Security page"_s);
    EXPECT_FALSE(Shown(u"ProgressBar1"_s));
    outside.random.numbers = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7};
    EXPECT_EQ(Offered(), Both);
    Import_All(); // makes every pupil again
    EXPECT_EQ(Pupils(), u"18"_s);
}

TEST_F(Import, AFileThatChangedAfterThePreviewIsValidatedAgain) {
    Preview_Bytes(Good + Good);
    Write("bad\n" + Good);
    outside.boxes.Will_Answer(Answer::Yes);
    outside.boxes.Will_Answer(Answer::Ok, [this] { EXPECT_TRUE(Shown(u"ProgressBar1"_s)); });
    Click(u"HotLabel3"_s);
    Expect_Box(Box_Style::Exclamation, u"DB module"_s,
               Told(u"Record 1 has an incorrect number of fields.\r\n"_s, 1));
    EXPECT_EQ(Pupils(), u"13"_s);
    EXPECT_EQ(Offered(), Both);
}

TEST_F(Import, AnApostropheOrALongNameCostsWhatItBreaksInSilence) {
    const QByteArray name(300, 'n');
    Preview_Bytes(
        "One,Al,M,1/2/2003,Owls,it's\nTwo,Al,M,1/2/2003,St John's,\nThree,Al,M,1/2/2003,Owls,its\n" + name +
        ",Al,M,1/2/2003,Owls,\nLong,Al,M,1/2/2003," + QByteArray(60, 'g') + ",\n\n\n");
    const auto& grid = test_support::Control<grid::fpSpread>(form, u"Spread1"_s);
    EXPECT_EQ(Marked_Rows(grid), u"1 2 5"_s);
    EXPECT_EQ(grid.columnCount(), 7);
    EXPECT_EQ(grid.Mark_Of(1), u"Line 1: the password holds an apostrophe: the pupil would not be stored."_s);
    Import_All();
    EXPECT_EQ(sample.Column(u"SELECT surname || group_class FROM mevo_pupils WHERE rowid > 12"_s),
              (QStringList{u"TwoSt John's"_s, u"ThreeOwls"_s, QString::fromLatin1(name) + u"Owls"_s}));
    EXPECT_EQ(sample.Column(u"SELECT group_name FROM mevo_groups WHERE rowid > 5"_s), QStringList{u"Owls"_s});
    EXPECT_TRUE(Caption(u"Label3"_s).startsWith(u"7 pupils"_s)) << "lines are counted, not pupils";
}

// ---- hostile files

TEST_F(Import, HostileFilesEndInATextOrInSilence) {
    const QString fields = u"Record 1 has an incorrect number of fields.\r\n"_s;
    const QString second = u"Record 2 has an incorrect number of fields.\r\n"_s;
    const QString third = u"Record 3 has an incorrect number of fields.\r\n"_s;
    const QString gender = u"Record 1 has an invalid or missing gender indicator.\r\n"_s;
    constexpr qsizetype ten_mb = 10'000'000;
    const struct {
        const char* name;
        QByteArray bytes;
        QString told; // the bad records; empty for a clean preview
    } cases[] = {
        {"one line without a comma", QByteArray(ten_mb, 'x'), fields},
        {"one line of commas", QByteArray(ten_mb, ','), fields},
        {"a surname of ten megabytes", QByteArray(ten_mb, 'x') + ",Al,M,1/2/2003,,", u""_s},
        {"a date of ten megabytes", "x,Al,M," + QByteArray(ten_mb, '1') + ",,",
         u"Record 1 has an invalid or missing date of birth.\r\n"_s},
        {"NUL bytes alone", QByteArray(1000, '\0'), fields},
        {"NUL bytes in a record", QByteArray("Sm\0th,Al,M,1/2/2003,,", 21), u""_s},
        {"lone quotes", "\"Smith,Al,M,1/2/2003,\"Class 1,", u""_s},
        {"UTF-16", QStringEncoder(QStringEncoder::Utf16LE)(u"\uFEFFSmith,Al,M,1/2/2003,,"_s), gender},
        {"a picture", QByteArray::fromHex("89504e470d0a1a0a0000000d"), fields + second + third},
        {"a header", "Surname,Forename,Gender,DOB,Group,Password", gender},
        {"an empty file", "", u""_s},
    };
    for (const auto& tried : cases) {
        SCOPED_TRACE(tried.name);
        if (!tried.told.isEmpty()) outside.boxes.Will_Answer(Answer::Ok);
        Preview_Bytes(tried.bytes);
        form.grab(); // whatever stands in the grid is painted
        if (tried.told.isEmpty()) {
            Import_All();
        } else {
            EXPECT_TRUE(outside.boxes.shown.last().text.endsWith(u"are:\r\r"_s + tried.told))
                << outside.boxes.shown.last().text.toStdString();
        }
    }
    EXPECT_EQ(sample.Column(u"SELECT surname FROM mevo_pupils WHERE rowid > 12"_s),
              QStringList{u"\"Smith"_s});
}

TEST_F(Import, FortyThousandLinesOverflow) {
    Preview_Bytes(Good.repeated(40'000));
    EXPECT_EQ(Offered(), u""_s) << "the preview ends in silence";
    EXPECT_EQ(Row(32767).first(), u"Smith"_s);
    Preview_Bytes(Good);
    Write(QByteArray("\n").repeated(40'000));
    EXPECT_EQ(Import_Error(), basics::errors::Overflow);
    Preview_Bytes(QByteArray("\n").repeated(32'767));
    EXPECT_EQ(Offered(), Both);
}

TEST_F(Import, AFolderOrAFileThatVanishesIsSilentInThePreviewAndAnErrorInTheImport) {
    Preview(sample.Folder());
    Preview(sample.Folder() + u"/nowhere.txt"_s);
    EXPECT_EQ(Offered(), u""_s);
    Preview_Bytes(Good);
    QFile::remove(sample.Folder() + u"/pupils.txt"_s);
    EXPECT_EQ(Import_Error(), basics::errors::File_Not_Found);
    EXPECT_EQ(Pupils(), u"12"_s);
    EXPECT_EQ(outside.pointer.shapes.last(), desktop::Pointer_Shape::Default);
}

TEST_F(Import, ADatabaseThatIsAwayIsSilent) {
    Preview_Bytes(Good);
    sample.Move_Away();
    Import_All();
    sample.Put_Back();
    EXPECT_EQ(Pupils(), u"12"_s);
    EXPECT_TRUE(Caption(u"Label3"_s).startsWith(u"1 pupils"_s));
}

// ---- printing

TEST_F(Import, PrintsThePreviewAndSaysWhatBecameOfIt) {
    Preview_Bytes(Good);
    outside.Expect_Silent_Unless_Printed([this] { form.HotLabel4_Click(); });
    outside.boxes.Will_Answer(Answer::Ok);
    Click(u"HotLabel4"_s);
    EXPECT_EQ(outside.printers.pages.size(), 1);
    Expect_Box(
        Box_Style::Information, u"Printed"_s,
        u"A spreadsheet showing personal details of all individuals to import has been sent to your printer"_s);
}

} // namespace pupils
