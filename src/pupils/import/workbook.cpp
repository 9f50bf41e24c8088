#include "pupils/import/workbook.h"

#include <QBuffer>
#include <QDate>
#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <functional>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

constexpr int Most_Parts = 5000;            // of the package
constexpr qint64 Most_Bytes = 40'000'000;   // of all parts that are read, once they are unpacked
constexpr qint64 Most_Elements = 3'000'000; // in them
constexpr qint64 Longest_Run =
    100'000;                // bytes from one "<" to the next; a cell holds 32767 characters at most
constexpr int Deepest = 64; // elements within one another
constexpr qsizetype Most_Attributes = 64;     // of an element
constexpr qsizetype Most_Strings = 1'000'000; // shared ones
constexpr qsizetype Most_Styles = 100'000;
constexpr qsizetype Most_Sheets = 1000;

[[noreturn]] void Refuse(const QString& why) {
    throw Refused_Source(why);
}

[[noreturn]] void Refuse_Size() {
    Refuse(u"This workbook unpacks to far more than a list of pupils."_s);
}

[[noreturn]] void Refuse_Damaged() {
    Refuse(u"This workbook is damaged, or has a password."_s);
}

// A part of the package, unpacked as it is read. It ends at once where it gets too large or an element too
// long, so that nothing grows with what a file claims; Passed_Limits tells so afterwards, as nothing may be
// thrown through the toolkit.
class Bounded_Part final : public QIODevice {
public:
    Bounded_Part(QuaZipFile& file, qint64& unpacked) : file(file), unpacked(unpacked) {
        open(QIODevice::ReadOnly);
    }
    bool Passed_Limits() const { return passed_limits; }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 longest) override {
        const qint64 taken = passed_limits ? 0 : file.read(data, longest);
        for (qint64 i = 0; i < taken; ++i)
            if (data[i] == '<')
                run = 0;
            else if (++run > Longest_Run)
                passed_limits = true;
        unpacked += std::max<qint64>(taken, 0);
        passed_limits = passed_limits || unpacked > Most_Bytes;
        return passed_limits ? 0 : taken;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QuaZipFile& file;
    qint64& unpacked; // of all parts
    qint64 run = 0;
    bool passed_limits = false;
};

using Xml = QXmlStreamReader;

class Package {
public:
    explicit Package(const QByteArray& bytes) : zip(&buffer) {
        buffer.setData(bytes);
        if (!zip.open(QuaZip::mdUnzip)) Refuse_Damaged();
        if (zip.getEntriesCount() > Most_Parts) Refuse_Size();
    }

    // Hands each token of the part on; false if there is no such part.
    bool Walk(const QString& part, const std::function<void(const Xml&)>& take) {
        if (!zip.setCurrentFile(part, QuaZip::csInsensitive)) return false;
        QuaZipFile file(&zip);
        if (!file.open(QIODevice::ReadOnly)) Refuse_Damaged();
        Bounded_Part bounded(file, unpacked);
        Xml xml(&bounded);
        depth = 0;
        while (!xml.atEnd()) {
            xml.readNext();
            if (xml.hasError()) break;
            Check_Token(xml);
            take(xml);
        }
        if (bounded.Passed_Limits()) Refuse_Size();
        if (xml.hasError()) Refuse_Damaged();
        return true;
    }

private:
    // Whether the token may stand in a workbook.
    void Check_Token(const Xml& xml) {
        if (xml.isDTD() || xml.isEntityReference())
            Refuse(u"This workbook holds what no spreadsheet writes."_s);
        if (xml.isEndElement()) --depth;
        if (!xml.isStartElement()) return;
        if (++depth > Deepest || ++elements > Most_Elements || xml.attributes().size() > Most_Attributes)
            Refuse_Size();
    }

    QBuffer buffer;
    QuaZip zip;
    qint64 unpacked = 0; // bytes so far
    qint64 elements = 0;
    int depth = 0;
};

