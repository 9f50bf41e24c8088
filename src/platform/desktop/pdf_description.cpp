#include "platform/desktop/pdf_description.h"

#include <QXmlStreamWriter>
#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

const QString Language = u"en-GB"_s;

QString Producer() {
    return u"Qt "_s + QString::fromLatin1(qVersion());
}

// ---- the packet

const QString Rdf = u"http://www.w3.org/1999/02/22-rdf-syntax-ns#"_s;
const QString Core = u"http://purl.org/dc/elements/1.1/"_s;
const QString Basic = u"http://ns.adobe.com/xap/1.0/"_s;
const QString Of_Pdf = u"http://ns.adobe.com/pdf/1.3/"_s;
const QString Archive = u"http://www.aiim.org/pdfa/ns/id/"_s;

void Write_List(QXmlStreamWriter& xml, const QString& property, const QString& kind, const QString& item) {
    if (item.isEmpty()) return;
    xml.writeStartElement(Core, property);
    xml.writeStartElement(Rdf, kind);
    xml.writeStartElement(Rdf, u"li"_s);
    if (kind == "Alt"_L1) xml.writeAttribute(u"xml:lang"_s, u"x-default"_s);
    xml.writeCharacters(item);
    for (int open = 0; open < 3; ++open)
        xml.writeEndElement();
}

// Readers for archives look for each kind of properties in a description of its own.
void Begin_Properties(QXmlStreamWriter& xml, const QString& space, const QString& prefix) {
    xml.writeStartElement(Rdf, u"Description"_s);
    xml.writeNamespace(space, prefix);
    xml.writeAttribute(Rdf, u"about"_s, u""_s);
}

void Write_Properties(QXmlStreamWriter& xml, const Pdf_Description& description) {
    Begin_Properties(xml, Core, u"dc"_s);
    Write_List(xml, u"title"_s, u"Alt"_s, description.title);
    Write_List(xml, u"creator"_s, u"Seq"_s, description.author);
    Write_List(xml, u"language"_s, u"Bag"_s, Language);
    xml.writeEndElement();
    Begin_Properties(xml, Basic, u"xmp"_s);
    if (!description.creator.isEmpty()) xml.writeTextElement(Basic, u"CreatorTool"_s, description.creator);
    xml.writeTextElement(Basic, u"CreateDate"_s,
                         description.made.toUTC().toString(u"yyyy-MM-dd'T'HH:mm:ss'Z'"_s));
    xml.writeEndElement();
    Begin_Properties(xml, Of_Pdf, u"pdf"_s);
    xml.writeTextElement(Of_Pdf, u"Producer"_s, Producer());
    xml.writeEndElement();
    Begin_Properties(xml, Archive, u"pdfaid"_s);
    xml.writeTextElement(Archive, u"part"_s, u"1"_s);
    xml.writeTextElement(Archive, u"conformance"_s, u"B"_s);
    xml.writeEndElement();
}

// ---- the toolkit's file

QByteArray Text_String(const QString& text) {
    QByteArray bytes("\xFE\xFF");
    for (const QChar character : text) {
        bytes.append(static_cast<char>(character.row()));
        bytes.append(static_cast<char>(character.cell()));
    }
    return '<' + bytes.toHex() + '>';
}

QByteArray Reference(std::size_t number) {
    return QByteArray::number(qulonglong(number)) + " 0 R";
}

// The first whole number behind the key; 0 if there is none.
std::size_t Number_After(const QByteArray& text, const QByteArray& key, qsizetype from = 0) {
    const qsizetype found = text.indexOf(key, from);
    if (found < 0) return 0;
    const auto is_digit = [](char character) { return character >= '0' && character <= '9'; };
    const auto first = std::find_if(text.begin() + found + key.size(), text.end(), is_digit);
    const auto behind = std::find_if_not(first, text.end(), is_digit);
    return QByteArray(first, behind - first).toULongLong();
}

