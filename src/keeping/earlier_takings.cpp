#include "keeping/earlier_takings.h"

#include "foundation/installation.h"
#include "foundation/schema.h"
#include "foundation/start_up.h"
#include "platform/basics/native_path.h"
#include "platform/database/files/kept_copies.h"
#include "platform/database/files/safe_copy.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace keeping {

using basics::Value;
using database::Engine_Statement;
using database::Quoted;

namespace {

const QString Place_Of_Row = u"Kept_Taking"_s;
const Side_Kind& Kept_Kind() {
    static const Side_Kind kind{
        u"The file of earlier results"_s,
        0x4d4b7031,
        1,
        {u"CREATE TABLE Takings (Id INTEGER PRIMARY KEY, StudentCode TEXT, Test TEXT, "
         "Status INTEGER, Age INTEGER, Test_Date TEXT, Kept_At TEXT, Digest TEXT, "
         "UNIQUE (StudentCode, Test, Digest))"_s}};
    return kind;
}

// A row as it was read: names and values side by side.
struct Row_Of_Answers {
    QStringList names;
    QList<Value> values;
};

// What is to be kept of one test.
struct Found_Taking {
    const foundation::Test_Tables* tables;
    int status, age;
    QString date;
    Row_Of_Answers answers;
};

void Open(database::Recordset& rows, database::Connection& connection, const QString& sql) {
    rows.LockType = database::Lock_Type::Read_Only;
    rows.Source = sql;
    rows.Set_ActiveConnection(&connection);
    rows.Open();
}

void Open(database::Connection& connection, const QString& database) {
    connection.ConnectionString = foundation::Connection_String_For(database);
    connection.ConnectionTimeout = Longest_Wait;
    connection.Open();
}

QString Of_Pupil(const QString& table, const QString& code) {
    return u"SELECT * FROM "_s + table + u" WHERE StudentCode = '"_s + code + u'\'';
}

Row_Of_Answers Read_Answers(database::Connection& connection, const QString& table, const QString& code) {
    database::Recordset rows;
    Open(rows, connection, Of_Pupil(table, code));
    Row_Of_Answers answers;
    if (rows.Eof()) return answers;
    for (int column = 0; column < rows.Field_Count(); ++column) {
        answers.names.append(rows.Fields(column).Name());
        answers.values.append(rows.Fields(column).Value());
    }
    return answers;
}

int Number(database::Recordset& row, const QString& column) {
    const Value value = row.Fields(column).Value();
    return value.Is_Empty() ? 0 : value.As_Integer();
}

QList<Found_Taking> Find_Takings(const QString& database, const QString& code, const QList<int>& tests) {
    database::Connection connection;
    Open(connection, database);
    database::Recordset pupil;
    Open(pupil, connection, Of_Pupil(u"Mevo_Pupils"_s, code));
    QList<Found_Taking> found;
    if (pupil.Eof()) return found;
    for (const int t : tests) {
        const foundation::Test_Tables& test = foundation::Tests_In_Order().at(t - 1);
        found.append({&test, Number(pupil, test.status), Number(pupil, test.status + u"_age"_s),
                      pupil.Fields(test.status + u"_date"_s).Value().Text_Or_Empty(),
                      Read_Answers(connection, test.data_table, code)});
    }
    return found;
}

// The same for the same taking alone. A number and a text that read alike aren't one answer.
QString Digest_Of(const Found_Taking& found) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const auto add = [&hash](const QString& text) { hash.addData(text.toUtf8() + '\n'); };
    add(QString::number(found.age));
    add(found.date);
    for (qsizetype i = 0; i < found.answers.names.size(); ++i) {
        const Value& value = found.answers.values[i];
        add(found.answers.names[i].toLower());
        add((value.Is_Empty() ? u"-"_s : value.Is_Number() ? u"n"_s : u"t"_s) + value.Text_Or_Empty());
    }
    return QString::fromLatin1(hash.result().toHex());
}

void Bind(Engine_Statement& statement, int place, const Value& value) {
    if (value.Is_Empty()) return statement.Bind_Null(place);
    if (!value.Is_Number()) return statement.Bind_Text(place, value.As_Text().toUtf8());
    const double number = value.As_Double();
    const auto whole = static_cast<qint64>(number);
    if (static_cast<double>(whole) == number) return statement.Bind(place, whole);
    statement.Bind(place, number);
}

// The columns are those that the data table has: test modules may write more than this program reads. They
// have no type, so that each value stays as it is.
void Make_Room(Side_File& file, const QString& table, const QStringList& names) {
    file.Run(u"CREATE TABLE IF NOT EXISTS %1 (%2 INTEGER PRIMARY KEY)"_s.arg(Quoted(table), Place_Of_Row));
    const QStringList there = file.Run(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table));
    for (const QString& name : names)
        if (!there.contains(name, Qt::CaseInsensitive))
            file.Run(u"ALTER TABLE %1 ADD COLUMN %2"_s.arg(Quoted(table), Quoted(name)));
}

void Store_Answers(Side_File& file, qint64 id, const QString& table, const Row_Of_Answers& answers) {
    Make_Room(file, table, answers.names);
    QString columns = Place_Of_Row;
    for (const QString& name : answers.names)
        columns += u", "_s + Quoted(name);
    Engine_Statement insert = file.Prepared(u"INSERT INTO %1 (%2) VALUES (?%3)"_s.arg(
        Quoted(table), columns, u", ?"_s.repeated(answers.names.size())));
    insert.Bind(1, id);
    for (int i = 0; i < answers.values.size(); ++i)
        Bind(insert, i + 2, answers.values[i]);
    insert.Step();
}

