#pragma once

#include "foundation/installation.h"
#include "keeping/side_file.h"
#include "platform/desktop/ports.h"

#include <QDateTime>
#include <QList>

namespace keeping {

// What was done with a school's records: acts that were stored, never those that failed.
enum class Act {
    Registered,
    Imported,
    Corrected,
    Retest_Allowed,
    Moved,
    Deleted,
    Archived,
    Loaded,
    Cleared,
    Gone_Back,
    Removed_Everywhere,
    Printed_Batch,
};
// "Retest allowed"
QString In_Words(Act act);
QStringList All_Acts_In_Words(); // in the order above

struct Change {
    QString act;     // as In_Words has it; a later version may have more
    QString subject; // a pupil's code, or the name of a file or group; never a pupil's name
    QString detail;  // what it was in particular: fields' names, counts
    QDateTime when;
    QString workstation;
};

// "Mevo05Changes.sqlite" beside the working database; a native path.
QString Changes_Of(const QString& working_database);
Side_Look Look_At_Changes(const QString& working_database);

// Adds them, at this moment and from this workstation, to the list, which is made where there is none.
void Add_Changes(const QString& working_database, Act act, const QStringList& subjects, const QString& detail,
                 const QDateTime& when);

// The same for pages whose own work is done: a list that can't take it is passed over.
void Note(const foundation::Installation& installation, const desktop::Clock& clock, Act act,
          const QStringList& subjects, const QString& detail = {});

// All, the latest first; none where there is no list.
QList<Change> Changes_In(const QString& working_database);

// Removes what happened before the moment; gives the number.
int Remove_Changes_Before(const QString& working_database, const QDateTime& moment);
// Takes out what is about these pupils, overwritten; gives the number.
int Remove_Changes_About(const QString& working_database, const QStringList& codes);

} // namespace keeping
