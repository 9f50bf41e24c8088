#include "pupils/import/preparation.h"

#include "pupils/import/prepared_file.h"
#include "pupils/import_page.h"
#include "support/files.h"
#include "support/page_fixture.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

const QDateTime Now(QDate(2026, 6, 15), QTime(10, 30));

Preparation Taken(Source_Table table) {
    Preparation list;
    Take_Source(list, std::move(table), Now.date());
    return list;
}

Preparation Taken_Text(const QByteArray& bytes) {
    return Taken(Read_Source_Bytes(bytes));
}

// "4: new", with what is said of the row.
QStringList Told(const Preparation& list, const Registered& registered = {}) {
    QStringList told;
    for (const Rehearsed_Row& row : Rehearse(list, registered, Now))
        told.append(
            QStringList{u"%1: %2"_s.arg(row.line).arg(Words_Of(row.kind)), row.words.join(u"; "_s)}.join(
                row.words.isEmpty() ? u""_s : u", "_s));
    return told;
}

QString Why_Refused(const QByteArray& bytes) {
    try {
        Read_Source_Bytes(bytes);
        return {};
    } catch (const Refused_Source& refused) {
        return refused.Why();
    }
}

// A workbook of that sheet; its second format of cells is a date, its third an amount.
QByteArray Workbook_Of(const QByteArray& sheet) {
    const std::pair<QString, QByteArray> parts[] = {
        {u"xl/workbook.xml"_s, "<workbook><sheets><sheet name='A' id='r1'/></sheets></workbook>"},
        {u"xl/_rels/workbook.xml.rels"_s, "<r><Relationship Id='r1' Target='sheet.xml'/></r>"},
        {u"xl/styles.xml"_s,
         "<s><numFmts><numFmt numFmtId='170' formatCode='0.0\"days\"'/></numFmts><cellXfs><xf/><xf "
         "numFmtId='14'/><xf numFmtId='170'/></cellXfs></s>"},
        {u"xl/sheet.xml"_s, sheet}};
    QBuffer buffer;
    QuaZip zip(&buffer);
    zip.open(QuaZip::mdCreate);
    for (const auto& [name, bytes] : parts) {
        QuaZipFile file(&zip);
        file.open(QIODevice::WriteOnly, QuaZipNewInfo(name));
        file.write(bytes);
    }
    zip.close();
    return buffer.data();
}

QString Text_Of(const QList<Source_Row>& rows) {
    QStringList texts;
    for (const Source_Row& row : rows)
        texts.append(u"%1: %2"_s.arg(row.line).arg(row.cells.join(u'|')));
    return texts.join(u' ');
}

class Exports : public test_support::Page_Fixture {
protected:
    // Cures what can be cured, leaves out what would be refused, and imports the rest on the Import page.
    QStringList Imported(Preparation list) {
        QSet<int> lines;
        for (const Rehearsed_Row& row : Rehearse(list, {}, Now))
            lines.insert(row.line);
        Cure(list, lines, Now);
        for (const Rehearsed_Row& row : Rehearse(list, {}, Now))
            if (row.kind == Row_Kind::Refused) list.chosen[row.line] = false;
        List_To_Import prepared;
        prepared.file.Hold(Prepared_Bytes(Rehearse(list, {}, Now)));
        Form42 form(outside.platform, navigator, installation, prepared);
        outside.file_dialogs.answers = {prepared.file.Name()};
        test_support::Click(form, u"PreviewImport"_s);
        outside.boxes.Will_Answer(desktop::Answer::Yes);
        test_support::Click(form, u"HotLabel3"_s);
        const QStringList rows = sample.Column(
            u"SELECT surname || '|' || forename || '|' || sex || '|' || dob || '|' || group_class || '|' "
            u"|| password FROM mevo_pupils WHERE rowid > 12 ORDER BY rowid"_s);
        sample.Run(u"DELETE FROM mevo_pupils WHERE rowid > 12"_s);
        return rows;
    }
};

} // namespace

