#pragma once

#include "testplayer/test_player.h"

#include <QMap>
#include <ostream>
#include <utility>

namespace test_support {

// What a file holds of one pupil and one test.
struct Answer_Cell {
    QString digest;
    QString status;
    QString date;
    bool operator==(const Answer_Cell&) const = default;
};
void PrintTo(const Answer_Cell& cell, std::ostream* out);

using Answers_In_A_File = QMap<std::pair<QString, int>, Answer_Cell>; // by code and test

// Of every pupil who is registered, whether or not they were tested. Waits for a file in use.
Answers_In_A_File Read_Answers(const QString& file);
Answer_Cell Cell_Of(const test_player::Stored_Answers& stored);

// How many rows of a log, counted from the first, the file was made from: the first number from `least` to
// `most` that explains what it holds of these rows' pupils, and -1 if none does. `before` are the answers
// that the file held when the log began.
qsizetype Rows_In(const Answers_In_A_File& file, const QList<test_player::Stored_Answers>& log,
                  qsizetype least, qsizetype most, const Answers_In_A_File& before);

// Those of the log that the file doesn't hold though the pupil is there. Later rows count over earlier ones.
QStringList Missing_In(const Answers_In_A_File& file, const QList<test_player::Stored_Answers>& log);

} // namespace test_support
