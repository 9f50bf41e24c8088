#pragma once

#include "scoring/cohort.h"
#include "scoring/pupil_lists.h"

#include <QString>
#include <QStringList>
#include <functional>

namespace printing {

// The pupils that a batch can be made of, and what was chosen among them.

inline QString All_Groups() {
    return QStringLiteral("ALL");
}

// Called with the text of each row.
using Take_Text = std::function<void(const QString& text)>;

// Both give whether all rows were read: an error ends the list in silence, as far as it was filled.
bool Read_Group_Names(const QString& connection_string, const Take_Text& take);
// "Grey, Anna - 204" of each pupil of the group who has a score, by that text.
bool Read_Pupil_Entries(const QString& connection_string, const QString& group, const Take_Text& take);

// The first place that holds the value, compared letter by letter; -1 if none. The list's topmost place is
// not looked at.
template<int Highest>
qint16 FindInArray(const basics::Bounded<QString, Highest>& array, const QString& value) {
    for (int index = 0; index < Highest; ++index)
        if (array[index] == value) return static_cast<qint16>(index);
    return -1;
}

// The places in the pupil list of chosen entries; -1 where the code isn't found. The entry's text is the only
// way to the pupil, and the code is what follows its first " - ": a surname with that in it hides its pupil.
QList<qint16> Places_Of(const QStringList& entries, const scoring::Pupil_Lists& pupils);

// The same by what follows any " - ", as a surname may have one too; entries whose code isn't found apart.
struct Found_Entries {
    QList<qint16> places;
    QStringList lost;
};
Found_Entries Find_By_Code(const QStringList& entries, const scoring::Pupil_Lists& pupils);

// The message for so many chosen pupils who weren't found.
QString Surname_Message(qsizetype errors);

// "7:03" for 87 months.
QString AgeFromMonths(int months);

// Scores all listed pupils, each in the row of their place in the list.
void Compute_All_Scores(const scoring::Progress_Label& show_progress, scoring::Cohort_Tables& cohort,
                        scoring::Scoring& scoring);

// Makes them the first entries of the batch; those behind them stay as they were.
void Take_Batch(const QList<qint16>& places, scoring::Cohort_Tables& cohort);

} // namespace printing
