#pragma once

#include "sampledb/random.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <optional>
#include <stdexcept>

namespace test_player {

// What ends the playing: one line for the user.
class Play_Fault : public std::runtime_error {
public:
    explicit Play_Fault(const QString& line) : std::runtime_error(line.toStdString()) {}
};

// One sitting that is committed.
struct Stored_Answers {
    QString code;
    int test = 0; // place in the order of tests, from 0
    QDateTime when;
    QString digest; // of what was written
};

// The columns of a test's data table behind its key, and a digest of a row's values in these columns.
QStringList Answer_Columns(int test);
QString Digest_Of(const QVariantList& answers);

// Plays the part of the test modules on another workstation: pupil after pupil sits the first test, then the
// second, and so on. A sitting opens the file, stores a whole row of answers together with the pupil's
// status, age and date in one transaction, and closes the file. A file in use is waited for as long as the
// administration waits.
class Test_Player {
public:
    // Without codes everybody plays, newcomers from the next test on. Throws Play_Fault for a file that is no
    // database of the suite and for a code that nobody has.
    Test_Player(const QString& database, const QStringList& codes, quint32 seed);

    // Passes over pupils who were deleted meanwhile. Nothing if none of them is left.
    std::optional<Stored_Answers> Sit_Next();

private:
    std::optional<Stored_Answers> Sit(const QString& code);
    void Begin_Next_Test();

    QString file;
    bool everybody;
    QStringList codes;
    qsizetype next_pupil = 0;
    int test = 0;
    sample_data::Random random;
};

} // namespace test_player
