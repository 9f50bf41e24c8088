#include "pupils/import/prepared_file.h"

#include "platform/basics/code_page.h"
#include "pupils/import/import_file.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

// What a process that was killed left behind. Another's may be in use, on the same day.
void Drop_Forgotten_Files(const QDir& folder, const QString& pattern) {
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    for (const QFileInfo& file : folder.entryInfoList({pattern}, QDir::Files))
        if (file.lastModified() < yesterday) QFile::remove(file.filePath());
}

} // namespace

QByteArray Prepared_Bytes(const QList<Rehearsed_Row>& rows) {
    QString text;
    for (const Rehearsed_Row& row : rows)
        if (row.goes) text += row.fields.join(u',') + u"\r\n"_s;
    QByteArray bytes;
    for (const char32_t character : text.toUcs4())
        bytes += character < 0x80 ? QByteArray(1, char(character)) : basics::To_Code_Page_1252(character);
    return Decoded_Import_Text(bytes) == text ? bytes : "\xEF\xBB\xBF" + text.toUtf8();
}

void Prepared_File::Hold(const QByteArray& bytes) {
    Drop();
    const QDir folder(QDir::tempPath());
    Drop_Forgotten_Files(folder, u"mevo-prepared-*.txt"_s);
    QFile file(folder.absoluteFilePath(
        u"mevo-prepared-%1.txt"_s.arg(QUuid::createUuid().toString(QUuid::WithoutBraces))));
    const bool opened =
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner);
    if (opened) name = file.fileName();
    if (!opened || file.write(bytes) != bytes.size() || !file.flush()) {
        const QString why = file.errorString();
        file.close();
        Drop();
        throw Refused_Source(u"The list can't be handed over: "_s + why);
    }
}

void Prepared_File::Drop() {
    if (!name.isEmpty()) QFile::remove(name);
    name.clear();
}

} // namespace pupils
