#pragma once

#include "pupils/import/rehearsal.h"

#include <QSet>

namespace pupils {

// A list while it is prepared: the source, what its columns hold, and what the user has settled, corrected
// and left out.
struct Preparation {
    QString source;   // the file's name, or what else to call it; empty before there is one
    QByteArray bytes; // of the file, to be read again in another encoding or by another sheet
    Source_Table table;
    Recognition recognition;
    Date_Fit dates;                           // of the column of birthdays
    Date_Order order = Date_Order::Day_First; // Unsettled where the user must say
    QString class_for_all;
    QMap<std::pair<int, int>, QString> corrections; // by line and the field's place
    QMap<int, bool> chosen;         // by line: whether the row goes, where the user has said so
    QSet<QString> accepted_classes; // new ones, in folded case
};

// Begins with a source. The columns may be told from an earlier list with the same headings.
void Take_Source(Preparation& list, Source_Table table, const QDate& today);
void Take_Mapping(Preparation& list, const Column_Mapping& mapping, const QDate& today);

QList<Draft_Row> Drafts(const Preparation& list);
Rehearsal_Setting Setting_Of(const Preparation& list, const QDateTime& now);
QList<Rehearsed_Row> Rehearse(const Preparation& list, const Registered& registered, const QDateTime& now);

// Puts every cure that there is for these lines among the corrections; gives how many rows it changed.
int Cure(Preparation& list, const QSet<int>& lines, const QDateTime& now);

// The rows of each kind that go, and what stands in the way of importing them.
struct Rehearsal_Counts {
    std::array<int, Row_Kinds> of_kind{};
    int rows = 0;
    int going = 0;
    int in_the_way = 0;      // going, but to be refused or spoilt
    QStringList new_classes; // of going rows, as they are first spelt
};
Rehearsal_Counts Count(const QList<Rehearsed_Row>& rows, const Registered& registered);

// Why these rows can't be handed to the import yet; empty if they can.
QString Why_Not_Yet(const Preparation& list, const Rehearsal_Counts& counts);
bool Accepts_Classes(const Preparation& list, const Rehearsal_Counts& counts);

// What would tell day and month apart, a text for each of at most five rows.
QStringList Dates_Either_Way(const Preparation& list);

// "30 rows, 26 to be imported: 25 new, 1 unlikely age, 4 already there."
QString In_Words(const Rehearsal_Counts& counts);

} // namespace pupils
