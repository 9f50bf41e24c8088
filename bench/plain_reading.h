#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

// The engine's own calls and nothing around them: one connection whose statements are prepared once and
// bound. Throws std::runtime_error with what the engine says.
class Plain_Reader {
public:
    struct Closer {
        void operator()(sqlite3* engine) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

    explicit Plain_Reader(const QString& file);
    Statement Prepare(const QString& sql) const;
    // Reads every cell of every row; gives the number of rows.
    int Read(const Statement& statement) const;
    int Read(const Statement& statement, const QByteArray& first_value) const;

private:
    std::unique_ptr<sqlite3, Closer> engine;
};

// Opens a connection of its own, runs one SELECT and closes.
int Read_Plainly(const QString& file, const QString& sql);

} // namespace bench
