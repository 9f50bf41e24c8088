#include "testplayer/test_player.h"

#include "foundation/schema.h"
#include "platform/basics/dates.h"
#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/busy_waiting.h"
#include "platform/database/database_file.h"
#include "platform/database/engine_handle.h"
#include "platform/database/hardening.h"
#include "sampledb/memory_database.h"
#include "sampledb/sample_answers.h"
#include "sampledb/sample_pupils.h"

#include <QCryptographicHash>
#include <QDir>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace test_player {

using database::Quoted;

namespace {

constexpr int Longest_Wait_Seconds = 15;

// The database, open for one sitting. What isn't committed when it closes is taken back.
class Open_File {
public:
    explicit Open_File(const QString& file)
        : engine(file, database::Access::Read_Write, [file](sqlite3* failed, int) {
              throw Play_Fault(QDir::toNativeSeparators(file) + u": "_s +
                               QString::fromUtf8(sqlite3_errmsg(failed)));
          }) {
        waiting.Install(engine.Get(), Longest_Wait_Seconds);
        database::Harden(engine.Get());
        Run(u"PRAGMA synchronous = FULL"_s);
    }

    // Runs a statement with values for its place holders; gives the first column as text.
    QStringList Run(const QString& sql, const QVariantList& values = {}) {
        database::Engine_Statement statement(engine, sql);
        for (int i = 0; i < values.size(); ++i)
            sample_data::Bind(statement, i + 1, values[i]);
        QStringList column;
        while (statement.Step())
            column.append(statement.Text(0));
        return column;
    }
    bool Changed_A_Row() const { return engine.Changed_Rows() > 0; }

private:
    database::Busy_Waiting waiting; // outlives the engine
    database::Engine_Handle engine;
};

QString Assigned(const QStringList& columns) {
    QStringList assignments;
    for (const QString& column : columns)
        assignments.append(Quoted(column) + u" = ?"_s);
    return assignments.join(u", "_s);
}

// A pupil whose row of answers went missing gets a new one.
void Store_Row(Open_File& file, int test, const QString& code, const QVariantList& answers) {
    const QString table = Quoted(foundation::Tests_In_Order()[test].data_table);
    const QStringList columns = Answer_Columns(test);
    const QVariantList values = answers + QVariantList{code};
    file.Run(u"UPDATE %1 SET %2 WHERE StudentCode = ?"_s.arg(table, Assigned(columns)), values);
    if (file.Changed_A_Row()) return;
    file.Run(u"INSERT INTO %1 (\"%2\", StudentCode) VALUES (?%3)"_s.arg(table, columns.join(u"\", \""_s),
                                                                        u", ?"_s.repeated(columns.size())),
             values);
}

void Store_Outcome(Open_File& file, int test, const QString& code, int months, const QDate& day) {
    const QString status = foundation::Tests_In_Order()[test].status;
    const QStringList columns{status, status + u"_age"_s, status + u"_date"_s};
    file.Run(u"UPDATE Mevo_Pupils SET %1 WHERE StudentCode = ?"_s.arg(Assigned(columns)),
             {1, months, basics::Date_Text(day.startOfDay()), code});
}

} // namespace

QStringList Answer_Columns(int test) {
    const QString& wanted = foundation::Tests_In_Order()[test].data_table;
    QStringList names;
    for (const foundation::Table& table : foundation::Database_Tables()) {
        if (table.name != wanted) continue;
        for (const foundation::Column& column : table.columns)
            if (column.kind != foundation::Column_Kind::Key) names.append(column.name);
    }
    return names;
}

QString Digest_Of(const QVariantList& answers) {
    constexpr qsizetype digits = 16;
    QStringList cells;
    for (const QVariant& answer : answers)
        cells.append(answer.isValid() ? u'=' + answer.toString() : QString());
    const QByteArray bytes = cells.join(u'\n').toUtf8();
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    return QString::fromLatin1(hash.left(digits));
}

static QStringList All_Codes(const QString& file) {
    return Open_File(file).Run(u"SELECT StudentCode FROM Mevo_Pupils ORDER BY StudentCode"_s);
}

Test_Player::Test_Player(const QString& database, const QStringList& wanted, quint32 seed)
    : file(basics::Native_Path(database)), everybody(wanted.isEmpty()), codes(wanted), random(seed) {
    try {
        database::Refuse_What_Is_No_Database(file);
    } catch (const basics::Run_Time_Error& error) {
        throw Play_Fault(error.Description);
    }
    const QStringList known = All_Codes(file);
    for (const QString& code : wanted)
        if (!known.contains(code)) throw Play_Fault(u"No pupil has the code "_s + code);
    if (known.isEmpty()) throw Play_Fault(u"No pupil is registered in "_s + QDir::toNativeSeparators(file));
    if (everybody) codes = known;
}

void Test_Player::Begin_Next_Test() {
    next_pupil = 0;
    test = (test + 1) % static_cast<int>(foundation::Tests_In_Order().size());
    if (everybody) codes = All_Codes(file);
}

std::optional<Stored_Answers> Test_Player::Sit_Next() {
    for (qsizetype tried = 0; tried <= codes.size(); ++tried) {
        if (next_pupil == codes.size()) Begin_Next_Test();
        if (codes.isEmpty()) break;
        if (auto stored = Sit(codes[next_pupil++])) return stored;
    }
    return std::nullopt;
}

std::optional<Stored_Answers> Test_Player::Sit(const QString& code) {
    Open_File database(file);
    database.Run(u"BEGIN IMMEDIATE"_s);
    const QStringList birth = database.Run(u"SELECT DOB FROM Mevo_Pupils WHERE StudentCode = ?"_s, {code});
    if (birth.isEmpty()) return std::nullopt;

    const QDateTime now = QDateTime::currentDateTime();
    sample_data::Sitting sitting;
    sitting.test = test;
    sitting.months =
        sample_data::Completed_Months(basics::Stored_Date(birth.first()).value_or(now.addYears(-6)).date(),
                                      now.date()); // 6: any age will do
    sitting.ability = random.Normal();
    sitting.speed = random.Normal();
    const QVariantList answers = sample_data::Answers(sitting, random);
    Store_Row(database, test, code, answers);
    Store_Outcome(database, test, code, sitting.months, now.date());
    database.Run(u"COMMIT"_s);
    return Stored_Answers{code, test, now, Digest_Of(answers)};
}

} // namespace test_player
