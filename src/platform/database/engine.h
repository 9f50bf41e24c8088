#pragma once

#include "platform/database/busy_waiting.h"
#include "platform/database/engine_files.h"
#include "platform/database/engine_handle.h"
#include "platform/database/jet_sql.h"
#include "platform/database/row_store.h"

#include <QElapsedTimer>
#include <QHash>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

namespace database {

// A statement ready to run again with other values.
struct Prepared_Statement {
    Engine_Statement statement;
    std::shared_ptr<const Row_Shape> shape; // the identity, where there is one, is the first column
    QString table;                          // what a recordset of it writes to; empty if it can't
    QStringList sorted_by;                  // the columns by which its rows are sorted once they are read
    std::shared_ptr<Row_Store> rows; // those it gave last; their room is used again once nobody reads them
};

struct Statement_Result {
    std::shared_ptr<const Row_Shape> shape;
    QString table;
    std::shared_ptr<const Row_Store> rows;
    int affected = 0;

    bool Returns_Rows() const { return shape->Column_Count() > 0; }
};

// A database file that is open, with the statements that were prepared on it.
class Engine {
public:
    enum class Reads { Alone, Shared };

    // Opens the file that the connection string names: as it is, never made, and hardened.
    Engine(const QString& connection_string, int timeout_seconds, Reads reads = Reads::Alone);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void Set_Timeout(int seconds);
    // Whether the connection string still leads to this very file.
    bool Serves(const QString& connection_string);

    // Runs one statement of the Jet dialect. With `to_be_written` its rows come with their identities, where
    // they have any. Sorted whole rows may come with the named columns alone, and those that they are sorted
    // by; a name that the table doesn't have is left out.
    Statement_Result Run_Jet(const QString& jet, bool to_be_written, const QStringList& only_columns = {});
    // Runs one statement of the engine's own dialect with values for its place holders.
    Statement_Result Run(const QString& sql, const std::vector<basics::Value>& values = {});
    // Shared, reads that follow each other do so under one read lock of the file, for a quarter of a second
    // at most before it is given up and taken anew; a statement that writes ends it first. Alone, each takes
    // its own.
    void Set_Reads(Reads wanted);
    void End_Shared_Lock(); // at once; the next read takes another
    // Meets what a change of the file would meet, and changes nothing.
    void Rehearse_A_Change();

private:
    template<class Prepare>
    std::shared_ptr<Prepared_Statement> Known_Or(const QString& key, const Prepare& prepare);
    std::shared_ptr<Prepared_Statement> Prepared(const QString& sql, const QString& table) const;
    std::shared_ptr<Prepared_Statement> Prepared(const Translated_Statement& translated, bool to_be_written,
                                                 const QStringList& only_columns) const;
    std::shared_ptr<Prepared_Statement> Prepared_Unsorted(const QString& sql, const QString& table,
                                                          const QStringList& only_columns) const;
    Statement_Result Run(Prepared_Statement& prepared, const std::vector<basics::Value>& values);
    void Share_Lock();
    void Open(int timeout_seconds);
    void Settle_Journal();

    QString connection_string;
    QString file;
    bool journal_is_settled = false;
    Engine_Files files; // both outlive the engine
    Busy_Waiting waiting;
    std::optional<Engine_Handle> engine;
    // While it stands on its row, the engine keeps its read lock from one statement to the next.
    std::optional<Engine_Statement> reading;
    bool lock_is_held = false;
    Reads reads;
    QElapsedTimer lock_held;
    QHash<QString, std::shared_ptr<Prepared_Statement>> known; // gone before the engine is
    QElapsedTimer since;                                       // ends a statement that runs too long
};

} // namespace database
