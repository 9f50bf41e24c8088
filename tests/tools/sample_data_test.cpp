#include "foundation/schema.h"
#include "sampledb/sample_data.h"
#include "support/printing.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;
using foundation::Item_Field;
using foundation::Test_Tables;

namespace {

using Row = QStringList;
const char Null_Text[] = "(null)";

// Reads as any other SQLite program would, without the help of the classes under test.
class Reader {
public:
    explicit Reader(const QString& file) {
        sqlite3* opened = nullptr;
        const int result =
            sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
        database.reset(opened);
        EXPECT_EQ(result, SQLITE_OK) << file.toStdString();
    }

    QList<Row> Rows(const QString& query) const {
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(database.get(), query.toUtf8().constData(), -1, &statement, nullptr),
                  SQLITE_OK)
            << sqlite3_errmsg(database.get()) << " in " << query.toStdString();
        QList<Row> rows;
        while (sqlite3_step(statement) == SQLITE_ROW)
            rows.append(Current_Row(statement));
        sqlite3_finalize(statement);
        return rows;
    }

    QString Cell(const QString& query) const {
        const QList<Row> rows = Rows(query);
        return rows.isEmpty() ? QString() : rows.first().first();
    }

    int Number(const QString& query) const { return Cell(query).toInt(); }

    int Run(const QString& statement) {
        return sqlite3_exec(database.get(), statement.toUtf8().constData(), nullptr, nullptr, nullptr);
    }

private:
    static Row Current_Row(sqlite3_stmt* statement) {
        Row row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
            row.append(QString::fromUtf8(text ? text : Null_Text));
        }
        return row;
    }

    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database{nullptr, sqlite3_close};
};

class SampleData : public testing::Test {
protected:
    QString Database(const sample_data::Options& options) {
        const QString file = folder.filePath(u"%1-%2.mdb"_s.arg(options.pupils).arg(options.seed));
        sample_data::Write_Database(file, options);
        return file;
    }

    QString Template(quint32 seed) {
        const QString file = folder.filePath(u"empty.mdb"_s);
        sample_data::Write_Template(file, seed);
        return file;
    }

    QTemporaryDir folder;
};

QStringList Table_Names() {
    QStringList names;
    for (const foundation::Table& table : foundation::Database_Tables())
        names.append(table.name);
    return names;
}

QList<Row> Table_Rows(const Reader& reader, const QString& table) {
    return reader.Rows(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(table));
}

const Test_Tables& Test_Named(const QString& status) {
    const QList<Test_Tables>& tests = foundation::Tests_In_Order();
    return *std::find_if(tests.begin(), tests.end(), [&](const auto& test) { return test.status == status; });
}

bool Is_Normed(const Test_Tables& test) {
    return !test.norms.isEmpty();
}

// The columns that hold one field of a test's items, in the order of the items.
QStringList Item_Columns(const Test_Tables& test, Item_Field field) {
    const auto part = std::find_if(test.parts.begin(), test.parts.end(),
                                   [&](const auto& candidate) { return candidate.field == field; });
    QStringList columns;
    for (const foundation::Item_Level& level : test.levels) {
        for (int item = 1; item <= level.items; ++item)
            columns.append(foundation::Item_Column(level, item, *part));
    }
    return columns;
}

// A sum over a test's items; %1 in the pattern stands for the column of the field.
QString Sum_Of(const Test_Tables& test, Item_Field field, const QString& pattern) {
    QStringList terms;
    for (const QString& column : Item_Columns(test, field))
        terms.append(u"coalesce("_s + pattern.arg(column) + u", 0)"_s);
    return u'(' + terms.join(u" + "_s) + u')';
}

QString Valid_Times(const Test_Tables& test) {
    return Sum_Of(test, Item_Field::Time, u"%1 BETWEEN 1 AND 999999"_s);
}

QString Right_Answers(const Test_Tables& test) {
    const QStringList requested = Item_Columns(test, Item_Field::Requested);
    const QStringList chosen = Item_Columns(test, Item_Field::Chosen);
    QStringList terms;
    for (qsizetype i = 0; i < requested.size(); ++i)
        terms.append(u"coalesce(%1 = %2 AND %1 <> '', 0)"_s.arg(requested[i], chosen[i]));
    return u'(' + terms.join(u" + "_s) + u')';
}