QString Attribute(const Xml& xml, QLatin1StringView name) {
    for (const QXmlStreamAttribute& attribute : xml.attributes())
        if (attribute.name() == name) return attribute.value().toString();
    return {};
}

bool Begins(const Xml& xml, QLatin1StringView name) {
    return xml.isStartElement() && xml.name() == name;
}

// ---- what lies beside the sheets

struct Sheet {
    QString name;
    QString id; // by which the package knows its part
};

struct Workbook_Facts {
    QList<Sheet> sheets;
    QHash<QString, QString> parts; // by id
    bool from_1904 = false;
    QStringList strings;
    QList<bool> is_date; // by style
};

void Read_Sheets(Package& package, Workbook_Facts& facts) {
    const bool there = package.Walk(u"xl/workbook.xml"_s, [&](const Xml& xml) {
        if (Begins(xml, "sheet"_L1))
            facts.sheets.append({Attribute(xml, "name"_L1), Attribute(xml, "id"_L1)});
        if (Begins(xml, "workbookPr"_L1)) {
            const QString set = Attribute(xml, "date1904"_L1);
            facts.from_1904 = set == "1"_L1 || set == "true"_L1;
        }
        if (facts.sheets.size() > Most_Sheets) Refuse_Size();
    });
    if (!there || facts.sheets.isEmpty())
        Refuse(u"This is a package of another kind, and no workbook (.xlsx)."_s);
    package.Walk(u"xl/_rels/workbook.xml.rels"_s, [&](const Xml& xml) {
        if (!Begins(xml, "Relationship"_L1)) return;
        const QString target = Attribute(xml, "Target"_L1);
        facts.parts[Attribute(xml, "Id"_L1)] = target.startsWith(u'/') ? target.mid(1) : u"xl/"_s + target;
    });
}

// How a cell's text is put together: of runs, but without what only tells how it is spoken.
class Cell_Text {
public:
    void Take(const Xml& xml) {
        if (xml.isStartElement() && xml.name() == "rPh"_L1) spoken = true;
        if (xml.isEndElement() && xml.name() == "rPh"_L1) spoken = false;
        if (xml.isStartElement()) inside = !spoken && (xml.name() == "t"_L1 || xml.name() == "v"_L1);
        if (xml.isEndElement()) inside = false;
        if (xml.isCharacters() && inside) text += xml.text();
    }
    QString Taken() { return std::exchange(text, QString()); }

private:
    QString text;
    bool inside = false;
    bool spoken = false;
};

void Read_Strings(Package& package, Workbook_Facts& facts) {
    Cell_Text text;
    qsizetype characters = 0;
    package.Walk(u"xl/sharedStrings.xml"_s, [&](const Xml& xml) {
        text.Take(xml);
        if (!xml.isEndElement() || xml.name() != "si"_L1) return;
        facts.strings.append(text.Taken());
        characters += facts.strings.last().size();
        if (facts.strings.size() > Most_Strings || characters > source_limit::Characters) Refuse_Size();
    });
}

// A number format shows a date if a day or a year is left once its literals are taken out.
bool Shows_Date(QString code) {
    static const QRegularExpression literals(uR"("[^"]*"|\\.|_.|\*.|\[[^\]]*\])"_s);
    code = code.remove(literals).section(u';', 0, 0).toLower();
    return code != "general"_L1 && (code.contains(u'd') || code.contains(u'y'));
}

// The formats that no workbook spells out.
bool Is_Built_In_Date(int format) {
    return (format >= 14 && format <= 17) || format == 22 || (format >= 27 && format <= 36) ||
           (format >= 50 && format <= 58);
}

void Read_Styles(Package& package, Workbook_Facts& facts) {
    QHash<int, bool> own; // by the format's number
    bool in_cells = false;
    package.Walk(u"xl/styles.xml"_s, [&](const Xml& xml) {
        if (xml.name() == "cellXfs"_L1) in_cells = xml.isStartElement();
        if (Begins(xml, "numFmt"_L1))
            own[Attribute(xml, "numFmtId"_L1).toInt()] = Shows_Date(Attribute(xml, "formatCode"_L1));
        if (!in_cells || !Begins(xml, "xf"_L1)) return;
        const int format = Attribute(xml, "numFmtId"_L1).toInt();
        facts.is_date.append(own.value(format, Is_Built_In_Date(format)));
        if (facts.is_date.size() > Most_Styles || own.size() > Most_Styles) Refuse_Size();
    });
}