TEST_F(Exports, OfManySystemsBecomeTheSamePupils) {
    const QStringList same{u"O'Brien|Seán|M|14/03/19|Oak|"_s, u"Smith-Jones|Amelia Rose|F|02/11/18|Oak|"_s,
                           u"Nowak|Zofia|F|25/12/19|Elm|"_s,  u"García|José|M|03/04/20|Elm|"_s,
                           u"Le Fay|Anna|F|30/09/18|Oak|"_s,  u"Patel|Dev|M|12/06/19|Elm|"_s};
    const struct {
        QString file;
        int sheet = 0;
        QString told = {}; // of rows that aren't new
        QList<std::pair<QString, QString>> lost = {};
    } cases[] = {
        {u"own_form.txt"_s},
        {u"quoted.csv"_s},
        {u"semicolons.csv"_s},
        {u"unicode_text.txt"_s},
        {u"whole_names.csv"_s},
        {u"month_first.csv"_s},
        {u"notes.csv"_s, 0,
         u"13: would be refused, there is no forename; there is no gender; there is no date of birth"_s},
        {u"trailing_columns.csv"_s},
        {u"pipes.txt"_s},
        {u"single_quotes.csv"_s},
        {u"beyond_the_form.csv"_s,
         0,
         u"3: would be spoilt, the class holds a comma, which parts the fields of the import; the password "
         u"holds an "
         u"apostrophe: the pupil would not be stored|"
         u"4: would be spoilt, the class holds a comma, which parts the fields of the import|"
         u"5: would be spoilt, the surname holds a character that the import's code page lacks; the class "
         u"holds an "
         u"apostrophe: it would not come into the lists of groups|"
         u"6: would be spoilt, the class holds an apostrophe: it would not come into the lists of groups|"
         u"7: would be spoilt, the class holds a comma, which parts the fields of the import|"
         u"8: would be spoilt, the class holds an apostrophe: it would not come into the lists of groups"_s,
         {{u"Oak|"_s, u"Oak upper|cat"_s},
          {u"Elm|"_s, u"St John’s|cat"_s},
          {u"Nowak"_s, u"Las"_s},
          {u"M|14/03/19|Oak upper|cat"_s, u"M|14/03/19|Oak upper|its"_s}}},
        {u"workbook.xlsx"_s, 1},
    };
    for (const auto& [file, sheet, told, lost] : cases) {
        SCOPED_TRACE(file.toStdString());
        const Preparation list =
            Taken(Read_Source_File(QStringLiteral(MEVO_TEST_DATA) + u"/exports/"_s + file, {{}, sheet}));
        EXPECT_EQ(Told(list).filter(QRegularExpression(u": (?!new)"_s)).join(u'|'), told);
        QString expected = same.join(u'\n');
        for (const auto& [carried, instead] : lost)
            expected.replace(carried, instead);
        EXPECT_EQ(Imported(list).join(u'\n'), expected);
    }
}

TEST(Source_Dates, AreOfOneOrderForAllRowsOrAskedFor) {
    using enum Date_Order;
    const struct {
        QString column;
        Date_Order order;
        QString read = {}; // the last one, in that order
        qsizetype shown = 0;
    } cases[] = {
        {u"14/03/2019|03/04/2019"_s, Day_First, u"2019-04-03"_s},
        {u"03/14/2019|03/04/2019"_s, Month_First, u"2019-03-04"_s},
        {u"05/05/2019|03/04/2019|1/2/19|3/4/19|5/6/19|7/8/19|9/10/19"_s, Unsettled, {}, 5},
        {u"05/05/2019|7/7/19"_s, Day_First, u"2019-07-07"_s}, // either way the same
        {u"14/03/2019|03/14/2019"_s, Unsettled},              // neither fits all
        {u"14/03/2019|unknown|03/04/2019"_s, Day_First, u"2019-04-03"_s},
        {u"2019-03-04|4 Mar 2019|March 4th, 2019|Mon 4 Mar 19|43528"_s, Day_First, u"2019-03-04"_s},
        {u"25/12/2019|20190304"_s, Day_First, u"2019-03-04"_s},
        {u"14/12/2019|19.12.31|12/31/2019"_s, Unsettled},
        {u"98/12/31|99/01/02"_s, Year_First, u"1999-01-02"_s},
        {u"31/04/2019|2019-02-30"_s, Day_First}, // none is a date
    };
    for (const auto& [column, order, read, shown] : cases) {
        SCOPED_TRACE(column.toStdString());
        const QStringList texts = column.split(u'|');
        const Date_Fit fit = Fit_Dates(texts, Now.date());
        EXPECT_EQ(fit.Settled(), order);
        EXPECT_EQ(fit.telling_apart.size(), shown);
        const auto last = Read_Source_Date(texts.last(), order);
        EXPECT_EQ(last ? last->date.toString(Qt::ISODate) : QString(), read);
    }
}