QString From_Pupils_And(const Test_Tables& test) {
    return u" FROM Mevo_Pupils JOIN %1 USING (StudentCode) "_s.arg(test.data_table);
}

QString Pupils_Where(const QString& condition) {
    return u"SELECT count(*) FROM Mevo_Pupils WHERE "_s + condition;
}

QString Rows_Where(const QString& status, const QString& condition) {
    return u"SELECT count(*)"_s + From_Pupils_And(Test_Named(status)) + u"WHERE "_s + condition;
}

QString Statuses_Joined(const QString& pattern, const QString& separator) {
    QStringList terms;
    for (const QString& status : foundation::Status_Columns())
        terms.append(pattern.arg(status));
    return terms.join(separator);
}

struct State {
    QString name;
    QString count; // a query for the number of pupils in it
};

// Both tests finished; the marks of items that weren't reached stand in one, the other, or both.
QString Stopped(const QString& tolvens, const QString& friends) {
    return u"SELECT count(*) FROM Mevo_Pupils JOIN Mevo_Tolvens_data USING (StudentCode) "
           u"JOIN Mevo_Friends_data USING (StudentCode) WHERE Tolvens = 1 AND BliksFriends = 1 "
           u"AND Level_33_holes_req %1 '-1' AND Lev54req %2 '-1'"_s.arg(tolvens, friends);
}

QList<State> Test_States() {
    const Test_Tables& pindo = Test_Named(u"Pindo"_s);
    const QString tries = u"Pindo = 1 AND "_s + Valid_Times(pindo);
    const Test_Tables& karrel = Test_Named(u"Karrel"_s);
    const QString all_done = Statuses_Joined(u"%1 = 1"_s, u" AND "_s);
    const QString sum = Statuses_Joined(u"%1"_s, u" + "_s);
    return {
        {u"nothing done"_s, Pupils_Where(sum + u" = 0"_s)},
        {u"only Pindo done"_s, Pupils_Where(sum + u" = 1 AND Pindo = 1"_s)},
        {u"all done below 84 months"_s, Pupils_Where(all_done + u" AND Tolvens_age < 84"_s)},
        {u"all done from 84 months on"_s, Pupils_Where(all_done + u" AND Tolvens_age >= 84"_s)},
        {u"some done"_s, Pupils_Where(sum + u" BETWEEN 2 AND 7"_s)},
        {u"opened again, answers kept"_s,
         Rows_Where(u"Karrel"_s, u"Karrel = 0 AND Karrel_age > 0 AND "_s + Valid_Times(karrel) + u" > 0"_s)},
        {u"a status of 2"_s, Pupils_Where(Statuses_Joined(u"%1 = 2"_s, u" OR "_s))},
        {u"a NULL status"_s, Pupils_Where(u"(%1) IS NULL"_s.arg(sum))},
        {u"Tolvens stopped alone"_s, Stopped(u"="_s, u"<>"_s)},
        {u"Friends stopped alone"_s, Stopped(u"<>"_s, u"="_s)},
        {u"both stopped"_s, Stopped(u"="_s, u"="_s)},
        {u"an item left without an answer"_s,
         Rows_Where(u"Tolvens"_s, u"Tolvens = 1 AND Level_31_holes_req LIKE '%,%' "
                                  u"AND Level_31_holes_chosen = '-2'"_s)},
        {u"tests on both sides of a birthday"_s,
         Pupils_Where(u"Tolvens = 1 AND Drell = 1 AND Tolvens_age / 12 < Drell_age / 12"_s)},
        {u"tests on both sides of 84 months"_s,
         Pupils_Where(u"Tolvens = 1 AND Drell = 1 AND Tolvens_age < 84 AND Drell_age >= 84"_s)},
        {u"six tries"_s, Rows_Where(u"Pindo"_s, tries + u" = 6"_s)},
        {u"eight tries"_s, Rows_Where(u"Pindo"_s, tries + u" = 8"_s)},
        {u"five tries"_s, Rows_Where(u"Pindo"_s, tries + u" = 5"_s)},
        {u"a raw score without a centile"_s,
         u"SELECT count(*)"_s + From_Pupils_And(karrel) +
             u"JOIN Karrel_Norms ON \"Raw Score\" = %1 "_s.arg(Right_Answers(karrel)) +
             u"WHERE Karrel = 1 AND Karrel_age < 60 AND \"Age 4 Centile\" IS NULL"_s},
    };
}

