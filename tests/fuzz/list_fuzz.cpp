// Feeds the page that prepares lists with files that nobody would write: text of any kind, packages, and the
// XML of a workbook's sheet, which is packed first. Whatever is left once it has been cured, the import must
// take as it was rehearsed. CONTRIBUTING.md tells how it is run.

#include "pupils/import/import_file.h"
#include "pupils/import/preparation.h"
#include "pupils/import/prepared_file.h"

#include <QBuffer>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

using namespace Qt::StringLiterals;

namespace {

void Require(bool holds, const char* rule) {
    if (holds) return;
    std::fputs(rule, stderr);
    std::abort();
}

QByteArray Packed(const QByteArray& sheet) {
    const std::pair<QString, QByteArray> parts[] = {
        {u"xl/workbook.xml"_s, "<w><sheet name='A' id='r'/></w>"},
        {u"xl/_rels/workbook.xml.rels"_s, "<r><Relationship Id='r' Target='s.xml'/></r>"},
        {u"xl/sharedStrings.xml"_s, sheet},
        {u"xl/styles.xml"_s, sheet},
        {u"xl/s.xml"_s, sheet}};
    QBuffer buffer;
    QuaZip zip(&buffer);
    zip.open(QuaZip::mdCreate);
    for (const auto& [name, bytes] : parts) {
        QuaZipFile file(&zip);
        file.open(QIODevice::WriteOnly, QuaZipNewInfo(name), nullptr, 0, 0); // stored as it is
        file.write(bytes);
    }
    zip.close();
    return buffer.data();
}

// Everything that stands in the way is cured or left out, as a user would.
QList<pupils::Rehearsed_Row> Ready_Rows(pupils::Preparation& list, const QDateTime& now) {
    QSet<int> lines;
    for (const pupils::Rehearsed_Row& row : pupils::Rehearse(list, {}, now))
        lines.insert(row.line);
    pupils::Cure(list, lines, now);
    QList<pupils::Rehearsed_Row> rows = pupils::Rehearse(list, {}, now);
    for (pupils::Rehearsed_Row& row : rows)
        row.goes = row.goes && row.kind != pupils::Row_Kind::Refused && row.kind != pupils::Row_Kind::Spoilt;
    rows.removeIf([](const pupils::Rehearsed_Row& row) { return !row.goes; });
    return rows;
}

void Require_Taken(const QList<pupils::Rehearsed_Row>& rows) {
    const QString text = pupils::Decoded_Import_Text(pupils::Prepared_Bytes(rows));
    pupils::Import_Pass pass;
    qsizetype taken = 0;
    const auto good_record = [&](QStringList& fields, qint16) {
        QStringList meant = rows[taken++].fields;
        meant[3] = pupils::Format_Import_Date(meant[3]);
        Require(fields == meant, "a record isn't what was rehearsed");
        Require(pupils::Format_Import_Date(fields[3]) == fields[3], "a kept date changes");
    };
    pupils::Walk_Import_Text(text, pass, {good_record, {}});
    Require(taken == rows.size() && pass.error_count == 0, "the import refuses what was rehearsed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QDateTime now(QDate(2026, 6, 15), QTime(10, 30));
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (bytes.startsWith('<')) bytes = Packed(bytes);
    try {
        pupils::Preparation list;
        pupils::Take_Source(list, pupils::Read_Source_Bytes(bytes), now.date());
        if (list.order == pupils::Date_Order::Unsettled) list.order = pupils::Date_Order::Month_First;
        Require_Taken(Ready_Rows(list, now));
    } catch (const pupils::Refused_Source&) {
        // In words.
    }
    return 0;
}
