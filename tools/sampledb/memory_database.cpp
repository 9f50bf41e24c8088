#include "sampledb/memory_database.h"

#include <QDir>
#include <QSaveFile>

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace sample_data {

namespace {

[[noreturn]] void Fail(const QString& file, const QString& reason) {
    throw std::runtime_error(
        u"Can't write %1: %2"_s.arg(QDir::toNativeSeparators(file), reason).toStdString());
}

} // namespace

int Bind(sqlite3_stmt* statement, int place, const QVariant& value) {
    if (!value.isValid()) return sqlite3_bind_null(statement, place);
    if (value.typeId() == QMetaType::QString) {
        const QByteArray text = value.toString().toUtf8();
        return sqlite3_bind_text(statement, place, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    }
    if (value.typeId() == QMetaType::Double) return sqlite3_bind_double(statement, place, value.toDouble());
    return sqlite3_bind_int64(statement, place, value.toLongLong());
}

Memory_Database::Memory_Database() {
    const int result = sqlite3_open(":memory:", &database);
    if (result == SQLITE_OK) return;
    sqlite3_close(database); // a handle exists even after a failed opening
    throw std::runtime_error(sqlite3_errstr(result));
}

Memory_Database::~Memory_Database() {
    for (sqlite3_stmt* statement : std::as_const(insert_statements))
        sqlite3_finalize(statement);
    sqlite3_close(database);
}

void Memory_Database::Check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

void Memory_Database::Execute(const QString& statement) {
    Check(sqlite3_exec(database, statement.toUtf8().constData(), nullptr, nullptr, nullptr));
}

sqlite3_stmt* Memory_Database::Insert_Statement(const QString& table, qsizetype values) {
    sqlite3_stmt*& statement = insert_statements[table];
    if (statement) return statement;
    const QString text = u"INSERT INTO %1 VALUES (?%2)"_s.arg(table, u", ?"_s.repeated(values - 1));
    Check(sqlite3_prepare_v2(database, text.toUtf8().constData(), -1, &statement, nullptr));
    return statement;
}

void Memory_Database::Insert(const QString& table, const QVariantList& values) {
    sqlite3_stmt* statement = Insert_Statement(table, values.size());
    int place = 0;
    for (const QVariant& value : values)
        Check(Bind(statement, ++place, value));
    Check(sqlite3_step(statement));
    Check(sqlite3_reset(statement));
}

void Memory_Database::Save_As(const QString& file) {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> image(
        sqlite3_serialize(database, "main", &size, 0), sqlite3_free);
    if (!image) throw std::runtime_error("Not enough memory for the database");

    QSaveFile target(file);
    const bool written = target.open(QIODevice::WriteOnly) &&
                         target.write(reinterpret_cast<const char*>(image.get()), size) == size &&
                         target.commit();
    if (!written) Fail(file, target.errorString());
}

} // namespace sample_data
