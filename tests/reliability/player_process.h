#pragma once

#include "testplayer/answer_journal.h"

#include <QProcess>
#include <QString>
#include <QStringList>

namespace test_support {

// A number from the environment, for runs of another length.
int Number_From_Environment(const char* name, int otherwise);

// The program that the variable names, for a trial of two systems on one file; without it `own`.
QString Program_Of_Another_System(const char* variable, const char* own);

// A test player at work in a process of its own, with a log of what it committed.
class Player_Process {
public:
    Player_Process(const QString& database, const QStringList& codes, const QString& rate,
                   const QString& journal, const QString& program = QStringLiteral(MEVO_TESTPLAYER));
    ~Player_Process();
    Player_Process(const Player_Process&) = delete;
    Player_Process& operator=(const Player_Process&) = delete;

    bool Is_Playing() const { return process.state() == QProcess::Running; }
    void Stop(); // it ends at its next pause
    // What it said while it played and as it stopped; its exit status.
    QString Told() { return QString::fromUtf8(process.readAll()).simplified(); }
    int Status() const { return process.exitCode(); }

    const QStringList& Codes() const { return codes; }
    QList<test_player::Stored_Answers> Committed() const {
        return test_player::Answer_Journal::Read(journal);
    }

private:
    QStringList codes;
    QString journal;
    QProcess process;
};

} // namespace test_support
