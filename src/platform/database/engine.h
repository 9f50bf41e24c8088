#pragma once

#include "platform/database/busy_waiting.h"
#include "platform/database/engine_handle.h"
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
    // Opens the file that the connection string names: as it is, never made, and hardened.
    Engine(const QString& connection_string, int timeout_seconds);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void Set_Timeout(int seconds);
    // Whether the connection string still leads to this very file.
    bool Serves(const QString& connection_string) const;

    // Runs one statement of the Jet dialect. With `to_be_written` its rows come with their identities, where
    // they have any.
    Statement_Result Run_Jet(const QString& jet, bool to_be_written);
    // Runs one statement of the engine's own dialect with values for its place holders.
    Statement_Result Run(const QString& sql, const std::vector<basics::Value>& values = {});
    // Meets what a change of the file would meet, and changes nothing.
    void Rehearse_A_Change();

private:
    template<class Prepare>
    std::shared_ptr<Prepared_Statement> Known_Or(const QString& key, const Prepare& prepare);
    std::shared_ptr<Prepared_Statement> Prepared(const QString& sql, const QString& table) const;
    Statement_Result Run(Prepared_Statement& prepared, const std::vector<basics::Value>& values);

    QString connection_string;
    Busy_Waiting waiting; // outlives the engine
    std::optional<Engine_Handle> engine;
    QHash<QString, std::shared_ptr<Prepared_Statement>> known; // gone before the engine is
    QElapsedTimer since;                                       // ends a statement that runs too long
};

} // namespace database
