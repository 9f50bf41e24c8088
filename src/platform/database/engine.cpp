#include "platform/database/engine.h"

#include "platform/basics/native_path.h"
#include "platform/basics/system_failure.h"
#include "platform/database/collation.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_errors.h"
#include "platform/database/hardening.h"
#include "platform/database/jet_sql.h"
#include "platform/database/journal_rights.h"

#include <QScopeGuard>
#include <cmath>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace database {

using basics::Value;

constexpr int Longest_Query_Ms = 60'000;
constexpr int Most_Statements_Kept = 100; // an action of the program runs a few dozen

namespace {

// All that stands behind the key, which comes last: a file or folder may have a semicolon in its name.
QString Data_Source(const QString& connection_string) {
    const QString key = u"Data Source="_s;
    const qsizetype place = connection_string.indexOf(key);
    if (place < 0)
        Raise_Engine_Error(errors::Engine_Failure, u"No file is named in the connection string."_s);
    return connection_string.mid(place + key.size());
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
    // The engine itself looks over the rows when a column with a limit is added. The version is what a shared
    // read lock reads; with something behind it, it would be set.
    case SQLITE_PRAGMA:
        return qstrcmp(first, "quick_check") == 0 || (qstrcmp(first, "schema_version") == 0 && !second)
                   ? SQLITE_OK
                   : SQLITE_DENY;
    default:
        return SQLITE_DENY;
    }
}

int End_If_Too_Long(void* watch) {
    const auto* timer = static_cast<QElapsedTimer*>(watch);
    return timer->isValid() && timer->hasExpired(Longest_Query_Ms) ? 1 : 0;
}

void Bind(Engine_Statement& statement, int place, const Value& value) {
    if (value.Is_Empty()) {
        statement.Bind_Null(place);
    } else if (value.Is_Number()) {
        constexpr double largest_whole = 9e15; // doubles beyond hold no odd numbers, and may not fit
        const double number = value.As_Double();
        const bool is_whole = std::fabs(number) < largest_whole && std::trunc(number) == number;
        if (is_whole)
            statement.Bind(place, static_cast<qint64>(number));
        else
            statement.Bind(place, number);
    } else {
        statement.Bind_Text(place, value.As_Text().toUtf8());
    }
}

// A statement that has been stepped holds a lock until it is reset.
class Reset_At_The_End {
public:
    explicit Reset_At_The_End(Engine_Statement& statement) : statement(statement) {}
    ~Reset_At_The_End() { statement.Reset(); }
    Reset_At_The_End(const Reset_At_The_End&) = delete;
    Reset_At_The_End& operator=(const Reset_At_The_End&) = delete;

private:
    Engine_Statement& statement;
};

} // namespace

Engine::Engine(const QString& connection_string, int timeout_seconds, Reads reads)
    : connection_string(connection_string),
      file(basics::Native_Path(Data_Source(connection_string))),
      reads(reads) {
    Open(timeout_seconds);
    if (reads == Reads::Alone) End_Shared_Lock();
}

