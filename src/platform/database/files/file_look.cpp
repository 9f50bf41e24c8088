#include "platform/database/files/file_look.h"

#include "platform/basics/run_time_error.h"
#include "platform/database/database_file.h"
#include "platform/database/files/file_engine.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace database {
namespace {

const QString Log = u"-wal"_s;
const QString Journal = u"-journal"_s;

// A name may hold anything but this, which no program writes into one.
constexpr QChar Between_Names = u'\x1f';

QString Damage_Found_By(File_Engine& engine) {
    engine.Run(u"PRAGMA ignore_check_constraints = ON"_s); // a text that is too long is no damage
    const QStringList found = engine.Run(u"PRAGMA integrity_check"_s);
    return found == QStringList{u"ok"_s}
               ? QString()
               : u"The database file is damaged ("_s + found.value(0).simplified() + u")."_s;
}

Tables Tables_Read_By(File_Engine& engine) {
    Tables tables;
    const QStringList columns = engine.Run(
        u"SELECT t.name || char(31) || c.name FROM sqlite_master AS t, pragma_table_info(t.name) AS c "
        "WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite%' ORDER BY t.name, c.cid"_s);
    for (const QString& column : columns)
        tables[column.section(Between_Names, 0, 0)].append(column.section(Between_Names, 1));
    return tables;
}

struct Look_Order {
    const QStringList& questions;
    int timeout_seconds;
};

// A table that isn't there is no failure of the look.
QStringList Answer_Of(File_Engine& engine, const QString& question) {
    try {
        return engine.Run(question);
    } catch (const basics::Run_Time_Error&) {
        return {};
    }
}

File_Look Look_With(const QString& file, Access access, const Look_Order& order) {
    File_Look look;
    try {
        File_Engine engine(file, access, order.timeout_seconds);
        look.encoding = engine.Run(u"PRAGMA encoding"_s).value(0);
        look.damage = Damage_Found_By(engine);
        look.tables = Tables_Read_By(engine);
        for (const QString& question : order.questions)
            look.answers.append(Answer_Of(engine, question));
    } catch (const Damaged_File& damaged) {
        look.damage = damaged.Description;
    }
    return look;
}

// A log can't be read, nor a crashed transaction taken back, without a change beside the file.
File_Look Look_Into_A_Copy_Of(const QString& file, const Look_Order& order) {
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"copy"_s);
    for (const QString& ending : {QString(), Log, Journal}) {
        if (!QFileInfo::exists(file + ending)) continue;
        if (!QFile::copy(file + ending, copy + ending)) basics::Raise(basics::errors::Device_Error);
        QFile::setPermissions(copy + ending, QFile::ReadOwner | QFile::WriteOwner);
    }
    return Look_With(copy, Access::Read_Write, order);
}

} // namespace

File_Look Look_Into(const QString& file, const QStringList& questions, int timeout_seconds) {
    const Look_Order order{questions, timeout_seconds};
    Refuse_What_Is_No_Database(file);
    if (Has_Write_Ahead_Log(file) || QFileInfo::exists(file + Log)) return Look_Into_A_Copy_Of(file, order);
    try {
        return Look_With(file, Access::Read_Only, order);
    } catch (const File_In_Use&) {
        throw; // a copy of what is being written may be of two states
    } catch (const basics::Run_Time_Error&) {
        if (!QFileInfo::exists(file + Journal)) throw;
    }
    return Look_Into_A_Copy_Of(file, order);
}

QString Damage_In(const QByteArray& bytes) {
    try {
        File_Engine engine(bytes);
        return Damage_Found_By(engine);
    } catch (const Damaged_File& damaged) {
        return damaged.Description;
    }
}

QStringList Lacking(const Tables& found, const Tables& wanted) {
    QStringList lacking;
    for (auto table = wanted.begin(); table != wanted.end(); ++table) {
        const auto there = std::find_if(found.keyBegin(), found.keyEnd(), [&](const QString& name) {
            return name.compare(table.key(), Qt::CaseInsensitive) == 0;
        });
        if (there == found.keyEnd()) {
            lacking.append(table.key());
            continue;
        }
        for (const QString& column : table.value())
            if (!found[*there].contains(column, Qt::CaseInsensitive))
                lacking.append(table.key() + u'.' + column);
    }
    return lacking;
}

} // namespace database
