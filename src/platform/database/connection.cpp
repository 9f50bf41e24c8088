#include "platform/database/connection.h"

#include "platform/basics/dates.h"
#include "platform/basics/native_path.h"
#include "platform/database/busy_waiting.h"
#include "platform/database/collation.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_errors.h"
#include "platform/database/hardening.h"
#include "platform/database/jet_sql.h"
#include "platform/database/recordset.h"

#include <QElapsedTimer>
#include <cmath>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace database {

using basics::Value;

constexpr int Longest_Query_Ms = 60'000;

struct Connection::Watch {
    QElapsedTimer since; // the running query's start
    Busy_Waiting waiting;
};

namespace {

struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

QString Data_Source(const QString& connection_string) {
    for (const QString& part : connection_string.split(u';')) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals > 0 && part.left(equals).trimmed().compare("Data Source"_L1, Qt::CaseInsensitive) == 0)
            return part.mid(equals + 1).trimmed();
    }
    Raise_Engine_Error(errors::Engine_Failure, u"No file is named in the connection string."_s);
}

// What statements of the program may do. The rest (attaching, settings, transactions, views, triggers,
// dropping) is refused, whatever text was spliced into a statement.
int Allow_Plain_Statements(void*, int action, const char* first, const char* second, const char*,
                           const char*) {
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
    case SQLITE_CREATE_TABLE:
    case SQLITE_ALTER_TABLE:
        return SQLITE_OK;
    case SQLITE_FUNCTION:
        return qstrcmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    // The engine itself looks over the rows when a column with a limit is added.
    case SQLITE_PRAGMA:
        return qstrcmp(first, "quick_check") == 0 ? SQLITE_OK : SQLITE_DENY;
    default:
        return SQLITE_DENY;
    }
}

int End_If_Too_Long(void* watch) {
    const auto* timer = static_cast<QElapsedTimer*>(watch);
    return timer->isValid() && timer->hasExpired(Longest_Query_Ms) ? 1 : 0;
}

// Test modules and older tools store a date as text in several forms; the declared type or, in files made
// without types, the suite's own column names tell that one is meant.
bool Is_Date_Column(const char* declared_type, const QString& name) {
    if (declared_type && qstrnicmp(declared_type, "DATE", 4) == 0) return true;
    return name.compare("DOB"_L1, Qt::CaseInsensitive) == 0 || name.endsWith("_date"_L1, Qt::CaseInsensitive);
}

Value Text_Value(sqlite3_stmt* statement, int column, bool is_date) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    const QString text = QString::fromUtf8(bytes, sqlite3_column_bytes(statement, column));
    if (is_date) {
        if (text.trimmed().isEmpty()) return {}; // an untyped file's way to leave a date out
        if (const auto date = basics::Stored_Date(text)) return *date;
    }
    return text.isNull() ? QString(u""_s) : text;
}

Value Column_Value(sqlite3_stmt* statement, int column, bool is_date) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return static_cast<qint64>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        return Text_Value(statement, column, is_date);
    }
}

void Bind(sqlite3_stmt* statement, int place, const Value& value) {
    if (value.Is_Empty()) {
        sqlite3_bind_null(statement, place);
    } else if (value.Is_Number()) {
        constexpr double largest_whole = 9e15; // doubles beyond hold no odd numbers, and may not fit
        const double number = value.As_Double();
        const bool is_whole = std::fabs(number) < largest_whole && std::trunc(number) == number;
        if (is_whole)
            sqlite3_bind_int64(statement, place, static_cast<qint64>(number));
        else
            sqlite3_bind_double(statement, place, number);
    } else {
        const QByteArray text = value.As_Text().toUtf8();
        sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    }
}

} // namespace

Connection::Connection() : watch(std::make_unique<Watch>()) {
}

Connection::~Connection() {
    sqlite3_close(engine);
}

void Connection::Open() {
    if (Is_Open()) Raise_Object_Error(errors::Object_Open, u"Connection"_s);
    const QString file = basics::Native_Path(Data_Source(ConnectionString));
    Refuse_What_Is_No_Database(file);
    const bool in_wal_mode = Has_Write_Ahead_Log(file);

    const int result = sqlite3_open_v2(file.toUtf8().constData(), &engine,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (result != SQLITE_OK) Raise_Engine_Error(engine, result);
        sqlite3_extended_result_codes(engine, 1);
        watch->waiting.Install(engine, ConnectionTimeout);
        sqlite3_progress_handler(engine, 10'000, End_If_Too_Long, &watch->since);
        Harden(engine);
        if (in_wal_mode) Run(u"PRAGMA journal_mode = DELETE"_s);
        Run(u"PRAGMA synchronous = FULL"_s);
        Run(u"PRAGMA cell_size_check = ON"_s);
        Install_Text_Order(engine); // reads the schema as well: what is no database shows here
        sqlite3_set_authorizer(engine, Allow_Plain_Statements, nullptr);
    } catch (...) {
        Close();
        throw;
    }
}

void Connection::Close() {
    if (!Is_Open()) Raise_Object_Error(errors::Object_Closed, u"Connection"_s);
    sqlite3_close(engine);
    engine = nullptr;
}

Connection::Rows Connection::Run(const QString& engine_sql, const std::vector<Value>& values) {
    if (!Is_Open()) Raise_Object_Error(errors::Object_Closed, u"Connection"_s);
    watch->since.start();

    const QByteArray sql = engine_sql.toUtf8();
    sqlite3_stmt* prepared = nullptr;
    const int result =
        sqlite3_prepare_v3(engine, sql.constData(), static_cast<int>(sql.size()), 0, &prepared, nullptr);
    const Statement statement(prepared);
    if (result != SQLITE_OK) Raise_Engine_Error(engine, result);
    if (!statement) Raise_Engine_Error(errors::Syntax, u"Invalid SQL statement."_s);
    for (std::size_t i = 0; i < values.size(); ++i)
        Bind(prepared, static_cast<int>(i) + 1, values[i]);

    Rows rows;
    const int columns = sqlite3_column_count(prepared);
    rows.returns_rows = columns > 0;
    std::vector<bool> is_date;
    for (int column = 0; column < columns; ++column) {
        rows.names.append(QString::fromUtf8(sqlite3_column_name(prepared, column)));
        is_date.push_back(Is_Date_Column(sqlite3_column_decltype(prepared, column), rows.names.last()));
    }
    int step;
    while ((step = sqlite3_step(prepared)) == SQLITE_ROW) {
        std::vector<Value>& row = rows.rows.emplace_back();
        row.reserve(static_cast<std::size_t>(columns));
        for (int column = 0; column < columns; ++column)
            row.push_back(Column_Value(prepared, column, is_date[static_cast<std::size_t>(column)]));
    }
    if (step != SQLITE_DONE) Raise_Engine_Error(engine, step);
    if (!rows.returns_rows) rows.affected = sqlite3_changes(engine);
    return rows;
}

int Connection::Execute(const QString& sql) {
    return Run(Translate_Jet(sql).sql).affected;
}

std::unique_ptr<Recordset> Connection::OpenSchema() {
    auto tables = std::make_unique<Recordset>();
    tables->Set_ActiveConnection(this);
    tables->Take(Run(u"SELECT name AS Table_Name FROM sqlite_master "
                     "WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name"_s),
                 false);
    return tables;
}

int Command::Execute() {
    if (!ActiveConnection) Raise_Object_Error(errors::Connection_Invalid, u"Command"_s);
    return ActiveConnection->Execute(CommandText);
}

} // namespace database