void Store(Side_File& file, const QString& code, const Found_Taking& found, const QDateTime& when) {
    Engine_Statement insert =
        file.Prepared(u"INSERT OR IGNORE INTO Takings (StudentCode, Test, Status, Age, Test_Date, Kept_At, "
                      "Digest) VALUES (?, ?, ?, ?, ?, ?, ?) RETURNING Id"_s);
    int place = 0;
    for (const QString& text : {code, found.tables->status})
        insert.Bind_Text(++place, text.toUtf8());
    for (const int number : {found.status, found.age})
        insert.Bind(++place, static_cast<qint64>(number));
    for (const QString& text : {found.date, when.toString(Moment_Form), Digest_Of(found)})
        insert.Bind_Text(++place, text.toUtf8());
    if (!insert.Step()) return;
    const qint64 id = insert.Whole(0);
    insert.Step();
    Store_Answers(file, id, found.tables->data_table, found.answers);
}

int Test_Of(const QString& status_column) {
    return static_cast<int>(foundation::Status_Columns().indexOf(status_column)) + 1;
}

Taking Taking_At(const Engine_Statement& row) {
    Taking taking;
    taking.id = row.Whole(0);
    taking.code = row.Text(1);
    taking.test = Test_Of(row.Text(2));
    taking.status = static_cast<int>(row.Whole(3));
    taking.age = static_cast<int>(row.Whole(4));
    taking.date = row.Text(5);
    taking.kept_at = QDateTime::fromString(row.Text(6), Moment_Form);
    return taking;
}

void Remove_Pupil(Side_File& file, const QStringList& tables, const QString& code, int& removed) {
    for (const QString& table : tables) {
        Engine_Statement rows =
            file.Prepared(u"DELETE FROM %1 WHERE %2 IN (SELECT Id FROM Takings WHERE StudentCode = ?)"_s.arg(
                Quoted(table), Place_Of_Row));
        rows.Bind_Text(1, code.toUtf8());
        rows.Step();
    }
    Engine_Statement takings = file.Prepared(u"DELETE FROM Takings WHERE StudentCode = ? RETURNING Id"_s);
    takings.Bind_Text(1, code.toUtf8());
    while (takings.Step())
        ++removed;
}

void Remove_File(const QString& file) {
    if (QFileInfo::exists(file) && !QFile::remove(file)) basics::Raise(basics::errors::Permission_Denied);
    QFile::remove(file + u"-journal"_s);
}

} // namespace

QString Companion_Of(const QString& database) {
    const bool working = QFileInfo(basics::Native_Path(database))
                             .fileName()
                             .compare(foundation::Working_File, Qt::CaseInsensitive) == 0;
    return working ? Beside(database, u"Mevo05Kept.sqlite"_s)
                   : database::Companion_Of_Archive(basics::Native_Path(database));
}

Side_Look Look_At_Companion(const QString& database) {
    return Look_At(Kept_Kind(), Companion_Of(database));
}

void Keep_Takings(const QString& database, const QString& code, const QList<int>& tests,
                  const QDateTime& when) {
    const QList<Found_Taking> found = Find_Takings(database, code, tests);
    if (found.isEmpty()) return;
    Side_File file(Kept_Kind(), Companion_Of(database), database);
    file.Change([&] {
        for (const Found_Taking& taking : found)
            Store(file, code, taking, when);
    });
}

QList<Taking> Takings_Of(const QString& database, const QString& code) {
    const QString companion = Companion_Of(database);
    if (!QFileInfo::exists(companion)) return {};
    const Side_File file(Kept_Kind(), companion);
    Engine_Statement rows = file.Prepared(
        u"SELECT Id, StudentCode, Test, Status, Age, Test_Date, Kept_At FROM Takings WHERE ?1 = '' OR "
        "StudentCode = ?1 ORDER BY StudentCode, Id"_s);
    rows.Bind_Text(1, code.toUtf8());
    QList<Taking> takings;
    while (rows.Step())
        takings.append(Taking_At(rows));
    takings.removeIf([](const Taking& taking) { return taking.test == 0; });
    std::stable_sort(takings.begin(), takings.end(), [](const Taking& left, const Taking& right) {
        return std::tie(left.code, left.test) < std::tie(right.code, right.test);
    });
    return takings;
}

Kept_Row::Kept_Row(const QString& database, const Taking& taking) {
    Open(connection, Companion_Of(database));
    const QString& table = foundation::Tests_In_Order().at(taking.test - 1).data_table;
    Open(row, connection, u"SELECT * FROM %1 WHERE %2 = %3"_s.arg(table, Place_Of_Row).arg(taking.id));
}

int Remove_Takings(const QString& companion, const QStringList& codes) {
    if (!QFileInfo::exists(companion)) return 0;
    Side_File file(Kept_Kind(), companion);
    const QStringList tables = file.Run(
        u"SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'Mevo%' COLLATE NOCASE"_s);
    int removed = 0;
    file.Change([&] {
        for (const QString& code : codes)
            Remove_Pupil(file, tables, code, removed);
    });
    if (removed > 0) file.Compact();
    return removed;
}

void Copy_Companion(const QString& from_database, const QString& to_database) {
    const QString from = Companion_Of(from_database);
    const QString to = Companion_Of(to_database);
    if (!QFileInfo::exists(from)) return Remove_File(to);
    database::Safe_Copies copies;
    copies.timeout_seconds = Longest_Wait;
    copies.Copy(from, to);
}

// One that is too damaged to be copied is moved as it is.
void Set_Companion_Aside(const QString& from_database, const QString& to_database) {
    const QString from = Companion_Of(from_database);
    if (!QFileInfo::exists(from)) return;
    if (Quietly([&] { Copy_Companion(from_database, to_database); })) return Remove_File(from);
    if (!QFile::rename(from, Companion_Of(to_database))) basics::Raise(basics::errors::Permission_Denied);
}

} // namespace keeping