TEST(Rehearsal, TellsWhatWouldBecomeOfEachRow) {
    Registered registered;
    registered.Add(u"smith"_s, u"JANE"_s, {QDate(2019, 3, 14), u"Oak"_s});
    registered.Add_Group(u"Oak"_s);
    Preparation list = Taken_Text("Surname,Forename,Gender,DOB,Class,Password\n"
                                  "Smith,Jane,F,14/03/2019,oak,\n"
                                  "Smith,Jane,F,15/03/2019,Elm,\n"
                                  "Kane,Mo,m,1/2/2019,elm,\n"
                                  "Kane,Mo,M,01/02/19,Elm,\n"
                                  "Old,Al,M,25/12/11,,\n"
                                  "Older,Al,M,25/12/1925,,\n"
                                  "Holder,?group_class,M,25/12/2019,,?password\n"
                                  "Long,Al,X,31/04/2019," +
                                  QByteArray(51, 'g') + ",\n,Al,F,,,\n");
    EXPECT_EQ(
        Told(list, registered),
        (QStringList{
            u"2: already there, registered in Oak"_s,
            u"3: other birthday, one of that name in Oak was born 14/03/2019"_s, u"4: new"_s,
            u"5: twice, the same as line 4"_s,
            u"6: unlikely age, the tests have no norms for this age; the year has two digits; is it right?"_s,
            u"7: would be spoilt, the tests have no norms for this age; the import writes years with two digits, and would read 1925 as another century"_s,
            u"8: would be spoilt, the forename is spelt like a part of the import's statement, which would fill it in"_s,
            u"9: would be refused, “X” is neither male nor female; “31/04/2019” is no date, day first; the "
            u"class has "
            u"more than 50 characters: the pupil would not be stored"_s,
            u"10: would be refused, there is no surname; there is no date of birth"_s}));
    Rehearsal_Counts counts = Count(Rehearse(list, registered, Now), registered);
    EXPECT_EQ(In_Words(counts),
              u"9 rows, 7 to be imported: 1 new, 1 unlikely age, 1 other birthday, 1 already there, 1 twice, "
              u"2 would be spoilt, 2 would be refused."_s);
    EXPECT_EQ(counts.new_classes, (QStringList{u"Elm"_s, QString(51, u'g')}));
    EXPECT_TRUE(Why_Not_Yet(list, counts).startsWith(u"4 of the rows"_s));
    list.corrections[{9, 2}] = u"girl"_s;
    list.corrections[{9, 3}] = u"03/04/2019"_s;
    list.class_for_all = u"Willow"_s;
    EXPECT_EQ(Cure(list, {8, 9}, Now), 2);
    for (const int line : {6, 7, 10})
        list.chosen[line] = false;
    counts = Count(Rehearse(list, registered, Now), registered);
    EXPECT_EQ(Why_Not_Yet(list, counts), u"Accept the new classes first."_s);
    for (const QString& name : counts.new_classes)
        list.accepted_classes.insert(name.toCaseFolded());
    EXPECT_EQ(Why_Not_Yet(list, counts), u""_s);
    EXPECT_EQ(Prepared_Bytes(Rehearse(list, registered, Now)),
              "Smith,Jane,F,15/03/2019,Elm,\r\nKane,Mo,M,01/02/2019,elm,\r\n"
              "Holder,group_class,M,25/12/2019,Willow,?password\r\nLong,Al,F,03/04/2019," +
                  QByteArray(50, 'g') + ",\r\n");
}

