#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace database {

enum class Access { Read_Only, Read_Write };

// The engine, open on one file as it comes: nothing is hardened, and nothing is waited for.
class Engine_Handle {
public:
    // Called with the engine's result at each failure of the handle and of its statements; throws.
    using Fail = std::function<void(sqlite3* engine, int result)>;
    // A std::runtime_error with the engine's words.
    static void Throw_Its_Words(sqlite3* engine, int result);

    // The file must exist; ":memory:" is an empty database without one.
    // `vfs` names a way to the files other than the system's; it outlives the handle.
    Engine_Handle(const QString& file, Access access, Fail fail = Throw_Its_Words, const char* vfs = nullptr);
    Engine_Handle(const Engine_Handle&) = delete;
    Engine_Handle& operator=(const Engine_Handle&) = delete;

    void Run(const QString& sql) const; // any number of statements; passes over their rows
    int Changed_Rows() const;           // by the last statement that changes rows
    // So many bytes from the file's start, zeros behind its end. Read through the engine's own handle: on
    // POSIX systems a second one would drop the locks of the process when it is closed.
    QByteArray First_Bytes(int count) const;
    void Check(int result) const; // a call's of the engine's own
    sqlite3* Get() const { return handle.get(); }

private:
    struct Closer {
        void operator()(sqlite3* engine) const;
    };
    Fail fail;
    std::unique_ptr<sqlite3, Closer> handle;
};

// A statement that is ready to run, of a handle that outlives it.
class Engine_Statement {
public:
    enum class Use { Once, Often };

    Engine_Statement(const Engine_Handle& engine, const QString& sql, Use use = Use::Once);
    // None where the engine refuses it, for whatever reason.
    static std::optional<Engine_Statement> If_Possible(const Engine_Handle& engine, const QString& sql,
                                                       Use use);
    bool Is_Empty() const { return !statement; } // nothing but blanks and comments

    // Places count from 1.
    void Bind_Null(int place);
    void Bind(int place, qint64 number);
    void Bind(int place, double number);
    void Bind_Text(int place, const QByteArray& utf8);
    void Bind_Bytes(int place, const QByteArray& bytes);
    bool Step();          // true where there is a row
    bool Changes() const; // whether it would write to the file
    void Reset();

    // Of the row; columns count from 0.
    int Type(int column) const; // SQLITE_NULL and the like
    qint64 Whole(int column) const;
    double Real(int column) const;
    QByteArray Bytes(int column) const; // UTF-8 of a text, in whatever encoding the file keeps it
    QString Text(int column) const;     // null for NULL

    sqlite3_stmt* Get() const { return statement.get(); }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    explicit Engine_Statement(const Engine_Handle& engine) : engine(&engine) {}
    int Prepare(const QString& sql, Use use);

    const Engine_Handle* engine;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement;
};

// The name in double quotes, as a statement takes it whatever characters it holds.
QString Quoted(const QString& name);

} // namespace database
