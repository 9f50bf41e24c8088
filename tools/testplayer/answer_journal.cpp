#include "testplayer/answer_journal.h"

#include "foundation/schema.h"
#include "platform/database/files/new_file.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace test_player {

Answer_Journal::Answer_Journal(const QString& name) : file(name) {
    if (!file.open(QIODevice::Append | QIODevice::Unbuffered)) Fail();
}

void Answer_Journal::Fail() const {
    throw Play_Fault(
        u"Can't write %1: %2"_s.arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

void Answer_Journal::Add(const Stored_Answers& stored) {
    const QStringList fields{stored.when.toString(Qt::ISODateWithMs), stored.code,
                             foundation::Tests_In_Order()[stored.test].status, stored.digest};
    const QByteArray line = fields.join(u'\t').toUtf8() + '\n';
    if (file.write(line) != line.size() || !database::Is_On_The_Disk(file)) Fail();
}

QList<Stored_Answers> Answer_Journal::Read(const QString& name) {
    QList<Stored_Answers> entries;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) return entries;
    const QStringList tests = foundation::Status_Columns();
    QByteArrayList lines = file.readAll().split('\n');
    lines.removeLast(); // what stands behind the last line end
    for (const QByteArray& line : std::as_const(lines)) {
        const QStringList fields = QString::fromUtf8(line).split(u'\t');
        if (fields.size() != 4) throw Play_Fault(u"Not a line of a log: "_s + QString::fromUtf8(line));
        entries.append({fields[1], static_cast<int>(tests.indexOf(fields[2])),
                        QDateTime::fromString(fields[0], Qt::ISODateWithMs), fields[3]});
    }
    return entries;
}

} // namespace test_player