QList<State> Record_States() {
    return {
        {u"a comment longer than a report's foot"_s, Pupils_Where(u"length(Comment) > 2000"_s)},
        {u"a comment with quotes"_s, Pupils_Where(u"Comment LIKE '%\"%' AND Comment LIKE '%''%'"_s)},
        {u"a comment with line breaks"_s, Pupils_Where(u"instr(Comment, char(13, 10)) > 0"_s)},
        {u"a comment with accents"_s, Pupils_Where(u"Comment LIKE '%ç%'"_s)},
        {u"no comment"_s, Pupils_Where(u"Comment IS NULL"_s)},
        {u"a NULL password"_s, Pupils_Where(u"Password IS NULL AND Dob_as_pw = 1"_s)},
        {u"an own password"_s, Pupils_Where(u"length(Password) > 0 AND Dob_as_pw = 0"_s)},
        {u"off the login list"_s, Pupils_Where(u"Show_Name = 0"_s)},
        {u"a group with an apostrophe"_s, Pupils_Where(u"Group_Class LIKE '%''%'"_s)},
        {u"the default group"_s, Pupils_Where(u"Group_Class = 'Universal'"_s)},
        {u"a birthday with a short year"_s, Pupils_Where(u"DOB LIKE '__/__/__'"_s)},
        {u"an ISO birthday"_s, Pupils_Where(u"DOB LIKE '____-__-__'"_s)},
        {u"an apostrophe in a surname"_s, Pupils_Where(u"Surname LIKE '%''%'"_s)},
        {u"a hyphen in a surname"_s, Pupils_Where(u"Surname LIKE '%-%'"_s)},
        {u"a name of two letters"_s, Pupils_Where(u"length(Surname) = 2"_s)},
    };
}

QDate Date_From(const QString& text) {
    if (text.contains(u'-')) return QDate::fromString(text, Qt::ISODate);
    QStringList parts = text.split(u'/');
    const int year = parts[2].toInt();
    return QDate(year < 100 ? 2000 + year : year, parts[1].toInt(), parts[0].toInt());
}

// Unlike QDate's own sum, a month too short for the day runs over into the next.
QDate Months_After(QDate date, int months) {
    const QDate first_of_month(date.year(), date.month(), 1);
    return first_of_month.addMonths(months).addDays(date.day() - 1);
}

QString Name_Group_Pattern(const QString& name) {
    const QString start = name.left(3).toUpper().replace(u'\'', u'O');
    return QRegularExpression::escape(start) + u"[A-Z]"_s.repeated(3 - start.size());
}

// Rows are numbered from 0, and each cell compares with the one above it and with the one before it.
template<class Down, class Right>
void Expect_Ordered(const QList<Row>& rows, int first, int last, Down down, Right right) {
    for (qsizetype row = 0; row < rows.size(); ++row) {
        EXPECT_EQ(rows[row][0].toInt(), row);
        for (int column = first; column <= last; ++column) {
            const int cell = rows[row][column].toInt();
            EXPECT_GT(cell, 0);
            EXPECT_TRUE(row == 0 || down(cell, rows[row - 1][column].toInt())) << row << ", " << column;
            EXPECT_TRUE(column == first || right(cell, rows[row][column - 1].toInt()))
                << row << ", " << column;
        }
    }
}

} // namespace

TEST_F(SampleData, SameSeedGivesTheSameRows) {
    const Reader first(Database({.pupils = 40, .seed = 7}));
    QDir(folder.path()).rename(u"40-7.mdb"_s, u"first.mdb"_s);
    const Reader second(Database({.pupils = 40, .seed = 7}));
    const Reader other(Database({.pupils = 40, .seed = 8}));
    for (const QString& table : Table_Names()) {
        SCOPED_TRACE(table.toStdString());
        EXPECT_EQ(Table_Rows(first, table), Table_Rows(second, table));
    }
    EXPECT_NE(Table_Rows(first, u"Mevo_Pupils"_s), Table_Rows(other, u"Mevo_Pupils"_s));
    EXPECT_NE(Table_Rows(first, u"Yoon_Norms"_s), Table_Rows(other, u"Yoon_Norms"_s));
}

