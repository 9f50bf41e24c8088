#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace shell {

// A pupil who is no longer in the working database, but in files that were made of it earlier.
struct Gone_Pupil {
    QString code;
    QString surname;
    QString forename;
    QString born; // as the database has it
    int files = 0;
};

// By their names. What can't be read of the files is passed over; the working database must be readable, or a
// run-time error is thrown.
QList<Gone_Pupil> Find_Gone_Pupils(const QString& working, const QStringList& files);

struct Removal {
    QString code;
    QString working;
    QStringList files;    // copies and archives, each once
    int longest_wait = 5; // seconds, for a database in use
    // Called before each file.
    std::function<void(int done, int of)> progress = [](int, int) {};
};

// Takes all rows of a pupil's code out of the files and what belongs to them, and out of what the list of
// changes tells; nothing of them, nor of anybody deleted earlier, is left in the bytes of the databases.
// Gives a sentence for each file with which that failed. The pupil is found in the files until all the rest
// is done, so that it can be repeated.
//
// Where the working database holds the pupil, nothing is done.
QStringList Remove_Everywhere(const Removal& removal);

} // namespace shell
