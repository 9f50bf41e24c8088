#pragma once

#include "platform/basics/value.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace database {

// The collation that each connection offers for sorting: without regard to case, with accents in their
// place. ORDER BY is given it by the translator, so that a file whose own indexes were built by another
// order is still searched by that order.
inline constexpr char Text_Order[] = "TEXT_ORDER";

struct Translated_Statement {
    QString sql;
    // Only for a plain SELECT from one table: that table, and the same statement with the row's identity
    // as its first column, through which a recordset writes.
    QString table;
    QString with_row_identity;
    // Only for whole rows of one table that are sorted by some of its columns, upwards: those columns, and
    // what both statements end with to have the engine sort.
    QStringList sorted_by;
    QString order;
};

// A statement without its text literals, so that the engine prepares statements that differ in nothing else
// only once.
struct Lifted_Statement {
    QString shape;                    // with "?" in the place of each text
    std::vector<basics::Value> texts; // what each "?" stands for, in order
    bool is_lifted = false;           // otherwise the shape is the statement as it came
};

// Lifts the texts of a SELECT, INSERT, UPDATE or DELETE. Other statements, and those that can't be read to
// their end, come back as they are.
Lifted_Statement Lift_Texts(const QString& jet);

// Translates one statement of the Jet dialect, token by token: "+" joins texts where a text literal stands
// in the sum, TEXT(n) in a definition gets its length limit, names in brackets stay names, comments are
// none. A statement with anything behind its end is refused, as the dialect knows one at a time: so no
// spliced value can bring a second statement with it.
// Throws basics::Run_Time_Error (errors::Syntax).
Translated_Statement Translate_Jet(const Lifted_Statement& lifted);

} // namespace database
