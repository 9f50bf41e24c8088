#include "conversion/jet_samples.h"

#include "conversion/refusal.h"

#include <QDir>
#include <QHash>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace test_support {

namespace {

constexpr qsizetype Page = 4096;
constexpr qsizetype Owner_At = 4;       // of a page of rows: its table's first page
constexpr qsizetype Rows_At = 16;       // of a table's first page
constexpr qsizetype Usage_Map_At = 55;  // the same: row and page of the map of its pages
constexpr qsizetype Row_Places_At = 14; // of a page of rows: two bytes a row
constexpr char Page_Of_Rows = 1;
constexpr char Page_Of_Table = 2;

quint32 Number_At(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

void Put_Number(QByteArray& bytes, qsizetype at, quint32 number) {
    qToLittleEndian(number, bytes.data() + at);
}

QByteArray Page_Of(const QByteArray& file, qsizetype number) {
    return file.mid(number * Page, Page);
}

// Codes end in letters; a copy's end in its number, wherever the code stands on the page.
QByteArray With_Codes_Of_Copy(QByteArray page, const QStringList& codes, int copy) {
    const QString ending = u"%1"_s.arg(copy, 2, 10, QChar(u'0'));
    for (const QString& code : codes) {
        const QString changed = code.chopped(2) + ending;
        page.replace(Stored_Text(code), Stored_Text(changed));
    }
    return page;
}

// Replaces a map that counts pages near the start of the file by one whose bits lie on a page of their own.
void Give_Table_A_Wide_Map(QByteArray& file, qsizetype table, const QList<qsizetype>& pages) {
    constexpr qsizetype bits_a_page = (Page - 4) * 8;
    QByteArray bits(Page, '\0');
    bits[0] = 5;
    bits[1] = 1;
    for (const qsizetype page : pages) {
        ASSERT_LT(page, bits_a_page);
        char& byte = bits[4 + page / 8];
        byte = static_cast<char>(byte | (1 << (page % 8)));
    }
    const quint32 map = Number_At(file, table * Page + Usage_Map_At);
    const qsizetype map_page = (map >> 8) * Page;
    const qsizetype map_row =
        qFromLittleEndian<quint16>(file.constData() + map_page + Row_Places_At + qsizetype(map & 0xff) * 2);
    const qsizetype at = map_page + (map_row & 0x1fff);
    constexpr qsizetype map_size = 1 + 4 * 16;
    file.replace(at, map_size, QByteArray(map_size, '\0'));
    file[at] = 1;
    Put_Number(file, at + 1, static_cast<quint32>(file.size() / Page));
    file += bits;
}

// RC4, by the key that disguises every header.
QByteArray With_Header_Changed(QByteArray file, qsizetype at, const QByteArray& by) {
    for (qsizetype i = 0; i < by.size(); ++i)
        file[at + i] = static_cast<char>(file[at + i] ^ by[i]); // the disguise is an exclusive or as well
    return file;
}

} // namespace

QString Test_Data(const QString& name) {
    return QStringLiteral(MEVO_TEST_DATA) + u'/' + name;
}

QByteArray Stored_Text(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
}

QByteArray With_Password(QByteArray jet_file, const QString& password) {
    constexpr qsizetype password_at = 0x42;
    return With_Header_Changed(std::move(jet_file), password_at, Stored_Text(password));
}

QByteArray Encrypted(QByteArray jet_file) {
    constexpr qsizetype page_key_at = 0x3e;
    return With_Header_Changed(std::move(jet_file), page_key_at, QByteArray::fromHex("5a17c309"));
}

QByteArray With_Pupils_Repeated(const QByteArray& jet_file, const QStringList& codes, int times) {
    QHash<qsizetype, QList<qsizetype>> pages_of;
    for (qsizetype page = 0; page < jet_file.size() / Page; ++page)
        if (jet_file[page * Page] == Page_Of_Rows)
            pages_of[Number_At(jet_file, page * Page + Owner_At)].append(page);
    QByteArray file = jet_file;
    for (auto it = pages_of.constBegin(); it != pages_of.constEnd(); ++it) {
        const qsizetype table = it.key() * Page;
        if (table >= jet_file.size() || jet_file[table] != Page_Of_Table) continue;
        const quint32 rows = Number_At(jet_file, table + Rows_At);
        if (rows != codes.size()) continue; // a row a pupil has none but the tables of pupils
        QList<qsizetype> pages = it.value();
        for (int copy = 1; copy < times; ++copy) {
            for (const qsizetype page : it.value()) {
                pages.append(file.size() / Page);
                file += With_Codes_Of_Copy(Page_Of(jet_file, page), codes, copy);
            }
        }
        Put_Number(file, table + Rows_At, rows * static_cast<quint32>(times));
        Give_Table_A_Wide_Map(file, it.key(), pages);
    }
    return file;
}

QString Conversion_Folder::Put(const QString& name, const QByteArray& bytes) const {
    Write_Bytes(Place(name), bytes);
    return Place(name);
}

QStringList Conversion_Folder::Names() const {
    return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QList<conversion::Table_Summary> Convert(const QString& source, const QString& target) {
    return conversion::Convert_Jet_File(source, target, conversion::If_There_Is_One::Refuse,
                                        conversion::Reader_Beside_This_Program(),
                                        [](const conversion::Progress&) {});
}

QString Why_Refused(const QString& source, const QString& target, const conversion::Reader_Program& reader) {
    try {
        conversion::Convert_Jet_File(source, target, conversion::If_There_Is_One::Refuse, reader,
                                     [](const conversion::Progress&) {});
    } catch (const conversion::Refusal& refusal) {
        return refusal.Why();
    }
    return {};
}

} // namespace test_support