TEST_F(SampleData, TemplateHoldsTheNormsAndNoPupil) {
    const Reader empty(Template(7));
    const Reader working(Database({.pupils = 12, .seed = 7}));
    for (const QString& table : Table_Names()) {
        SCOPED_TRACE(table.toStdString());
        if (table == u"Mevo_Groups"_s) continue;
        const bool is_a_pupils = table.endsWith(u"_data"_s) || table == u"Mevo_Pupils"_s;
        EXPECT_EQ(Table_Rows(empty, table).isEmpty(), is_a_pupils);
        EXPECT_EQ(Table_Rows(empty, table) == Table_Rows(working, table), !is_a_pupils);
    }
    EXPECT_EQ(Table_Rows(empty, u"Mevo_Groups"_s),
              (QList<Row>{{u"1"_s, u"Universal"_s, u"0"_s, u"1"_s, u""_s}}));
}

TEST_F(SampleData, EveryStateIsPresentInSmallFiles) {
    for (const sample_data::Options& options :
         {sample_data::Options{12, 1}, {12, 2}, {12, 77}, {40, 1}, {40, 4000000000}}) {
        const Reader reader(Database(options));
        EXPECT_EQ(reader.Number(u"SELECT count(*) FROM Mevo_Pupils"_s), options.pupils);
        for (const State& state : Test_States() + Record_States()) {
            EXPECT_GT(reader.Number(state.count), 0)
                << state.name.toStdString() << ", pupils " << options.pupils << ", seed " << options.seed;
        }
    }
}

// A pupil's mean time is divided by the count of valid times, and comma lists are taken apart: either
// fails on a finished row that doesn't hold what it must.
TEST_F(SampleData, AnswersFitWhatWasDone) {
    const Reader reader(Database({.pupils = 300, .seed = 5}));
    const auto never_where = [&reader](const QString& status, const QString& fault, const QString& rows) {
        SCOPED_TRACE((status + u", "_s + rows).toStdString());
        EXPECT_GT(reader.Number(Rows_Where(status, rows)), 10);
        EXPECT_EQ(reader.Number(Rows_Where(status, rows + u" AND "_s + fault)), 0);
    };
    const auto is_missing = [](const QStringList& columns) {
        return u'(' + columns.join(u" IS NULL OR "_s) + u" IS NULL)"_s;
    };
    for (const Test_Tables& test : foundation::Tests_In_Order()) {
        EXPECT_EQ(reader.Number(Rows_Where(test.status, u"1"_s)), 300) << "each pupil has a row";
        QStringList answered;
        for (const Item_Field field : {Item_Field::Requested, Item_Field::Chosen, Item_Field::Time})
            answered.append(Sum_Of(test, field, u"%1 IS NOT NULL"_s) + u" > 0"_s);
        never_where(test.status, u'(' + answered.join(u" OR "_s) + u')',
                    u"%1_age = 0 AND %1_date IS NULL"_s.arg(test.status));
        if (Is_Normed(test)) never_where(test.status, Valid_Times(test) + u" = 0"_s, test.status + u" = 1"_s);
    }
    for (const QString& status : {u"Tolvens"_s, u"BliksFriends"_s})
        for (const Item_Field field : {Item_Field::Requested, Item_Field::Chosen})
            never_where(status, is_missing(Item_Columns(Test_Named(status), field)), status + u" = 1"_s);
    const QStringList targets = Item_Columns(Test_Named(u"Mirvel"_s), Item_Field::Requested);
    never_where(u"Mirvel"_s, is_missing(targets.mid(0, 8)), u"Mirvel = 1 AND Mirvel_age < 84"_s);
    never_where(u"Mirvel"_s, is_missing(targets.mid(4, 12)), u"Mirvel = 1 AND Mirvel_age >= 84"_s);
}

