#pragma once

#include "testplayer/test_player.h"

#include <QFile>

namespace test_player {

// A log of what was committed, one line a row: when, code, test and digest, with tabs between. A line is on
// the disk before the next sitting begins, so that a crash leaves at most one committed row without its line.
class Answer_Journal {
public:
    explicit Answer_Journal(const QString& name); // goes on behind what the file holds
    void Add(const Stored_Answers& stored);

    // The lines of a log, without one that was cut off.
    static QList<Stored_Answers> Read(const QString& name);

private:
    void Fail() const;
    QFile file;
};

} // namespace test_player
