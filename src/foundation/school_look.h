#pragma once

#include <QDateTime>
#include <QString>

namespace foundation {

// What a file tells of the school whose database it may be.
struct School_Look {
    enum class Kind {
        School,
        Older_Format, // saved by Access
        Foreign,      // a database of something else, or no database at all
        Damaged,
        Unreadable, // now, or by this account
    };
    Kind kind = Kind::Unreadable;
    QString why; // a sentence on all but a school
    QString school;
    int pupils = 0;
    int with_results = 0;
    bool is_51 = false;
    QDateTime last_change;
};

// Reads the whole file, and changes neither it nor what lies beside it. To be asked only while no connection
// of the process has the file open. A file in use is waited for so many seconds.
School_Look Look_At_School(const QString& file, int timeout_seconds = 15);

struct School_Counts {
    int pupils = 0;
    int with_results = 0;
};

// The numbers alone, without a look at the whole file. Throws a run-time error where they can't be read.
School_Counts Count_School(const QString& file, int timeout_seconds);

// In one line: "Hillside School, 24 pupils, 20 with results, version 5.1, last changed 3 May 2026, 10:30".
QString In_Words(const School_Look& look);

} // namespace foundation
