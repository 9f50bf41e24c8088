#pragma once

#include <QString>

// Databases of made-up pupils and made-up norms, for trying the program out and for its tests. The
// same seed gives the same rows on every machine and on every day.
namespace sample_data {

struct Options {
    int pupils = 40;
    quint32 seed = 1;
    int days_later = 0; // all days of birth and of tests, from those of the school year 2025 on
    QString school = QStringLiteral("Hillside Primary School");
};

// Both replace an existing file, and leave it as it was when they fail; they then throw
// std::runtime_error with one line for the user.
void Write_Template(const QString& file, quint32 seed,
                    const QString& school = Options().school); // norms and the default group, no pupils
void Write_Database(const QString& file, const Options& options);

} // namespace sample_data