// A word ends with its line.
QByteArray Word_After(const QByteArray& key, const QByteArray& text) {
    const qsizetype from = text.indexOf(key) + key.size();
    return text.mid(from, text.indexOf('\n', from) - from);
}

void Replace_Word_After(const QByteArray& key, const QByteArray& word, QByteArray& text) {
    const qsizetype from = text.indexOf(key) + key.size();
    if (from >= key.size()) text.replace(from, text.indexOf('\n', from) - from, word);
}

// What stands before a stream, or all of an object that has none.
qsizetype Dictionary_Size(const QByteArray& object) {
    const qsizetype stream = object.indexOf("stream\n");
    return stream < 0 ? object.size() : stream;
}

// The object with other numbers in its references.
QByteArray Renumbered(const QByteArray& object, const std::function<std::size_t(std::size_t)>& renumber) {
    QByteArray result;
    qsizetype copied = 0;
    const qsizetype end = Dictionary_Size(object);
    for (qsizetype at = object.indexOf(" 0 R"); at >= 0 && at < end; at = object.indexOf(" 0 R", at + 1)) {
        qsizetype digits = at;
        while (digits > 0 && object[digits - 1] >= '0' && object[digits - 1] <= '9')
            --digits;
        result.append(object.constData() + copied, digits - copied);
        result += QByteArray::number(qulonglong(renumber(object.mid(digits, at - digits).toULongLong())));
        copied = at;
    }
    return result.append(object.constData() + copied, object.size() - copied);
}

// Numbered objects one after the other, a table of their places and a trailer: none of it is packed, and none
// of it has a later version in the same file.
class Pdf_Objects {
public:
    explicit Pdf_Objects(const QByteArray& written) {
        const std::size_t table = Number_After(written, "startxref", written.lastIndexOf("startxref"));
        const QByteArray start = written.mid(qsizetype(table), 40);
        if (!start.startsWith("xref\n0 ")) return;
        Read(written, table, start.indexOf('\n', 7) + 1, Number_After(start, "xref\n0 "));
        trailer = written.mid(written.lastIndexOf("trailer"));
        trailer.truncate(trailer.indexOf("startxref"));
    }

    bool Are_Known() const {
        return !At(In_Trailer("/Root")).isEmpty() && !At(In_Trailer("/Info")).isEmpty();
    }

    std::size_t In_Trailer(const QByteArray& key) const { return Number_After(trailer, key); }
    std::size_t Count() const { return objects.size(); } // one more than the last one's number

    // One that isn't there is empty, and what is put there is dropped.
    QByteArray& At(std::size_t number) {
        spare.clear();
        return number > 0 && number < objects.size() ? objects[number] : spare;
    }
    const QByteArray& At(std::size_t number) const {
        return number < objects.size() ? objects[number] : objects.front();
    }
    void Add(const QByteArray& object) { objects.push_back(object); }

    // In the order in which references lead to them, as the toolkit's own changes from one run to the next.
    void Write(QIODevice& device) const {
        std::vector<std::size_t> met{0};
        std::vector<std::size_t> numbers(objects.size());
        const auto number = [&](std::size_t old) {
            if (old >= numbers.size() || old == 0) return std::size_t(0);
            if (numbers[old] == 0) {
                numbers[old] = met.size();
                met.push_back(old);
            }
            return numbers[old];
        };
        QByteArray end = Renumbered(trailer, number);
        QByteArray table = "0000000000 65535 f \n";
        qint64 place = device.write(head);
        for (std::size_t written = 1; written < met.size(); ++written) {
            table += QByteArray::number(place).rightJustified(10, '0') + " 00000 n \n";
            place += device.write(QByteArray::number(qulonglong(written)) + " 0 obj\n" +
                                  Renumbered(objects[met[written]], number) + "endobj\n");
        }
        const QByteArray size = QByteArray::number(qulonglong(met.size()));
        Replace_Word_After("/Size ", size, end);
        device.write("xref\n0 " + size + '\n' + table + end + "startxref\n" + QByteArray::number(place) +
                     "\n%%EOF\n");
    }

private:
    void Read(const QByteArray& written, std::size_t table, qsizetype in_table, std::size_t count) {
        constexpr int entry_size = 20;
        std::vector<std::size_t> places; // by number; 0 if it isn't there
        for (std::size_t number = 0; number < count; ++number) {
            const QByteArray entry =
                written.mid(qsizetype(table) + in_table + entry_size * qsizetype(number), entry_size);
            places.push_back(entry.endsWith("n \n") ? entry.left(10).toULongLong() : 0);
        }
        std::vector<std::size_t> in_order = places;
        in_order.push_back(table);
        std::sort(in_order.begin(), in_order.end());
        head = written.left(qsizetype(*std::upper_bound(in_order.begin(), in_order.end(), std::size_t(0))));
        objects.clear();
        for (const std::size_t place : places) {
            const auto behind = std::upper_bound(in_order.begin(), in_order.end(), place);
            const bool there = place > 0 && behind != in_order.end();
            objects.push_back(there ? Object_In(written.mid(qsizetype(place), qsizetype(*behind - place)))
                                    : QByteArray());
        }
    }

