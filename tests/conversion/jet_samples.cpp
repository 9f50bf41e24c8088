#include "conversion/jet_samples.h"

#include "conversion/refusal.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace test_support {

namespace {

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

QString Conversion_Folder::Put(const QString& name, const QByteArray& bytes) const {
    Write_Bytes(Place(name), bytes);
    return Place(name);
}

QStringList Conversion_Folder::Names() const {
    return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QList<conversion::Table_Summary> Convert(const QString& source, const QString& target,
                                         const conversion::Reader_Program& reader) {
    return conversion::Convert_Jet_File(source, target, conversion::If_There_Is_One::Refuse, reader,
                                        [](const conversion::Progress&) {});
}

QString Why_Refused(const QString& source, const QString& target, const conversion::Reader_Program& reader) {
    try {
        Convert(source, target, reader);
    } catch (const conversion::Refusal& refusal) {
        return refusal.Why();
    }
    return {};
}

} // namespace test_support
