#include "support/written_answers.h"

#include "foundation/schema.h"
#include "platform/basics/dates.h"

#include <algorithm>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {

using test_player::Stored_Answers;

namespace {

struct Closer {
    void operator()(sqlite3* engine) const { sqlite3_close(engine); }
};

} // namespace

static QList<QVariantList> Rows_Of(sqlite3* engine, const QStringList& columns, const QString& table) {
    const QString sql = u"SELECT \"%1\" FROM %2"_s.arg(columns.join(u"\", \""_s), table);
    sqlite3_stmt* statement = nullptr;
    int step = sqlite3_prepare_v2(engine, sql.toUtf8().constData(), -1, &statement, nullptr);
    QList<QVariantList> rows;
    while (step == SQLITE_OK || step == SQLITE_ROW) {
        step = sqlite3_step(statement);
        if (step != SQLITE_ROW) break;
        QVariantList row;
        for (int column = 0; column < columns.size(); ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            row.append(text ? QVariant(QString::fromUtf8(text)) : QVariant());
        }
        rows.append(row);
    }
    const std::string message = sqlite3_errmsg(engine);
    sqlite3_finalize(statement);
    if (step != SQLITE_DONE) throw std::runtime_error(sql.left(60).toStdString() + ": " + message);
    return rows;
}

void PrintTo(const Answer_Cell& cell, std::ostream* out) {
    *out << cell.digest.toStdString() << " status " << cell.status.toStdString() << " on "
         << cell.date.toStdString();
}

Answers_In_A_File Read_Answers(const QString& file) {
    constexpr int longest_wait_ms = 15'000;
    sqlite3* opened = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Closer> engine(opened);
    sqlite3_busy_timeout(opened, longest_wait_ms);
    sqlite3_exec(opened, "BEGIN", nullptr, nullptr, nullptr); // all tables as they are at one moment
    Answers_In_A_File found;
    const auto& tests = foundation::Tests_In_Order();
    for (int test = 0; test < tests.size(); ++test) {
        const QString& status = tests[test].status;
        for (const QVariantList& row :
             Rows_Of(opened, {u"StudentCode"_s, status, status + u"_date"_s}, u"Mevo_Pupils"_s))
            found[{row[0].toString(), test}] = {{}, row[1].toString(), row[2].toString()};
        const QStringList columns = QStringList{u"StudentCode"_s} + test_player::Answer_Columns(test);
        for (const QVariantList& row : Rows_Of(opened, columns, tests[test].data_table)) {
            const auto cell = found.find({row[0].toString(), test});
            if (cell != found.end()) cell->digest = test_player::Digest_Of(row.mid(1));
        }
    }
    return found;
}

Answer_Cell Cell_Of(const Stored_Answers& stored) {
    return {stored.digest, u"1"_s, basics::Date_Text(stored.when.date().startOfDay())};
}

static Answers_In_A_File Last_Of_Each(const QList<Stored_Answers>& log) {
    Answers_In_A_File last;
    for (const Stored_Answers& stored : log)
        last[{stored.code, stored.test}] = Cell_Of(stored);
    return last;
}

static bool Explains(const Answers_In_A_File& file, const QList<Stored_Answers>& log, qsizetype rows,
                     const Answers_In_A_File& before) {
    const Answers_In_A_File written = Last_Of_Each(log.first(rows));
    return std::ranges::all_of(log, [&](const Stored_Answers& stored) {
        const std::pair<QString, int> place(stored.code, stored.test);
        const auto cell = file.constFind(place);
        return cell == file.cend() || *cell == written.value(place, before.value(place));
    });
}

qsizetype Rows_In(const Answers_In_A_File& file, const QList<Stored_Answers>& log, qsizetype least,
                  qsizetype most, const Answers_In_A_File& before) {
    for (qsizetype rows = least; rows <= std::min(most, log.size()); ++rows)
        if (Explains(file, log, rows, before)) return rows;
    return -1;
}

QStringList Missing_In(const Answers_In_A_File& file, const QList<Stored_Answers>& log) {
    QStringList missing;
    const Answers_In_A_File last = Last_Of_Each(log);
    for (auto stored = last.cbegin(); stored != last.cend(); ++stored) {
        const auto cell = file.constFind(stored.key());
        if (cell != file.cend() && *cell != *stored)
            missing.append(stored.key().first + u' ' + QString::number(stored.key().second));
    }
    return missing;
}

} // namespace test_support
