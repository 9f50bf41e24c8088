#pragma once

#include "conversion/engine.h"
#include "conversion/jet_source.h"
#include "conversion/target_tables.h"

#include <QStringList>
#include <memory>

namespace conversion {

struct Table_Comparison {
    QString table;
    qint64 rows = 0;      // of the source
    qint64 differing = 0; // values that differ, and rows that only one of the two has
};

// Compares the tables that it is handed with those of a database, value by value. A row is looked up by its
// key, or where it has none by the place that a conversion gives it. Values are equal as the program reads
// them: a number is equal to its text, a date to any text that means that day and time. NULL is equal to
// nothing else.
class Comparison final : public Source_Visitor {
public:
    explicit Comparison(const QString& database);

    void Begin_Table(const Source_Table& table) override;
    void Take_Row(const Source_Row& row) override;
    void End_Table() override;
    void Finish(); // notes tables that the source doesn't have

    const QList<Table_Comparison>& Tables() const { return tables; }
    bool All_Equal() const;
    // The first differences, a line each.
    const QStringList& Examples() const { return examples; }

private:
    void Note(const QString& what);
    bool Has_Table(const QString& name);
    bool Has_Same_Columns();
    bool Can_Be_Looked_Up(const Source_Column& column, const QString& table);
    void Prepare_Rows();
    void Compare(const Source_Row& row);
    QString Row_Name(const Source_Row& row) const;

    Engine engine;
    Source_Table source;
    qsizetype looked_up_by = -1;     // place of a column; -1: rows are compared by their place
    qsizetype ordered_by = -1;       // place of the column that the database's rows rise by
    QList<Source_Row> waiting;       // of such a table, until they can be put in that order
    std::unique_ptr<Statement> rows; // gives the row to compare with; none where the table can't be compared
    QList<Table_Comparison> tables;
    QStringList examples;
};

} // namespace conversion
