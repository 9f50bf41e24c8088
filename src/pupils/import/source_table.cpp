#include "pupils/import/source_table.h"

#include "platform/basics/run_time_error.h"
#include "pupils/import/import_file.h"
#include "pupils/import/workbook.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

void Refuse_Beyond(qint64 count, qint64 most, const QString& of_what) {
    if (count > most)
        throw Refused_Source(
            u"This holds more than %1 %2, which no list of pupils needs."_s.arg(most).arg(of_what));
}

struct Other_Kind {
    QByteArray begins;
    QString words;
};

const QList<Other_Kind>& Other_Kinds() {
    static const QList<Other_Kind> kinds{
        {QByteArray::fromHex("d0cf11e0a1b11ae1"),
         u"This is a workbook of the older kind (.xls), or one with a password. Save it as .xlsx or CSV first."_s},
        {"%PDF", u"This is a PDF. Ask for the list as CSV or as a workbook."_s},
        {"{\\rtf", u"This is a document of a word processor. Copy its table and paste it here."_s},
    };
    return kinds;
}

bool Is_Packed(const QByteArray& bytes) {
    return bytes.startsWith("PK\x03\x04") || bytes.startsWith("PK\x05\x06");
}

} // namespace

void Table_Builder::Add(int line, QStringList cells) {
    for (QString& cell : cells)
        cell = cell.trimmed();
    while (!cells.isEmpty() && cells.last().isEmpty())
        cells.removeLast();
    if (cells.isEmpty()) return;
    Refuse_Beyond(cells.size(), source_limit::Columns, u"columns"_s);
    count += int(cells.size());
    for (const QString& cell : cells)
        characters += cell.size();
    Refuse_Beyond(count, source_limit::Cells, u"cells"_s);
    Refuse_Beyond(characters, source_limit::Characters, u"characters"_s);
    rows.append({line, std::move(cells)});
    Refuse_Beyond(rows.size(), source_limit::Rows, u"rows"_s);
}

Source_Table Read_Source_Bytes(const QByteArray& bytes, const Source_Choice& choice) {
    Refuse_Beyond(bytes.size(), source_limit::File_Bytes, u"bytes"_s);
    for (const Other_Kind& kind : Other_Kinds())
        if (bytes.startsWith(kind.begins)) throw Refused_Source(kind.words);
    return Is_Packed(bytes) ? Read_Workbook(bytes, choice.sheet) : Read_Text_Source(bytes, choice.encoding);
}

QByteArray Bytes_Of_Source(const QString& file) {
    try {
        Refuse_Beyond(QFileInfo(file).size(), source_limit::File_Bytes, u"bytes"_s);
        return Read_Import_File(QFileInfo(file).absoluteFilePath());
    } catch (const basics::Run_Time_Error& error) {
        throw Refused_Source(u"This can't be read: "_s + error.Description + u'.');
    }
}

Source_Table Read_Source_File(const QString& file, const Source_Choice& choice) {
    return Read_Source_Bytes(Bytes_Of_Source(file), choice);
}

} // namespace pupils
