#pragma once

#include "platform/database/files/file_engine.h"

#include <QString>
#include <QStringList>
#include <functional>

// What the program remembers beside a school's database, in files of its own: the database's tables are those
// of the whole suite. Nothing else depends on such a file, so that whoever calls for work that must go on
// does it Quietly.
namespace keeping {

inline constexpr int Longest_Wait = 2; // seconds, for a file in use: other work waits meanwhile
inline const QString Moment_Form = QStringLiteral("yyyy-MM-dd HH:mm:ss"); // sorts as the moments do

struct Side_Kind {
    QString what;       // begins a sentence: "The file of earlier results"
    int mark;           // in the file's header: whose it is
    int version;        // of its tables; a file of a later one is left alone
    QStringList tables; // the statements that make them
};

enum class Side_State { Missing, Ready, Read_Only, In_Use, Damaged, Of_A_Later_Version, Unreadable };

struct Side_Look {
    Side_State state = Side_State::Missing;
    QString words; // a sentence on what keeps it from being used; empty where nothing does
};

// What is the matter with a file; it is read as a whole. A locked one is waited for as long as for any use.
Side_Look Look_At(const Side_Kind& kind, const QString& file);

// A file of one kind, open. Failures are run-time errors, among them database::Damaged_File and
// database::File_In_Use; what isn't committed when it closes is taken back.
class Side_File {
public:
    Side_File(const Side_Kind& kind, const QString& file);
    // Makes it where it is missing, for whoever may use the database.
    Side_File(const Side_Kind& kind, const QString& file, const QString& database);

    QStringList Run(const QString& sql) { return engine.Run(sql); } // the first column
    database::Engine_Statement Prepared(const QString& sql) const { return {engine.Handle(), sql}; }
    // All of the work is stored, or nothing. What it removes is overwritten.
    void Change(const std::function<void()>& work);
    // Writes the file anew without the room that removed rows left. In no transaction.
    void Compact() { database::Compact(engine); }

private:
    void Require_Its_Kind(const Side_Kind& kind);

    database::File_Engine engine;
};

// Whether the work went well; what it throws is passed over.
bool Quietly(const std::function<void()>& work);

// A native path beside the database, whose own may have backslashes.
QString Beside(const QString& database, const QString& name);

} // namespace keeping
