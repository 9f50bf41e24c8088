#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

namespace database {

// Tables by name with their columns, spelt as the file spells them.
using Tables = QMap<QString, QStringList>;

// What a database file holds, looked up before anything is done with it.
struct File_Look {
    QString encoding;           // of its texts: "UTF-8", "UTF-16le" or "UTF-16be"
    Tables tables;              // without views and the engine's own
    QString damage;             // a sentence on the first fault; empty for a sound file
    QList<QStringList> answers; // to each question its first column; none where it can't be answered
};

// Reads the whole file, and changes neither it nor what lies beside it. `file` is a native, absolute path;
// the questions are statements of the engine's own dialect, and a file in use is waited for so many seconds.
// Throws a run-time error for what is no database, and for one that can't be read now. It opens and closes
// the file, so it is asked only while no connection of the process has it open (database_file.h).
File_Look Look_Into(const QString& file, const QStringList& questions = {}, int timeout_seconds = 15);

// A sentence on the first fault of a database whose bytes these are; empty where it is sound.
QString Damage_In(const QByteArray& bytes);

// What of `wanted` isn't among `found`: "Mevo_Means", or "Mevo_Means.Module" where the table is there. Names
// are the same in any case.
QStringList Lacking(const Tables& found, const Tables& wanted);

} // namespace database
