#include "support/written_answers.h"

#include "foundation/schema.h"
#include "platform/basics/dates.h"
#include "support/database_beside.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace test_support {

using test_player::Stored_Answers;

static QVariantList Answers_In(const QStringList& row) {
    QVariantList answers;
    for (const QString& text : row.mid(1))
        answers.append(text.isNull() ? QVariant() : QVariant(text));
    return answers;
}

void PrintTo(const Answer_Cell& cell, std::ostream* out) {
    *out << cell.digest.toStdString() << " status " << cell.status.toStdString() << " on "
         << cell.date.toStdString();
}

Answers_In_A_File Read_Answers(const QString& file) {
    const Database_Beside database(file);
    database.Run({u"BEGIN"_s}); // all tables as they are at one moment
    Answers_In_A_File found;
    const auto& tests = foundation::Tests_In_Order();
    for (int test = 0; test < tests.size(); ++test) {
        const QString& status = tests[test].status;
        for (const QStringList& row :
             database.Rows(u"SELECT StudentCode, %1, %1_date FROM Mevo_Pupils"_s.arg(status)))
            found[{row[0], test}] = {{}, row[1], row[2]};
        const QStringList columns = QStringList{u"StudentCode"_s} + test_player::Answer_Columns(test);
        for (const QStringList& row : database.Rows(
                 u"SELECT \"%1\" FROM %2"_s.arg(columns.join(u"\", \""_s), tests[test].data_table))) {
            const auto cell = found.find({row[0], test});
            if (cell != found.end()) cell->digest = test_player::Digest_Of(Answers_In(row));
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
