#include "support/table_changes.h"

using namespace Qt::StringLiterals;

namespace test_support {

constexpr QChar Divider(0x1F);

static void Read_Table(const Sample_File& sample, const QString& table, Table_Rows& all) {
    const QStringList columns = sample.Column(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table));
    const bool of_pupils = columns.contains(u"StudentCode"_s);
    QStringList parts{of_pupils ? u"StudentCode"_s : u"rowid"_s};
    for (const QString& column : columns)
        parts.append(u"quote(\"%1\")"_s.arg(column));
    const QStringList rows =
        sample.Column(u"SELECT %1 FROM %2"_s.arg(parts.join(u" || char(31) || "_s), table));
    for (const QString& row : rows) {
        const QStringList cells = row.split(Divider);
        QMap<QString, QString>& stored = all[table + u' ' + cells[0]];
        for (qsizetype i = 0; i < columns.size(); ++i)
            stored.insert(columns[i], cells[i + 1]);
    }
}

Table_Rows Read_Tables(const Sample_File& sample) {
    Table_Rows all;
    for (const QString& table : sample.Column(u"SELECT name FROM sqlite_master WHERE type = 'table'"_s))
        Read_Table(sample, table, all);
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
