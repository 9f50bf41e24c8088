#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace conversion {

// Failures of both classes are Refusals with the engine's words.

class Engine {
public:
    enum class Access { Read_Only, Read_Write };

    Engine(const QString& file, Access access); // the file must exist
    void Run(const QString& sql);
    qint64 Number(const QString& sql); // the first cell
    sqlite3* Handle() const { return handle.get(); }
    [[noreturn]] void Refuse() const; // with the last error

private:
    struct Closer {
        void operator()(sqlite3* engine) const;
    };
    std::unique_ptr<sqlite3, Closer> handle;
};

class Statement {
public:
    Statement(Engine& engine, const QString& sql);

    // Places count from 1.
    void Bind_Null(int place);
    void Bind(int place, qint64 number);
    void Bind(int place, double number);
    void Bind_Text(int place, const QByteArray& utf8);
    void Bind_Bytes(int place, const QByteArray& bytes);
    bool Step(); // true where there is a row
    // Of a statement that gives no rows: false where it would break a key, which leaves all as it was.
    bool Try();
    void Reset();

    // Of the row; columns count from 0.
    int Type(int column) const; // SQLITE_NULL and the like
    qint64 Whole(int column) const;
    double Real(int column) const;
    QByteArray Bytes(int column) const; // UTF-8 of a text, in whatever encoding the file keeps it

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    void Check(int result) const;

    Engine& engine;
    std::unique_ptr<sqlite3_stmt, Finalizer> handle;
};

// A name for a statement, whatever it holds.
QString Quoted(const QString& name);

} // namespace conversion
