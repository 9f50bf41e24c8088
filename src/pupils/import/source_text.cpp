#include "platform/basics/code_page.h"
#include "pupils/import/source_table.h"

#include <QHash>
#include <QStringDecoder>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

const QStringList& Encoding_Names() {
    static const QStringList names{u"UTF-8"_s, u"UTF-16"_s, u"UTF-16, big end first"_s, u"Windows-1252"_s};
    return names;
}

namespace {

// ---- encoding

// Western letters have their zero byte behind them, or before them.
std::optional<Encoding> By_Zero_Bytes(const QByteArray& bytes) {
    constexpr qsizetype looked_at = 4096;
    qsizetype zeros[2] = {0, 0};
    const qsizetype end = std::min(bytes.size(), looked_at);
    for (qsizetype i = 0; i < end; ++i)
        if (bytes[i] == 0) ++zeros[i % 2];
    constexpr qsizetype most_of_them = 4; // a quarter of all bytes
    if (zeros[1] * most_of_them > end && zeros[0] == 0) return Encoding::Utf_16_LE;
    if (zeros[0] * most_of_them > end && zeros[1] == 0) return Encoding::Utf_16_BE;
    return {};
}

Encoding Found_Encoding(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE")) return Encoding::Utf_16_LE;
    if (bytes.startsWith("\xFE\xFF")) return Encoding::Utf_16_BE;
    if (const auto found = By_Zero_Bytes(bytes)) return *found;
    return bytes.isValidUtf8() ? Encoding::Utf_8 : Encoding::Windows_1252;
}

QString Decoded(const QByteArray& bytes, Encoding encoding) {
    switch (encoding) {
    case Encoding::Utf_8:
        return QString::fromUtf8(bytes);
    case Encoding::Utf_16_LE:
        return QStringDecoder(QStringDecoder::Utf16LE, QStringDecoder::Flag::Stateless)(bytes);
    case Encoding::Utf_16_BE:
        return QStringDecoder(QStringDecoder::Utf16BE, QStringDecoder::Flag::Stateless)(bytes);
    case Encoding::Windows_1252:
        break;
    }
    return basics::From_Code_Page_1252(bytes);
}

// ---- records

struct Written_As {
    QChar delimiter = u',';
    QChar quote = u'"';
};

bool Is_Line_End(QChar character) {
    return character == u'\n' || character == u'\r';
}

constexpr qsizetype Longest_Record = 20'000; // cells; a spreadsheet writes commas for all its columns

// Gives record by record. A quote counts only at the beginning of a field and where its other half follows
// soon: otherwise it is a character like any other, so that a stray one swallows nothing.
class Record_Reader {
public:
    Record_Reader(QStringView text, const Written_As& written) : text(text), written(written) {}

    bool At_End() const { return at >= text.size(); }
    int Line() const { return line; }

    QStringList Next() {
        QStringList cells;
        do {
            cells.append(Next_Cell());
            if (cells.size() > Longest_Record)
                throw Refused_Source(u"A line of this is longer than any list's."_s);
        } while (Passed_Delimiter());
        Pass_Line_End();
        return cells;
    }

private:
    QString Next_Cell() {
        qsizetype start = at;
        while (start < text.size() && text[start] == u' ' && written.delimiter != u' ')
            ++start;
        QString cell;
        if (const qsizetype end = Closing_Quote(start); end > 0) {
            cell = text.sliced(start + 1, end - start - 1).toString();
            cell.replace(QString(2, written.quote), QString(written.quote));
            line += int(text.sliced(start, end - start).count(u'\n'));
            at = end + 1;
        }
        const qsizetype rest = at;
        while (!At_End() && text[at] != written.delimiter && !Is_Line_End(text[at]))
            ++at;
        return cell += text.sliced(rest, at - rest);
    }
    // The place of the quote that ends the field beginning at `start`; 0 if it isn't a quoted one.
    qsizetype Closing_Quote(qsizetype start) const {
        constexpr qsizetype longest = 2000;
        if (start >= text.size() || text[start] != written.quote) return 0;
        const qsizetype end = std::min(text.size(), start + longest);
        for (qsizetype i = start + 1; i < end; ++i) {
            if (text[i] != written.quote) continue;
            if (i + 1 >= text.size() || text[i + 1] != written.quote) return i;
            ++i;
        }
        return 0;
    }
    bool Passed_Delimiter() {
        if (At_End() || text[at] != written.delimiter) return false;
        ++at;
        return true;
    }
    void Pass_Line_End() {
        ++line;
        if (text.sliced(at).startsWith(u"\r\n"))
            at += 2;
        else if (!At_End())
            ++at;
    }

    QStringView text;
    Written_As written;
    qsizetype at = 0;
    int line = 1;
};

// How many records have the commonest number of cells, and that number: the delimiter that parts most records
// alike is the one, and of two that do equally well the one that parts them into more.
std::pair<int, qsizetype> How_Well(QStringView text, const Written_As& written) {
    constexpr int looked_at = 100;
    QHash<qsizetype, int> sizes;
    Record_Reader reader(text, written);
    for (int record = 0; record < looked_at && !reader.At_End(); ++record)
        ++sizes[reader.Next().size()];
    std::pair<int, qsizetype> best{0, 0};
    for (auto size = sizes.cbegin(); size != sizes.cend(); ++size)
        if (size.key() > 1) best = std::max(best, {size.value(), size.key()});
    return best;
}

QChar Found_Quote(QStringView text) {
    const qsizetype singles = text.count(u"','") + text.count(u"';'") + text.count(u"'\t'");
    return singles > 0 && !text.contains(u'"') ? u'\'' : u'"';
}

Written_As How_Written(QStringView text) {
    constexpr qsizetype looked_at = 64 * 1024;
    const QStringView beginning = text.first(std::min(text.size(), looked_at));
    Written_As written{u',', Found_Quote(beginning)};
    std::pair<int, qsizetype> best{0, 0};
    for (const QChar delimiter : {u',', u';', u'\t', u'|', u'^', u'~', u':'}) {
        const auto found = How_Well(beginning, {delimiter, written.quote});
        if (found <= best) continue;
        best = found;
        written.delimiter = delimiter;
    }
    return written;
}

// Some programs name the delimiter in a first line of its own.
bool Names_Delimiter(QStringView text) {
    return text.size() > 4 && text.startsWith(u"sep=", Qt::CaseInsensitive) &&
           (text.size() == 5 || Is_Line_End(text[5]));
}

QList<Source_Row> Records(QStringView text) {
    const bool named = Names_Delimiter(text);
    const QChar delimiter = named ? text[4] : QChar();
    Written_As written = How_Written(text);
    if (named) written.delimiter = delimiter;
    Table_Builder builder;
    Record_Reader reader(text, written);
    if (named) reader.Next();
    while (!reader.At_End()) {
        const int line = reader.Line();
        builder.Add(line, reader.Next());
    }
    return std::move(builder).Rows();
}

} // namespace

Source_Table Read_Text_Source(const QByteArray& bytes, std::optional<Encoding> encoding) {
    const Encoding used = encoding.value_or(Found_Encoding(bytes));
    QString text = Decoded(bytes, used);
    if (text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
    if (!encoding && text.contains(QChar(0)))
        throw Refused_Source(u"This is no text and no workbook (.xlsx)."_s);
    text.remove(QChar(0));
    return {Records(text), used, {}, 0};
}

Source_Table Read_Pasted_Source(QStringView text) {
    if (text.size() > source_limit::File_Bytes / 2)
        throw Refused_Source(u"That is too much to be a list of pupils."_s);
    return {Records(text), {}, {}, 0};
}

} // namespace pupils