// ---- a sheet

// From the letters of a cell's place, "AB12": 0 for column A. -1 for what is no such place.
int Column_Of(const QString& place) {
    int column = 0;
    for (const QChar letter : place) {
        if (letter < u'A' || letter > u'Z') break;
        column = column * 26 + (letter.unicode() - u'A' + 1);
        if (column > 20'000) return -1;
    }
    return column - 1;
}

QString Day_Of_Number(const QString& number, bool from_1904) {
    constexpr int last_day = 2'958'465; // of the year 9999
    bool is_number = false;
    const double days = number.toDouble(&is_number);
    if (!is_number || days < 1 || days > last_day) return number;
    const QDate first = from_1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30);
    return first.addDays(qint64(days)).toString(Qt::ISODate);
}

class Sheet_Reader {
public:
    explicit Sheet_Reader(const Workbook_Facts& facts) : facts(facts) {}

    void Take(const Xml& xml) {
        if (Begins(xml, "row"_L1)) Begin_Row(Attribute(xml, "r"_L1).toInt());
        if (Begins(xml, "c"_L1)) Begin_Cell(xml);
        text.Take(xml);
        if (xml.isEndElement() && xml.name() == "c"_L1) End_Cell();
        if (xml.isEndElement() && xml.name() == "row"_L1) table.Add(row, std::exchange(cells, {}));
    }
    QList<Source_Row> Rows() && { return std::move(table).Rows(); }

private:
    void Begin_Row(int number) {
        constexpr int last = 1'048'576; // of any sheet
        row =
            number > 0 && number <= last ? number : row + 1; // one without its number follows the one before
        column = -1;
        cells.clear();
    }
    void Begin_Cell(const Xml& xml) {
        const int told = Column_Of(Attribute(xml, "r"_L1));
        column = told >= 0 ? told : column + 1;
        type = Attribute(xml, "t"_L1);
        style = Attribute(xml, "s"_L1).toInt();
        text.Taken();
    }
    void End_Cell() {
        const QString value = Value_Of(text.Taken());
        if (value.isEmpty()) return;
        if (column >= source_limit::Columns) Refuse_Size();
        while (cells.size() <= column)
            cells.append(QString());
        cells[column] = value;
    }
    QString Value_Of(const QString& written) const {
        if (type == "s"_L1) return facts.strings.value(written.toInt());
        const bool is_number = type.isEmpty() || type == "n"_L1;
        if (type == "d"_L1) return written.left(10); // a date, with the time of day behind it
        return is_number && facts.is_date.value(style) ? Day_Of_Number(written, facts.from_1904) : written;
    }

    const Workbook_Facts& facts;
    Table_Builder table;
    QStringList cells;
    Cell_Text text;
    QString type;
    int style = 0;
    int row = 0;
    int column = -1;
};

} // namespace

Source_Table Read_Workbook(const QByteArray& bytes, int sheet) {
    Package package(bytes);
    Workbook_Facts facts;
    Read_Sheets(package, facts);
    Read_Strings(package, facts);
    Read_Styles(package, facts);
    Source_Table table;
    for (const Sheet& each : facts.sheets)
        table.sheets.append(each.name);
    table.sheet = sheet >= 0 && sheet < facts.sheets.size() ? sheet : 0;
    Sheet_Reader reader(facts);
    if (!package.Walk(facts.parts.value(facts.sheets[table.sheet].id),
                      [&](const Xml& xml) { reader.Take(xml); }))
        Refuse_Damaged();
    table.rows = std::move(reader).Rows();
    return table;
}

} // namespace pupils
