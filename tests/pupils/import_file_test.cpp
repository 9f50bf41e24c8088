#include "pupils/import/import_file.h"

#include "support/error_number.h"
#include "support/files.h"
#include "support/on_windows.h"
#include "support/printing.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

QStringList Lines_Of(const QString& text) {
    QStringList lines;
    for (Line_Reader reader(text); !reader.At_End();)
        lines.append(reader.Next_Line().toString());
    return lines;
}

QString Said_Of(const QString& line, qint16 number = 7) {
    QStringList fields = Import_Fields(line);
    return Validate_Import_Record(fields, number);
}

// The number of the error by which a file can't be read; 0 if it can.
int Number_Of_Reading(const QString& file) {
    return test_support::Error_Number([&] { Read_Import_File(file); });
}

} // namespace

// ---- reading

TEST(Import_File, LinesEndInAnyOfThreeWays) {
    const std::pair<QString, QStringList> cases[] = {
        {u""_s, {}},
        {u"a"_s, {u"a"_s}},
        {u"a\r\nb\nc\rd"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s}},
        {u"a\r\n"_s, {u"a"_s}}, // nothing follows the last line end
        {u"a\n\nb\r\rc\r\n\r\n"_s, {u"a"_s, u""_s, u"b"_s, u""_s, u"c"_s, u""_s}},
        {u"\r\r\n\n"_s, {u""_s, u""_s, u""_s}},
        {u"a\vb\fc\u2028d"_s, {u"a\vb\fc\u2028d"_s}}, // no line end to a spreadsheet
    };
    for (const auto& [text, lines] : cases)
        EXPECT_EQ(Lines_Of(text), lines);
}

TEST(Import_File, AFileIsUtf8IfItSaysSoOrCanBeNothingElse) {
    const std::pair<QByteArray, QString> cases[] = {
        {"Zoe", u"Zoe"_s},
        {"Zo\xEB", u"Zoë"_s},                   // the older single byte
        {"Zo\xC3\xAB", u"Zoë"_s},               // valid multi-byte, no mark
        {"\xEF\xBB\xBFZo\xC3\xAB", u"Zoë"_s},   // with its mark
        {"\xEF\xBB\xBFZoe", u"Zoe"_s},          // the mark is no part of the first name
        {"Zo\xC3\xAB Ren\xE9", u"ZoÃ« René"_s}, // one byte that is no UTF-8 decides for the whole file
        {"Zo\xC3", u"ZoÃ"_s},                   // a character cut off at the end
        {"O\x92"
         "Brien \x80 \x9Fma",
         u"O’Brien € Ÿma"_s},  // what the code page has beyond Latin-1
        {"\xC0\xAF", u"À¯"_s}, // overlong forms are no UTF-8
        {QByteArray("a\0b", 3), QString(u"a"_s) + QChar(0) + u'b'},
    };
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(Decoded_Import_Text(bytes), text) << bytes.toHex().constData();
}

TEST(Import_File, WhatCannotBeReadIsAnErrorWithItsNumber) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pupils.txt"_s);
    EXPECT_EQ(Number_Of_Reading(file), 53);
    EXPECT_EQ(Number_Of_Reading(u"*.txt"_s), 52); // what a cancelled dialog leaves
    EXPECT_EQ(Number_Of_Reading(u""_s), 52);
    EXPECT_EQ(Number_Of_Reading(folder.path()), 75);
    EXPECT_EQ(Number_Of_Reading(u"/dev/zero"_s), test_support::On_Windows ? 53 : 75); // has no end
    test_support::Write_Bytes(file, "a,b\r\n");
    EXPECT_EQ(Read_Import_File(file), "a,b\r\n");
    EXPECT_EQ(Read_Import_File(QString(file).replace(u"pupils"_s, u"PUPILS"_s)),
              "a,b\r\n");                              // as on its own system
    ASSERT_TRUE(QFile::resize(file, qint64(8) << 30)); // a hole: takes no room
    EXPECT_EQ(Number_Of_Reading(file), 7);
}

// ---- validation

