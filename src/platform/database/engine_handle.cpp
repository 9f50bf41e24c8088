#include "platform/database/engine_handle.h"

#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace database {

// An empty array's place is none, which would bind NULL.
static const char* Data_Of(const QByteArray& bytes) {
    return bytes.isEmpty() ? "" : bytes.constData();
}

void Engine_Handle::Closer::operator()(sqlite3* engine) const {
    sqlite3_close(engine);
}

void Engine_Handle::Throw_Its_Words(sqlite3* engine, int) {
    throw std::runtime_error(sqlite3_errmsg(engine));
}

Engine_Handle::Engine_Handle(const QString& file, Access access, Fail fail, const char* vfs)
    : fail(std::move(fail)) {
    const int flags = access == Access::Read_Only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    sqlite3* opened = nullptr; // even where it fails, for the engine's words
    const int result = sqlite3_open_v2(file.toUtf8().constData(), &opened, flags | SQLITE_OPEN_NOMUTEX, vfs);
    handle.reset(opened);
    Check(result);
    sqlite3_extended_result_codes(opened, 1);
}

void Engine_Handle::Run(const QString& sql) const {
    Check(sqlite3_exec(Get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr));
}

int Engine_Handle::Changed_Rows() const {
    return sqlite3_changes(Get());
}

QByteArray Engine_Handle::First_Bytes(int count) const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(Get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods) Check(SQLITE_CANTOPEN);
    QByteArray bytes(count, '\0');
    const int result = file->pMethods->xRead(file, bytes.data(), count, 0);
    if (result != SQLITE_IOERR_SHORT_READ) Check(result);
    return bytes;
}

void Engine_Handle::Check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE) fail(Get(), result);
}

void Engine_Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Engine_Statement::Engine_Statement(const Engine_Handle& engine, const QString& sql, Use use)
    : engine(&engine) {
    engine.Check(Prepare(sql, use));
}

std::optional<Engine_Statement> Engine_Statement::If_Possible(const Engine_Handle& engine, const QString& sql,
                                                              Use use) {
    Engine_Statement statement(engine);
    if (statement.Prepare(sql, use) != SQLITE_OK) return std::nullopt;
    return statement;
}

int Engine_Statement::Prepare(const QString& sql, Use use) {
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* prepared = nullptr;
    const int result =
        sqlite3_prepare_v3(engine->Get(), text.constData(), static_cast<int>(text.size()),
                           use == Use::Often ? SQLITE_PREPARE_PERSISTENT : 0, &prepared, nullptr);
    statement.reset(prepared);
    return result;
}

void Engine_Statement::Bind_Null(int place) {
    engine->Check(sqlite3_bind_null(Get(), place));
}

void Engine_Statement::Bind(int place, qint64 number) {
    engine->Check(sqlite3_bind_int64(Get(), place, number));
}

void Engine_Statement::Bind(int place, double number) {
    engine->Check(sqlite3_bind_double(Get(), place, number));
}

void Engine_Statement::Bind_Text(int place, const QByteArray& utf8) {
    engine->Check(
        sqlite3_bind_text(Get(), place, Data_Of(utf8), static_cast<int>(utf8.size()), SQLITE_TRANSIENT));
}

void Engine_Statement::Bind_Bytes(int place, const QByteArray& bytes) {
    engine->Check(
        sqlite3_bind_blob(Get(), place, Data_Of(bytes), static_cast<int>(bytes.size()), SQLITE_TRANSIENT));
}

bool Engine_Statement::Step() {
    const int result = sqlite3_step(Get());
    engine->Check(result);
    return result == SQLITE_ROW;
}

bool Engine_Statement::Changes() const {
    return sqlite3_stmt_readonly(Get()) == 0;
}

void Engine_Statement::Reset() {
    sqlite3_reset(Get());
}

int Engine_Statement::Type(int column) const {
    return sqlite3_column_type(Get(), column);
}

qint64 Engine_Statement::Whole(int column) const {
    return sqlite3_column_int64(Get(), column);
}

double Engine_Statement::Real(int column) const {
    return sqlite3_column_double(Get(), column);
}

QByteArray Engine_Statement::Bytes(int column) const {
    const bool is_blob = Type(column) == SQLITE_BLOB;
    const void* bytes = is_blob ? sqlite3_column_blob(Get(), column) : sqlite3_column_text(Get(), column);
    return {static_cast<const char*>(bytes), sqlite3_column_bytes(Get(), column)};
}

QString Engine_Statement::Text(int column) const {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(Get(), column)));
}

QString Quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

} // namespace database