    static QByteArray Object_In(const QByteArray& numbered) {
        const qsizetype start = numbered.indexOf("obj\n") + 4;
        return numbered.mid(start, numbered.lastIndexOf("endobj") - start);
    }

    QByteArray head; // what comes before the first object
    std::vector<QByteArray> objects{QByteArray()};
    QByteArray trailer;
    QByteArray spare;
};

// ---- what is added to it

void Write_Info(const Pdf_Description& description, Pdf_Objects& pdf) {
    QByteArray info = "<<\n";
    const std::pair<QByteArray, QString> texts[] = {{"/Title", description.title},
                                                    {"/Author", description.author},
                                                    {"/Creator", description.creator},
                                                    {"/Producer", Producer()}};
    for (const auto& [key, text] : texts)
        if (!text.isEmpty()) info += key + ' ' + Text_String(text) + '\n';
    info +=
        "/CreationDate (D:" + description.made.toUTC().toString(u"yyyyMMddHHmmss"_s).toLatin1() + "Z)\n>>\n";
    pdf.At(pdf.In_Trailer("/Info")) = info;
}

std::vector<std::size_t> Page_Numbers(const Pdf_Objects& pdf) {
    const QByteArray& catalog = pdf.At(pdf.In_Trailer("/Root"));
    const QByteArray& pages = pdf.At(Number_After(catalog, "/Pages"));
    const qsizetype from = pages.indexOf('[', pages.indexOf("/Kids")) + 1;
    const QByteArrayList words = pages.mid(from, pages.indexOf(']', from) - from).simplified().split(' ');
    std::vector<std::size_t> numbers; // each reference is three words
    for (qsizetype word = 0; word + 2 < words.size(); word += 3)
        numbers.push_back(words[word].toULongLong());
    return numbers;
}

// Gives the number of the list; 0 if there is nothing to list.
std::size_t Add_Bookmarks(const std::vector<Bookmark>& bookmarks, Pdf_Objects& pdf) {
    const std::vector<std::size_t> pages = Page_Numbers(pdf);
    const std::size_t list = pdf.Count();
    const std::size_t first = list + 1;
    const std::size_t last = list + bookmarks.size();
    if (bookmarks.empty()) return 0;
    pdf.Add("<<\n/Type /Outlines\n/First " + Reference(first) + "\n/Last " + Reference(last) + "\n/Count " +
            QByteArray::number(qulonglong(bookmarks.size())) + "\n>>\n");
    for (const Bookmark& bookmark : bookmarks) {
        const std::size_t number = pdf.Count();
        const auto page = static_cast<std::size_t>(bookmark.page) - 1;
        QByteArray entry = "<<\n/Title " + Text_String(bookmark.title) + "\n/Parent " + Reference(list);
        if (number > first) entry += "\n/Prev " + Reference(number - 1);
        if (number < last) entry += "\n/Next " + Reference(number + 1);
        // The top of an A4 sheet, in points, at the zoom that the reader has.
        if (page < pages.size()) entry += "\n/Dest [" + Reference(pages[page]) + " /XYZ 0 842 0]";
        pdf.Add(entry + "\n>>\n");
    }
    return list;
}