// All that is read here is read under one lock.
void Engine::Open(int timeout_seconds) {
    const auto waited = qScopeGuard([this] { waiting.Is_Over(); });
    since.start();
    try {
        engine.emplace(
            file, Access::Read_Write, [](sqlite3* failed, int result) { Raise_Engine_Error(failed, result); },
            files.Name());
    } catch (const basics::Run_Time_Error&) {
        Refuse_What_Is_No_Database(file); // tells what the engine has no words for
        throw;
    }
    const QByteArray header = engine->First_Bytes(Header_Size);
    if (!Begins_A_Database(header)) Refuse_What_Is_No_Database(file);
    const bool in_wal_mode = Has_Write_Ahead_Log(header);
    sqlite3* const opened = engine->Get();
    Set_Timeout(timeout_seconds);
    sqlite3_progress_handler(opened, 10'000, End_If_Too_Long, &since);
    Harden(opened);
    if (in_wal_mode) Refuse_Log_Of_Read_Only_File(opened);
    if (in_wal_mode) engine->Run(u"PRAGMA journal_mode = DELETE"_s);
    Install_Text_Order(*engine);
    Share_Lock();
    for (const QString& setting :
         {u"PRAGMA synchronous = FULL"_s, u"PRAGMA cell_size_check = ON"_s,
          u"PRAGMA cache_size = -16384"_s}) // KiB: a school's file as a whole, given back with the engine
        engine->Run(setting);
    const bool has_foreign_indexes = Holds_Foreign_Indexes(*engine); // what is no database shows here
    if (has_foreign_indexes) {
        End_Shared_Lock();
        Install_Plain_No_Case(*engine);
    }
    sqlite3_set_authorizer(opened, Allow_Plain_Statements, nullptr);
}

void Engine::Set_Reads(Reads wanted) {
    reads = wanted;
    if (reads == Reads::Alone) End_Shared_Lock();
}

// A statement that stands on its row keeps the engine's read lock, and needs no transaction to be begun or
// ended. This one reads a number that lies in the file's first page.
void Engine::Share_Lock() {
    constexpr int longest_ms = 250; // writers wait so long for us, and then go first
    if (lock_is_held && !lock_held.hasExpired(longest_ms)) return;
    End_Shared_Lock();
    if (!reading) reading.emplace(*engine, u"PRAGMA schema_version"_s, Engine_Statement::Use::Often);
    lock_is_held = reading->Step();
    lock_held.start();
}

void Engine::End_Shared_Lock() {
    if (!lock_is_held) return;
    reading->Reset();
    lock_is_held = false;
}

void Engine::Set_Timeout(int seconds) {
    waiting.Install(engine->Get(), seconds);
}

bool Engine::Serves(const QString& asked) {
    if (lock_is_held) return asked == connection_string;
    int has_moved = 0;
    files.Look_Anew();
    return asked == connection_string &&
           sqlite3_file_control(engine->Get(), "main", SQLITE_FCNTL_HAS_MOVED, &has_moved) == SQLITE_OK &&
           has_moved == 0;
}

template<class Prepare>
std::shared_ptr<Prepared_Statement> Engine::Known_Or(const QString& key, const Prepare& prepare) {
    if (const auto found = known.constFind(key); found != known.cend()) return *found;
    if (known.size() >= Most_Statements_Kept) known.clear();
    auto prepared = prepare();
    known.insert(key, prepared);
    return prepared;
}

static std::shared_ptr<Prepared_Statement> With_Shape(Engine_Statement statement, const QString& table) {
    auto shape = std::make_shared<const Row_Shape>(statement.Get());
    return std::make_shared<Prepared_Statement>(
        Prepared_Statement{std::move(statement), std::move(shape), table, {}, {}});
}

std::shared_ptr<Prepared_Statement> Engine::Prepared(const QString& sql, const QString& table) const {
    Engine_Statement statement(*engine, sql, Engine_Statement::Use::Often);
    if (statement.Is_Empty()) Raise_Engine_Error(errors::Syntax, u"Invalid SQL statement."_s);
    return With_Shape(std::move(statement), table);
}

// The statement of whole rows with these columns in the place of all.
static QString With_Columns_Alone(QString sql, const QStringList& names) {
    QStringList quoted;
    for (const QString& name : names)
        quoted.append(Quoted(name));
    return sql.replace(sql.indexOf(u'*'), 1, quoted.join(u", "_s));
}

static void Remove_All_But(const QStringList& wanted, QStringList& names) {
    names.removeIf([&](const QString& name) { return !wanted.contains(name, Qt::CaseInsensitive); });
}

// Of a wide row the engine unpacks only what it is asked for. Nearly always the table has all of these
// columns; where it hasn't, its own are looked at first.
std::shared_ptr<Prepared_Statement> Engine::Prepared_Unsorted(const QString& sql, const QString& table,
                                                              const QStringList& only_columns) const {
    if (only_columns.isEmpty()) return Prepared(sql, table);
    const auto narrow = With_Columns_Alone(sql, only_columns);
    if (auto statement = Engine_Statement::If_Possible(*engine, narrow, Engine_Statement::Use::Often))
        return With_Shape(std::move(*statement), table);
    auto whole = Prepared(sql, table);
    QStringList names = whole->shape->names.sliced(table.isEmpty() ? 0 : 1); // the identity isn't its own
    Remove_All_But(only_columns, names);
    return names.isEmpty() ? whole : Prepared(With_Columns_Alone(sql, names), table);
}

// The engine sorts rows together with all of their columns, each packed and unpacked on the way. Only what it
// would refuse, or sort by something that isn't a column, is left to it.
std::shared_ptr<Prepared_Statement> Engine::Prepared(const Translated_Statement& translated,
                                                     bool to_be_written,
                                                     const QStringList& only_columns) const {
    const bool with_identity = to_be_written && !translated.table.isEmpty();
    const QString& sql = with_identity ? translated.with_row_identity : translated.sql;
    const QString table = with_identity ? translated.table : QString();
    if (translated.sorted_by.isEmpty()) return Prepared(sql, table);
    QStringList wanted = only_columns;
    for (const QString& name : translated.sorted_by)
        if (!only_columns.isEmpty() && !only_columns.contains(name, Qt::CaseInsensitive)) wanted.append(name);
    auto unsorted = Prepared_Unsorted(sql.chopped(translated.order.size()), table, wanted);
    for (const QString& name : translated.sorted_by)
        if (!unsorted->shape->columns.contains(name)) return Prepared(sql, table);
    unsorted->sorted_by = translated.sorted_by;
    return unsorted;
}

// No statement ends with such a character, so those of the engine's own dialect have keys of their own too.
static QChar Kind_Of_Use(bool to_be_written, bool is_lifted) {
    if (is_lifted) return to_be_written ? u'\1' : u'\2';
    return to_be_written ? u'\3' : u'\4';
}

Statement_Result Engine::Run_Jet(const QString& jet, bool to_be_written, const QStringList& only_columns) {
    since.start();
    Lifted_Statement lifted = Lift_Texts(jet);
    QString key = std::move(lifted.shape);
    const qsizetype shape = key.size();
    if (!only_columns.isEmpty()) key += u'\0' + only_columns.join(u'\0');
    key.append(Kind_Of_Use(to_be_written, lifted.is_lifted));
    const auto prepared = Known_Or(key, [&] {
        lifted.shape = key.first(shape);
        return Prepared(Translate_Jet(lifted), to_be_written, only_columns);
    });
    return Run(*prepared, lifted.texts);
}

Statement_Result Engine::Run(const QString& sql, const std::vector<Value>& values) {
    since.start();
    return Run(*Known_Or(sql, [&] { return Prepared(sql, {}); }), values);
}

// While it lives, the program may do what its statements may not.
struct Unhindered {
    explicit Unhindered(sqlite3* engine) : engine(engine) {
        sqlite3_set_authorizer(engine, nullptr, nullptr);
    }
    ~Unhindered() { sqlite3_set_authorizer(engine, Allow_Plain_Statements, nullptr); }
    Unhindered(const Unhindered&) = delete;
    Unhindered& operator=(const Unhindered&) = delete;
    sqlite3* engine;
};

// Before the first change of an act. Making a journal and removing it again takes more round trips than
// emptying it.
void Engine::Settle_Journal() {
    if (journal_is_settled) return;
    journal_is_settled = true;
    if (!Journal_May_Stay(file)) return;
    const Unhindered settling(engine->Get());
    engine->Run(u"PRAGMA journal_mode = TRUNCATE"_s);
    files.Keep_Journal();
}

void Engine::Rehearse_A_Change() {
    struct Taken_Back : Unhindered {
        using Unhindered::Unhindered;
        ~Taken_Back() { sqlite3_exec(engine, "ROLLBACK", nullptr, nullptr, nullptr); }
    };
    End_Shared_Lock();
    since.start();
    const auto waited = qScopeGuard([this] { waiting.Is_Over(); });
    const Taken_Back rehearsal(engine->Get());
    // Any number: it is written as far as the journal.
    const int result =
        sqlite3_exec(engine->Get(), "BEGIN IMMEDIATE; PRAGMA user_version = 1", nullptr, nullptr, nullptr);
    if (result == SQLITE_OK) return;
    const bool out_of_room = basics::Number_Of_Last_Failure() == basics::errors::Disk_Full;
    if ((result & 0xff) == SQLITE_IOERR && out_of_room) basics::Raise(basics::errors::Disk_Full);
    engine->Check(result);
}

static Row_Store& Room_For_Rows(Prepared_Statement& prepared) {
    if (prepared.rows && prepared.rows.use_count() == 1)
        prepared.rows->Clear();
    else
        prepared.rows = std::make_shared<Row_Store>();
    return *prepared.rows;
}

static std::vector<int> Columns_Of(const QStringList& names, const Row_Shape& shape) {
    std::vector<int> columns;
    for (const QString& name : names)
        if (const auto found = shape.columns.find(name); found != shape.columns.end())
            columns.push_back(found->second);
    return columns;
}

Statement_Result Engine::Run(Prepared_Statement& prepared, const std::vector<Value>& values) {
    Engine_Statement& statement = prepared.statement;
    const auto waited = qScopeGuard([this] { waiting.Is_Over(); });
    if (statement.Changes()) {
        End_Shared_Lock(); // it stands alone, and never waits for others with a lock in its hands
        waiting.Give_Way();
        Settle_Journal();
    } else if (reads == Reads::Shared) {
        Share_Lock();
    }
    const Reset_At_The_End reset(statement);
    for (std::size_t i = 0; i < values.size(); ++i)
        Bind(statement, static_cast<int>(i) + 1, values[i]);

    Statement_Result result;
    bool is_row = statement.Step();
    // Another program has changed the tables since: the engine has prepared the statement anew.
    if (sqlite3_stmt_status(statement.Get(), SQLITE_STMTSTATUS_REPREPARE, 1) > 0)
        prepared.shape = std::make_shared<const Row_Shape>(statement.Get());
    result.shape = prepared.shape;
    result.table = prepared.table;
    const int columns = result.shape->Column_Count();
    if (columns > 0) {
        Row_Store& rows = Room_For_Rows(prepared);
        for (; is_row; is_row = statement.Step())
            rows.Take_Row(statement.Get(), columns);
        rows.Put_In_Order(Columns_Of(prepared.sorted_by, *result.shape));
        result.rows = prepared.rows;
    }
    if (columns == 0) result.affected = engine->Changed_Rows();
    return result;
}

} // namespace database
