#include "platform/database/connection.h"

#include "platform/database/engine_errors.h"
#include "platform/database/kept_engine.h"
#include "platform/database/recordset.h"

using namespace Qt::StringLiterals;

namespace database {

Connection::Connection() = default;

Connection::~Connection() {
    if (engine && keeper) keeper->Keep(std::move(engine));
}

void Connection::Open() {
    if (Is_Open()) Raise_Object_Error(errors::Object_Open, u"Connection"_s);
    engine = keeper ? keeper->Take(ConnectionString, ConnectionTimeout)
                    : std::make_unique<Engine>(ConnectionString, ConnectionTimeout);
}

void Connection::Close() {
    Opened();
    if (keeper) keeper->Keep(std::move(engine));
    engine.reset();
}

Engine& Connection::Opened() const {
    if (!engine) Raise_Object_Error(errors::Object_Closed, u"Connection"_s);
    return *engine;
}

int Connection::Execute(const QString& sql) {
    return Opened().Run_Jet(sql, false).affected;
}

std::unique_ptr<Recordset> Connection::OpenSchema() {
    auto tables = std::make_unique<Recordset>();
    tables->Set_ActiveConnection(this);
    tables->Take(Opened().Run(u"SELECT name AS Table_Name FROM sqlite_master "
                              "WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name"_s));
    return tables;
}

int Command::Execute() {
    if (!ActiveConnection) Raise_Object_Error(errors::Connection_Invalid, u"Command"_s);
    return ActiveConnection->Execute(CommandText);
}

} // namespace database