void Extend_Catalog(std::size_t bookmarks, bool shows_them, Pdf_Objects& pdf) {
    QByteArray added =
        "/Lang (" + Language.toLatin1() + ")\n/ViewerPreferences << /DisplayDocTitle true >>\n";
    if (bookmarks > 0) added += "/Outlines " + Reference(bookmarks) + '\n';
    if (shows_them) added += "/PageMode /UseOutlines\n";
    QByteArray& catalog = pdf.At(pdf.In_Trailer("/Root"));
    catalog.insert(catalog.lastIndexOf(">>"), added);
}

// The table from a font's glyphs back to characters names the first character with that glyph, and a tab is
// drawn as a blank. Behind the two ends of each range stand the characters.
void Call_Blanks_Blanks(QByteArray& table) {
    constexpr qsizetype ends_of_range = 14;
    qsizetype line = table.indexOf("beginbfrange");
    const qsizetype end = table.indexOf("endbfrange");
    while (line >= 0 && line < end) {
        const qsizetype behind = table.indexOf('\n', line) + 1;
        for (qsizetype at = table.indexOf("<0009>", line + ends_of_range); at >= 0 && at < behind;
             at = table.indexOf("<0009>", at))
            table.replace(at, 6, "<0020>");
        line = behind;
    }
}

// Six letters and a plus sign.
QByteArray Mark_Of_Part(std::size_t number) {
    QByteArray mark("AAAAAA+");
    for (int letter = 5; number > 0 && letter >= 0; number /= 26)
        mark[letter--] = static_cast<char>('A' + number % 26);
    return mark;
}

// A font of which a part is embedded bears a mark of that part in its name, and the same name everywhere. The
// toolkit marks the part alone, in an order that changes.
void Mend_Fonts(Pdf_Objects& pdf) {
    for (std::size_t number = 1; number < pdf.Count(); ++number) {
        if (!pdf.At(number).left(100).contains("/Subtype /Type0")) continue;
        const std::size_t part = Number_After(pdf.At(number), "/DescendantFonts");
        const std::size_t descriptor = Number_After(pdf.At(part), "/FontDescriptor");
        const QByteArray name = '/' + Mark_Of_Part(number) + Word_After("/BaseFont /", pdf.At(number));
        Replace_Word_After("/FontName ", name, pdf.At(descriptor));
        for (const std::size_t named : {number, part})
            Replace_Word_After("/BaseFont ", name, pdf.At(named));
        Call_Blanks_Blanks(pdf.At(Number_After(pdf.At(number), "/ToUnicode")));
    }
}

} // namespace

QByteArray Metadata_Packet(const Pdf_Description& description) {
    QByteArray content;
    QXmlStreamWriter xml(&content);
    xml.writeNamespace(u"adobe:ns:meta/"_s, u"x"_s);
    xml.writeNamespace(Rdf, u"rdf"_s);
    xml.writeStartElement(u"adobe:ns:meta/"_s, u"xmpmeta"_s);
    xml.writeStartElement(Rdf, u"RDF"_s);
    Write_Properties(xml, description);
    xml.writeEndDocument();
    return "<?xpacket begin='\xEF\xBB\xBF' id='W5M0MpCehiHzreSzNTczkc9d'?>\n" + content +
           "\n<?xpacket end='w'?>";
}

void Write_Described(const QByteArray& written, const Pdf_Description& description, QIODevice& device) {
    Pdf_Objects pdf(written);
    if (!pdf.Are_Known()) {
        device.write(written);
        return;
    }
    Write_Info(description, pdf);
    Mend_Fonts(pdf);
    const std::size_t bookmarks = Add_Bookmarks(description.bookmarks, pdf);
    Extend_Catalog(bookmarks, description.bookmarks.size() > 1, pdf);
    pdf.Write(device);
}

} // namespace desktop
