#include "conversion/engine.h"

#include "conversion/refusal.h"
#include "platform/database/hardening.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace conversion {

namespace {

// Bound bytes must outlive the statement's step; an empty array's place is none, which would bind NULL.
const char* Data_Of(const QByteArray& bytes) {
    return bytes.isEmpty() ? "" : bytes.constData();
}

} // namespace

void Engine::Closer::operator()(sqlite3* engine) const {
    sqlite3_close(engine);
}

Engine::Engine(const QString& file, Access access) {
    const int flags = access == Access::Read_Only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(file.toUtf8().constData(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    handle.reset(opened);
    if (result != SQLITE_OK) Refuse();
    sqlite3_extended_result_codes(opened, 1);
    database::Harden(opened);
}

void Engine::Refuse() const {
    throw Refusal(u"The converted database: "_s + QString::fromUtf8(sqlite3_errmsg(Handle())) + u'.');
}

void Engine::Run(const QString& sql) {
    if (sqlite3_exec(Handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) Refuse();
}

qint64 Engine::Number(const QString& sql) {
    Statement statement(*this, sql);
    return statement.Step() ? statement.Whole(0) : 0;
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement::Statement(Engine& engine, const QString& sql) : engine(engine) {
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v2(engine.Handle(), sql.toUtf8().constData(), -1, &prepared, nullptr);
    handle.reset(prepared);
    Check(result);
}

void Statement::Check(int result) const {
    if (result != SQLITE_OK) engine.Refuse();
}

void Statement::Bind_Null(int place) {
    Check(sqlite3_bind_null(handle.get(), place));
}

void Statement::Bind(int place, qint64 number) {
    Check(sqlite3_bind_int64(handle.get(), place, number));
}

void Statement::Bind(int place, double number) {
    Check(sqlite3_bind_double(handle.get(), place, number));
}

void Statement::Bind_Text(int place, const QByteArray& utf8) {
    Check(sqlite3_bind_text(handle.get(), place, Data_Of(utf8), static_cast<int>(utf8.size()),
                            SQLITE_TRANSIENT));
}

void Statement::Bind_Bytes(int place, const QByteArray& bytes) {
    Check(sqlite3_bind_blob(handle.get(), place, Data_Of(bytes), static_cast<int>(bytes.size()),
                            SQLITE_TRANSIENT));
}

bool Statement::Step() {
    const int result = sqlite3_step(handle.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) engine.Refuse();
    return result == SQLITE_ROW;
}

bool Statement::Try() {
    const int result = sqlite3_step(handle.get());
    const bool breaks_key = result == SQLITE_CONSTRAINT_PRIMARYKEY;
    if (result != SQLITE_DONE && !breaks_key) engine.Refuse();
    sqlite3_reset(handle.get());
    return !breaks_key;
}

void Statement::Reset() {
    sqlite3_reset(handle.get());
}

int Statement::Type(int column) const {
    return sqlite3_column_type(handle.get(), column);
}

qint64 Statement::Whole(int column) const {
    return sqlite3_column_int64(handle.get(), column);
}

double Statement::Real(int column) const {
    return sqlite3_column_double(handle.get(), column);
}

QByteArray Statement::Bytes(int column) const {
    const bool is_blob = Type(column) == SQLITE_BLOB;
    const void* bytes =
        is_blob ? sqlite3_column_blob(handle.get(), column) : sqlite3_column_text(handle.get(), column);
    return {static_cast<const char*>(bytes), sqlite3_column_bytes(handle.get(), column)};
}

QString Quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

} // namespace conversion