TEST(Recognition, TakesColumnsByHeadingsAndByWhatTheyHold) {
    const std::pair<QByteArray, QString> cases[] = {
        {"Surname;Forename;Sex;DOB;Class\nA;B;M;14/03/2019;C", u"0 1 2 3 4 -1"_s},
        {"Year,Class,Preferred Surname,Legal "
         "surname,Name,Gender,Date_of_birth,PIN\n2,Oak,X,A,B,M,14/03/2019,cat",
         u"3 4 5 6 1 7"_s},
        {"Name,When,What\n\"A, Bo\",14/03/2019,M", u"0 0 2 1 -1 -1"_s},
        {"Adams,Bo,M,14/03/2019\nBell,Cy,F,15/03/2019", u"0 1 2 3 -1 -1"_s},
        {"3,14/03/2019,Adams,Bo,M,Oak\n4,15/03/2019,Bell,Cy,F,Oak\n5,16/03/2019,Cole,Di,F,Oak",
         u"2 3 4 1 5 -1"_s},
        {"nothing\nof the kind", u"0 -1 -1 -1 -1 -1"_s},
    };
    for (const auto& [bytes, mapping] : cases) {
        const Preparation list = Taken_Text(bytes);
        EXPECT_EQ(Text_Of(list.recognition.mapping), mapping) << bytes.constData();
        EXPECT_EQ(Mapping_Of(mapping, list.recognition.headings.size()), list.recognition.mapping);
    }
    EXPECT_FALSE(Mapping_Of(u"0 1 2 3 4 5"_s, 5));
    EXPECT_FALSE(Mapping_Of(u"0 1 2 3 4"_s, 5));
}

TEST(Workbooks, AreReadAsTheyAreAndNeverTrusted) {
    const auto sheet = [](const QByteArray& rows) {
        return "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
    };
    QByteArray attributes,
        laughs = "<!DOCTYPE a [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>";
    for (int i = 0; i < 100; ++i)
        attributes += " a" + QByteArray::number(i) + "=''";
    const struct {
        QByteArray sheet;
        QString read; // "row: cells", or why not
    } cases[] = {
        {sheet("<row r='3'><c r='B3'><v>7.5</v></c><c><v>x</v></c></row><row><c "
               "t='inlineStr'><is><t>a</t><rPh><t>b</t></rPh>"
               "</is></c></row>"),
         u"3: |7.5|x 4: a"_s},
        {sheet("<row><c s='1'><v>43538</v></c><c s='1' t='str'><v>43538</v></c><c s='2'><v>1.5</v></c><c "
               "t='d'><v>"
               "2019-03-14T00:00:00</v></c><c t='s'><v>99</v></c><c t='e'><v>#REF!</v></c></row>"),
         u"1: 2019-03-14|43538|1.5|2019-03-14||#REF!"_s},
        {sheet("<row r='2147483647'><c r='A4294967295'><v>x</v></c></row>"), u"1: x"_s},
        {sheet("<row><c r='XFD1'><v>x</v></c></row>"), u"more"_s},
        {sheet(QByteArray("<row/>").repeated(3'000'000)), u"more"_s},
        {sheet("<row><c><v>" + QByteArray(200'000, 'x') + "</v></c></row>"), u"more"_s},
        {QByteArray("<a>").repeated(100'000), u"more"_s},
        {"<a" + attributes + "/>", u"more"_s},
        {laughs + sheet("<row><c><v>&b;</v></c></row>"), u"no spreadsheet"_s},
        {sheet("<row><c>"), u"damaged"_s},
        {"", u"damaged"_s},
    };
    for (const auto& [bytes, read] : cases) {
        SCOPED_TRACE(read.toStdString());
        const QByteArray workbook = Workbook_Of(bytes);
        const QString why = Why_Refused(workbook);
        EXPECT_TRUE(why.isEmpty() ? Text_Of(Read_Source_Bytes(workbook).rows) == read : why.contains(read))
            << why.toStdString();
    }
}

TEST(Sources, ThatAreNoListsAreRefusedInWords) {
    const std::pair<QByteArray, QString> cases[] = {
        {QByteArray(source_limit::File_Bytes + 1, 'x'), u"more than 20000000 bytes"_s},
        {QByteArray("a\n").repeated(source_limit::Rows + 1), u"more than 32767 rows"_s},
        {QByteArray(300, ',') + 'x', u"more than 256 columns"_s},
        {QByteArray("x,").repeated(200).append("x\n").repeated(2500), u"more than 500000 cells"_s},
        {QByteArray::fromHex("89504e470d0a1a0a0000000d"), u"no text"_s},
        {QByteArray::fromHex("d0cf11e0a1b11ae1"), u".xls"_s},
        {"%PDF-1.7", u"PDF"_s},
        {"PK\x03\x04 and nothing behind", u"damaged"_s},
    };
    for (const auto& [bytes, words] : cases)
        EXPECT_TRUE(Why_Refused(bytes).contains(words))
            << words.toStdString() << ": " << Why_Refused(bytes).toStdString();
    EXPECT_EQ(Read_Source_Bytes("").rows.size(), 0);
}

} // namespace pupils
