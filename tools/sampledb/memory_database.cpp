#include "sampledb/memory_database.h"

#include "foundation/schema.h"

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

void Bind(database::Engine_Statement& statement, int place, const QVariant& value) {
    if (!value.isValid())
        statement.Bind_Null(place);
    else if (value.typeId() == QMetaType::QString)
        statement.Bind_Text(place, value.toString().toUtf8());
    else if (value.typeId() == QMetaType::Double)
        statement.Bind(place, value.toDouble());
    else
        statement.Bind(place, value.toLongLong());
}

Memory_Database::Memory_Database() : engine(u":memory:"_s, database::Access::Read_Write) {
    engine.Run(foundation::Page_Size_Statement.toString());
}

void Memory_Database::Execute(const QString& statement) {
    engine.Run(statement);
}

database::Engine_Statement& Memory_Database::Insert_Statement(const QString& table, qsizetype values) {
    if (const auto known = insert_statements.find(table); known != insert_statements.end())
        return known->second;
    const QString text = u"INSERT INTO %1 VALUES (?%2)"_s.arg(table, u", ?"_s.repeated(values - 1));
    return insert_statements.try_emplace(table, engine, text).first->second;
}

void Memory_Database::Insert(const QString& table, const QVariantList& values) {
    database::Engine_Statement& statement = Insert_Statement(table, values.size());
    int place = 0;
    for (const QVariant& value : values)
        Bind(statement, ++place, value);
    statement.Step();
    statement.Reset();
}

void Memory_Database::Save_As(const QString& file) {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> image(
        sqlite3_serialize(engine.Get(), "main", &size, 0), sqlite3_free);
    if (!image) throw std::runtime_error("Not enough memory for the database");

    QSaveFile target(file);
    const bool written = target.open(QIODevice::WriteOnly) &&
                         target.write(reinterpret_cast<const char*>(image.get()), size) == size &&
                         target.commit();
    if (!written) Fail(file, target.errorString());
}

} // namespace sample_data
