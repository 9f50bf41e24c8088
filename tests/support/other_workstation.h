#pragma once

#include "support/database_beside.h"

#include <QProcess>
#include <QString>
#include <QStringList>

namespace test_support {

// A process of its own that has the file open, as a test module on another machine has.
class Other_Workstation {
public:
    explicit Other_Workstation(const QString& file);
    ~Other_Workstation() { Leave_Abruptly(); }
    Q_DISABLE_COPY(Other_Workstation)

    void Run(const QString& sql);        // and waits until it is done; throws if it fails
    void Hold_Exclusively();             // has written the surname "Written", and keeps all others out
    void Commit_After(int milliseconds); // doesn't wait
    void Rename_All_For_Ever();          // all pupils alike in each transaction; doesn't wait
    void Leave_Abruptly();               // killed: what it hasn't committed lies in the file and its journal

private:
    void Tell(const QString& line);
    QProcess process;
};

// Leaves the file as a process does that is killed while it writes: with pages of the surname "Torn" in it,
// and a journal that takes them back.
void Crash_In_A_Transaction(const QString& file);

} // namespace test_support
