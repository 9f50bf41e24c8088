#pragma once

#include "scoring/norm_tables.h"

#include <QList>
#include <QStringList>
#include <array>

namespace scoring {

// The raw score of the last row that the test's norms have; 0 where nothing was loaded.
int Last_Raw_Score(int t, const Norm_Tables& norms);

// Stands for all sixteen tables as they are in memory: the same norms have the same digest, on every system.
QString Norms_Digest(const Norm_Tables& norms);

// Whether they are the made-up ones of the practice school and of sample data.
bool Are_Practice_Norms(const QString& digest);

// What is wrong with one table; a table without findings is in order.
struct Norm_Findings {
    QString table;
    QString size; // "raw scores 0 to 40"
    QStringList findings;
};

struct Norm_Check {
    QList<Norm_Findings> tables; // all sixteen, raw scores first
    QString digest;

    int Findings() const;
};

// Reads all tables anew and looks into each: no gap between the ages, no centile that falls where the raw
// score rises, a centile for every raw score that can be reached, times that fall where the centile rises,
// and a standard score for each centile. How far the lists of a test reach is taken from the answers that are
// stored. A table that can't be read is a finding.
Norm_Check Check_Norms(desktop::Platform& platform, const foundation::Installation& installation);

// The same for tables in memory; a test without a greatest raw score is held to its last row. greatest: by t
// and age.
using Greatest_Scores = std::array<std::array<int, 9>, Normed_Tests + 1>;
Norm_Check Check_Norms(const Norm_Tables& norms, const Greatest_Scores& greatest);

} // namespace scoring
