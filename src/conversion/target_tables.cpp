#include "conversion/target_tables.h"

#include "conversion/engine.h"
#include "foundation/schema.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace conversion {

using foundation::Column_Kind;
using jet_stream::Column_Type;

namespace {

constexpr quint32 Short_Text = 50; // the limit that the program's short texts have

template<class Named>
const Named* Find(const QList<Named>& list, const QString& name) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const Named& candidate) {
        return candidate.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == list.end() ? nullptr : &*found;
}

const QList<foundation::Table>& Known_Tables() {
    static const QList<foundation::Table> tables = foundation::Database_Tables();
    return tables;
}

const foundation::Column* Known_Column(const foundation::Table* table, const QString& name) {
    return table ? Find(table->columns, name) : nullptr;
}

Column_Kind Kind_Of(const Source_Column& column, const foundation::Column* known) {
    if (known) {
        // The file's own limit may be wider than the program's, and its texts longer.
        const bool fits = column.type == Column_Type::Text && column.size > 0 && column.size <= Short_Text;
        const bool is_limited = known->kind == Column_Kind::Text_50;
        return is_limited && !fits ? Column_Kind::Text : known->kind;
    }
    switch (column.type) {
    case Column_Type::Number:
        return Column_Kind::Number;
    case Column_Type::Date:
        return Column_Kind::Date;
    default:
        return Column_Kind::Text;
    }
}

QString Plain_Type(const QString& declaration) {
    return declaration.section(u' ', 0, 0); // without collation, key and limit
}

QString Declaration(const Source_Column& column, const foundation::Column* known, bool in_key) {
    if (!known && column.type == Column_Type::Bytes) return u"BLOB"_s;
    Column_Kind kind = Kind_Of(column, known);
    if (kind == Column_Kind::Key) kind = Column_Kind::Text;
    const QString declared = foundation::Declared_Type({column.name, kind});
    // What is indexed keeps the engine's plain order, which every program has.
    return in_key ? Plain_Type(declared) : declared;
}

QStringList Key_Of(const Source_Table& source, const foundation::Table* known) {
    if (!source.key.isEmpty()) return source.key;
    for (const Source_Column& column : source.columns) {
        const foundation::Column* found = Known_Column(known, column.name);
        if (found && found->kind == Column_Kind::Key) return {column.name};
    }
    return {};
}

bool Holds_Centiles_By_Raw_Score(const QString& table) {
    const QList<foundation::Test_Tables>& tests = foundation::Tests_In_Order();
    return std::any_of(tests.begin(), tests.end(), [&](const foundation::Test_Tables& test) {
        return !test.norms.isEmpty() && table.compare(test.norms, Qt::CaseInsensitive) == 0;
    });
}

Target_Table Target_With(const Source_Table& source, const QStringList& key) {
    const foundation::Table* known = Find(Known_Tables(), source.name);
    Target_Table target{source.name, {}, {}, key, {}};
    for (const Source_Column& column : source.columns) {
        target.columns.append(column.name);
        target.declarations.append(
            Declaration(column, Known_Column(known, column.name), key.contains(column.name)));
    }
    // A raw score is told by its row's place, and a file gives rows in the order in which they were stored.
    if (Holds_Centiles_By_Raw_Score(source.name)) {
        const Source_Column* first = Find(source.columns, known->columns.first().name);
        if (first) target.order_by = first->name;
    }
    return target;
}

} // namespace

Target_Table Target_Of(const Source_Table& source) {
    return Target_With(source, Key_Of(source, Find(Known_Tables(), source.name)));
}

Target_Table Without_Key(const Source_Table& source) {
    return Target_With(source, {});
}

QString Create_Statement(const Target_Table& table) {
    QStringList parts;
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        const bool is_key = table.key == QStringList{table.columns[i]};
        parts.append(Quoted(table.columns[i]) + u' ' + table.declarations[i] +
                     (is_key ? u" PRIMARY KEY"_s : QString()));
    }
    if (table.key.size() > 1) {
        QStringList names;
        for (const QString& name : table.key)
            names.append(Quoted(name));
        parts.append(u"PRIMARY KEY ("_s + names.join(u", "_s) + u')');
    }
    return u"CREATE TABLE "_s + Quoted(table.name) + u" ("_s + parts.join(u", "_s) + u')';
}

std::optional<QDateTime> Date_Of(double days) {
    constexpr double earliest = -657'434; // 1 January 100
    constexpr double latest = 2'958'466;  // 31 December 9999 is the last day
    constexpr qint64 seconds_a_day = 24 * 60 * 60;
    if (!(days >= earliest) || !(days < latest)) return std::nullopt;
    // The fraction is the time of day, also before the first day.
    const double whole = std::trunc(days);
    const auto seconds = static_cast<qint64>(std::llround(std::fabs(days - whole) * double(seconds_a_day)));
    const QDateTime day(QDate(1899, 12, 30).addDays(static_cast<qint64>(whole)), QTime(0, 0), Qt::UTC);
    return day.addSecs(seconds);
}

} // namespace conversion
