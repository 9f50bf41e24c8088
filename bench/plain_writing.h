#pragma once

#include <QString>
#include <memory>

struct sqlite3;

namespace bench {

// A connection that stays open and runs one statement after the other, each on its own: the engine's calls
// and nothing around them. The file is written as safely as the program writes it, by a rollback journal and
// with full synchronisation. Throws std::runtime_error with what the engine says.
class Plain_Writer {
public:
    explicit Plain_Writer(const QString& file);

    int Run(const QString& sql); // gives the number of rows that it touched

private:
    struct Closer {
        void operator()(sqlite3* engine) const;
    };
    std::unique_ptr<sqlite3, Closer> engine;
};

} // namespace bench
