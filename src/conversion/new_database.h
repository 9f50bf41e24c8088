#pragma once

#include "conversion/engine.h"
#include "conversion/jet_source.h"
#include "conversion/target_tables.h"

#include <memory>

namespace conversion {

struct Table_Summary {
    QString table;
    qint64 read = 0;       // rows that came from the source
    qint64 written = 0;    // rows that the finished database gives back
    bool lost_key = false; // its rows aren't unique by it
};

// Writes the tables that it is handed into a new database, at a place that holds an empty file. Nothing is
// kept of it unless Finish returns, so no journal stands beside it.
class New_Database final : public Source_Visitor {
public:
    explicit New_Database(const QString& file);

    void Begin_Table(const Source_Table& table) override;
    void Take_Row(const Source_Row& row) override;
    void End_Table() override;
    // Ends the writing. Throws a Refusal unless the file is sound and gives back every row that was read.
    QList<Table_Summary> Finish();

private:
    void Prepare_Insert();
    void Bind(const Source_Row& row);
    void Write_Anew(const Target_Table& table);
    void Give_Up_Key();

    Engine engine;
    Source_Table source;
    Target_Table target;
    std::unique_ptr<Statement> insert;
    QList<Table_Summary> summary;
};

} // namespace conversion
