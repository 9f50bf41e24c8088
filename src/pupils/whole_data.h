#pragma once

#include "foundation/installation.h"
#include "platform/basics/csv_text.h"
#include "platform/desktop/ports.h"
#include "scoring/why_words.h"

#include <QByteArray>

namespace pupils {

// All that is kept of one pupil: details, scores, the comment, earlier results, and every answer, also of
// tests that are open for a retest.
struct Whole_Data {
    scoring::Why_Words words;
    QString norms; // their digest; empty where they can't be read
};

// Works on stores of its own and asks nobody: what can't be read is told in its place.
Whole_Data All_Data_Of(const QString& code, const foundation::Installation& installation,
                       desktop::Platform& platform);

// A record for each sentence and each cell of a table: the part, the row, the name of the value, and the
// value.
QByteArray As_Csv(const scoring::Why_Words& words, basics::Decimal_Mark mark);

} // namespace pupils