TEST_F(SampleData, YoonOffersItsTarget) {
    const Reader reader(Database({.pupils = 100, .seed = 6}));
    const Test_Tables& yoon = Test_Named(u"Yoon"_s);
    const QStringList targets = Item_Columns(yoon, Item_Field::Requested);
    const QStringList choices = Item_Columns(yoon, Item_Field::Choices);
    for (const Row& row : reader.Rows(u"SELECT %1, %2 FROM Mevo_Yoon_data WHERE Shown_25 <> ''"_s.arg(
             targets.join(u','), choices.join(u',')))) {
        for (qsizetype i = 0; i < targets.size(); ++i) {
            const QStringList words = row[targets.size() + i].split(u',');
            EXPECT_EQ(words.size(), 2);
            EXPECT_EQ(words.count(row[i]), 1) << row[targets.size() + i].toStdString();
        }
    }
}

TEST_F(SampleData, NormsReachTheGreatestScoreAndAreInOrder) {
    const Reader reader(Database({.pupils = 200, .seed = 9}));
    int tables_with_gaps = 0;
    for (const Test_Tables& test : foundation::Tests_In_Order()) {
        if (!Is_Normed(test)) continue;
        SCOPED_TRACE(test.norms.toStdString());
        const QList<Row> raw = Table_Rows(reader, test.norms);
        Expect_Ordered(raw, 2, 5, std::greater_equal{}, std::less_equal{});
        EXPECT_LE(raw.last()[2].toInt(), 99);
        EXPECT_LT(raw.first()[3].toInt() + 60, raw.last()[3].toInt()) << "hardly any spread at age 6";
        // Every element of every list right: one more than the commas of a list that holds anything.
        const QString elements =
            Sum_Of(test, Item_Field::Requested, u"(%1 <> '') + length(%1) - length(replace(%1, ',', ''))"_s);
        EXPECT_EQ(raw.last()[0], reader.Cell(u"SELECT max(%1) FROM %2"_s.arg(elements, test.data_table)));
        const auto has_gap = [](const Row& row) { return row[1] == QLatin1StringView(Null_Text); };
        EXPECT_TRUE(std::is_partitioned(raw.begin(), raw.end(), has_gap)) << "gaps in the lowest rows only";
        tables_with_gaps += has_gap(raw.first());

        const QList<Row> times = reader.Rows(u"SELECT * FROM %1 ORDER BY Centile"_s.arg(test.time_norms));
        ASSERT_EQ(times.size(), 100);
        Expect_Ordered(times, 1, 5, std::less{}, std::less{});
    }
    EXPECT_EQ(tables_with_gaps, 2);
}

TEST_F(SampleData, MeansAreThereForEachTestAndBand) {
    const Reader reader(Template(1));
    const QStringList modules = {
        u"Tolvens"_s, u"Bliks friends"_s, u"Karrel"_s, u"Bliks letters"_s, u"Bliks letter names"_s,
        u"Drell"_s,   u"Mirvel"_s,        u"Yoon"_s};
    for (const QString& module : modules) {
        for (const QChar band : u"ABCDE"_s) {
            const QString key = module + u" band "_s + band;
            EXPECT_EQ(
                reader.Number(u"SELECT count(*) FROM Mevo_Means WHERE Module = '%1' COLLATE BINARY "
                              u"AND Time_Mean BETWEEN 1000 AND 10000 AND Time_SD BETWEEN 100 AND Time_Mean "
                              u"AND Correct_Mean > Correct_SD AND Correct_SD > 0"_s.arg(key)),
                1)
                << key.toStdString();
        }
    }
}

TEST_F(SampleData, ProductRowStandsAmongOthers) {
    const Reader reader(Template(1));
    EXPECT_GT(reader.Number(u"SELECT count(*) FROM Customer_Details WHERE Product_Name <> 'MEVO'"_s), 0);
    EXPECT_EQ(reader.Rows(u"SELECT Product_Version, Admin_Password FROM Customer_Details "
                          u"WHERE Product_Name = 'MEVO'"_s),
              (QList<Row>{{u"5.11"_s, u"admin"_s}}));
}

TEST_F(SampleData, CodesAreMadeFromTheNames) {
    const Reader reader(Database({.pupils = 400, .seed = 2}));
    for (const Row& row : reader.Rows(u"SELECT StudentCode, Surname, Forename FROM Mevo_Pupils"_s)) {
        const QRegularExpression pattern(u'^' + Name_Group_Pattern(row[1]) + Name_Group_Pattern(row[2]) +
                                         u"[0-8]{3}[A-Z]{3}$"_s);
        EXPECT_TRUE(pattern.match(row[0]).hasMatch()) << row.join(u' ').toStdString();
    }
}