TEST(Validate_Import_Record, TellsTheFirstFailure) {
    const std::pair<QString, QString> cases[] = {
        {u"Smith,Jane,F,14/03/2003,Class 1,"_s, u"OK"_s},
        {u"Smith,Jane,F,14/03/2003,,,anything"_s, u"OK"_s},
        {u"Smith,Jane,F,14/03/2003,Class 1"_s, u"Record 7 has an incorrect number of fields."_s},
        {u"Smith,Jane,F,14/03/2003,Class 1,,,"_s, u"Record 7 has an incorrect number of fields."_s},
        {u"x"_s, u"Record 7 has an incorrect number of fields."_s},
        {u",,,,"_s, u"Record 7 has an incorrect number of fields."_s},
        {u",,,,,"_s, u"Record 7 has a missing surname."_s},
        {u"Smith,,,,,"_s, u"Record 7 has a missing forename."_s},
        {u"Smith,Jane,,,,"_s, u"Record 7 has an invalid or missing gender indicator."_s},
        {u"Smith,Jane, F,14/03/2003,,"_s, u"Record 7 has an invalid or missing gender indicator."_s},
        {u"Smith,Jane,X,14/03/2003,,"_s, u"Record 7 has an invalid or missing gender indicator."_s},
        {u"Smith,Jane,F,,,"_s, u"Record 7 has an invalid or missing date of birth."_s},
        {u"Smith,Jane,F,31/02/2003,,"_s, u"Record 7 has an invalid or missing date of birth."_s},
        {u" , ,Mrs,14/03/2003,,"_s, u"OK"_s},                 // a blank is a name
        {u"\"Smith,Jane,F,14/03/2003,Class 1,\""_s, u"OK"_s}, // a quotation mark is a letter like any other
    };
    for (const auto& [line, answer] : cases)
        EXPECT_EQ(Said_Of(line), answer) << line.toStdString();
    EXPECT_EQ(Said_Of(u"x"_s, 32767), u"Record 32767 has an incorrect number of fields."_s);
}

TEST(Format_Import_Date, ReadsTheUsualBritishFormsDayFirst) {
    const QString first_of_february = u"01/02/03"_s;
    for (const QString& text : {u"1/2/03"_s, u"1/2/2003"_s, u"01/02/2003"_s, u"01-02-2003"_s, u"1.2.2003"_s,
                                u"1 2 2003"_s, u"1 Feb 2003"_s, u"1 february 2003"_s, u"01-Feb-03"_s,
                                u"1Feb2003"_s, u"2003-02-01"_s, u"2003/2/1"_s, u" 1/2/2003 "_s,
                                u"01/02/2003 00:00"_s, u"2003-02-01 00:00:00"_s, u"2003-02-01T23:59"_s})
        EXPECT_EQ(Format_Import_Date(text), first_of_february) << text.toStdString();
    const std::pair<QString, QString> others[] = {
        {u"14/3/03"_s, u"14/03/03"_s},    {u"29/02/2004"_s, u"29/02/04"_s},  {u"29 Feb 00"_s, u"29/02/00"_s},
        {u"30/9/99"_s, u"30/09/99"_s},    {u"5 Sept 2004"_s, u"05/09/04"_s}, {u"31/12/1899"_s, u"31/12/99"_s},
        {u"9-MAY-2001"_s, u"09/05/01"_s},
    };
    for (const auto& [text, kept] : others) {
        EXPECT_EQ(Format_Import_Date(text), kept);
        EXPECT_EQ(Format_Import_Date(kept), kept) << "the preview formats twice";
    }
}

TEST(Format_Import_Date, RefusesWhatIsNoDate) {
    const QString no_dates =
        u"| |31/02/2003|29/02/2003|29/2/1900|31 Apr "
        u"2003|0/1/2003|1/0/2003|3/14/2003|32/1/2003|1/13/2003|"
        "1/2/203|1/2/20031|1/2|12|1/2-2003|1 Foo 2003|1 Febr 2003|Feb 2003|2003-02-30|20030201|1/2/2003x|"
        "1/2/2003 25:00|01/02/0000|١/٢/٢٠٠٣|1/2/2003\n|now"_s;
    for (const QString& text : no_dates.split(u'|') + QStringList{QString(100'000, u'1')}) {
        EXPECT_FALSE(Is_Import_Date(text)) << text.left(40).toStdString();
        EXPECT_EQ(Format_Import_Date(text), text);
    }
}

} // namespace pupils
