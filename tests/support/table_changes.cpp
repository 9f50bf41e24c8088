#include "support/table_changes.h"

#include "support/database_beside.h"

using namespace Qt::StringLiterals;

namespace test_support {

static void Read_Table(const Database_Beside& database, const QString& table, Table_Rows& all) {
    const QStringList columns = database.Column(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table));
    QStringList cells{columns.contains(u"StudentCode"_s) ? u"StudentCode"_s : u"rowid"_s};
    for (const QString& column : columns)
        cells.append(u"quote(\"%1\")"_s.arg(column));
    for (const QStringList& row : database.Rows(u"SELECT %1 FROM %2"_s.arg(cells.join(u", "_s), table)))
        for (qsizetype i = 0; i < columns.size(); ++i)
            all[table + u' ' + row[0]][columns[i]] = row[i + 1];
}

Table_Rows Read_Tables(const Sample_File& sample) {
    const Database_Beside database(sample.Path());
    Table_Rows all;
    for (const QString& table : database.Column(u"SELECT name FROM sqlite_master WHERE type = 'table'"_s))
        Read_Table(database, table, all);
    return all;
}

static QString Told_Row(const QString& key, const QMap<QString, QString>& row) {
    QString told = key + u": new"_s;
    for (auto cell = row.cbegin(); cell != row.cend(); ++cell)
        if (*cell != "NULL"_L1) told += u", "_s + cell.key() + u' ' + *cell;
    return told;
}

QStringList Changes(const Table_Rows& before, const Table_Rows& after) {
    QStringList changes;
    for (auto row = before.cbegin(); row != before.cend(); ++row) {
        if (!after.contains(row.key())) {
            changes.append(row.key() + u": gone"_s);
            continue;
        }
        const QMap<QString, QString> now = after[row.key()];
        for (auto cell = row->cbegin(); cell != row->cend(); ++cell)
            if (now[cell.key()] != *cell)
                changes.append(u"%1 %2: %3 -> %4"_s.arg(row.key(), cell.key(), *cell, now[cell.key()]));
    }
    for (auto row = after.cbegin(); row != after.cend(); ++row)
        if (!before.contains(row.key())) changes.append(Told_Row(row.key(), *row));
    return changes;
}

} // namespace test_support