TEST_F(SampleData, AgesAreCompletedMonthsAtTheTest) {
    const Reader reader(Database({.pupils = 300, .seed = 2}));
    int tests_taken = 0;
    for (const QString& status : foundation::Status_Columns()) {
        for (const Row& row : reader.Rows(
                 u"SELECT DOB, %1_date, %1_age FROM Mevo_Pupils WHERE %1_date IS NOT NULL"_s.arg(status))) {
            const QDate birthday = Date_From(row[0]);
            const QDate day = Date_From(row[1]);
            const int months = row[2].toInt();
            ++tests_taken;
            EXPECT_TRUE(months >= 48 && months <= 107) << months;
            EXPECT_TRUE(day >= QDate(2025, 9, 1) && day <= QDate(2026, 7, 31)) << row[1].toStdString();
            EXPECT_LE(birthday.addMonths(months), day) << row.join(u' ').toStdString();
            EXPECT_GT(Months_After(birthday, months + 1), day) << row.join(u' ').toStdString();
        }
    }
    EXPECT_GT(tests_taken, 1000);
}

TEST_F(SampleData, AnySqliteToolCanUseTheFile) {
    const Reader reader(Database({.pupils = 40, .seed = 1}));
    EXPECT_EQ(reader.Cell(u"PRAGMA integrity_check"_s), u"ok"_s);
    EXPECT_EQ(reader.Cell(u"PRAGMA journal_mode"_s), u"delete"_s);
    int keys = 0;
    for (const Row& index : reader.Rows(u"SELECT name, tbl_name FROM sqlite_master WHERE type = 'index'"_s)) {
        for (const Row& column :
             reader.Rows(u"SELECT coll FROM pragma_index_xinfo('%1') WHERE key = 1"_s.arg(index[0])))
            EXPECT_EQ(column[0], u"BINARY"_s) << index[1].toStdString();
        ++keys;
    }
    EXPECT_EQ(keys, 10);
}

TEST_F(SampleData, LimitedTextsRefuseFiftyOneCharacters) {
    Reader reader(Database({.pupils = 12, .seed = 1}));
    const std::pair<QString, QString> columns[] = {{u"Mevo_Groups"_s, u"Group_Name"_s},
                                                   {u"Mevo_Groups"_s, u"XtraField"_s},
                                                   {u"Mevo_Pupils"_s, u"Group_Class"_s},
                                                   {u"Mevo_Pupils"_s, u"Password"_s}};
    for (const auto& [table, column] : columns) {
        const QString update = u"UPDATE %1 SET %2 = '%3'"_s;
        EXPECT_EQ(reader.Run(update.arg(table, column, u"é"_s.repeated(50))), SQLITE_OK)
            << column.toStdString();
        EXPECT_EQ(reader.Run(update.arg(table, column, u"é"_s.repeated(51))), SQLITE_CONSTRAINT)
            << column.toStdString();
    }
}

TEST_F(SampleData, ReplacesAnOlderFileAndLeavesNothingBeside) {
    const QString name = u"Mevo05Data.mdb"_s;
    QFile older(folder.filePath(name));
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write(QByteArray(1 << 20, 'x'));
    older.close();
    sample_data::Write_Database(folder.filePath(name), {.pupils = 12, .seed = 1});
    EXPECT_EQ(Reader(folder.filePath(name)).Cell(u"PRAGMA integrity_check"_s), u"ok"_s);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
}

TEST_F(SampleData, SaysInOneLineWhichFileItCantWrite) {
    try {
        sample_data::Write_Template(folder.filePath(u"missing/empty.mdb"_s), 1);
        FAIL() << "a file in a folder that doesn't exist";
    } catch (const std::runtime_error& error) {
        const QString text = QString::fromUtf8(error.what());
        EXPECT_TRUE(text.contains(u"empty.mdb"_s)) << error.what();
        EXPECT_FALSE(text.contains(u'\n')) << error.what();
    }
}
