#include "conversion/jet_source.h"

#include "conversion/jet_file.h"
#include "conversion/refusal.h"
#include "foundation/schema.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

namespace conversion {

using jet_stream::Column_Type;
using jet_stream::Record;
using jet_stream::Value_Tag;

namespace {

constexpr int Watcher_Interval_Ms = 100;
// A row's marks take up to eight times their room in the file, and compressed texts twice theirs.
constexpr qint64 Most_Told_For_A_Byte = 32;
constexpr qint64 Most_Told_At_Least = 16 * 1024 * 1024;
constexpr quint32 Longest_Name = 1024;
constexpr quint32 Most_Tables = 32'768;
// The library's settings reach it through these; a user's own would change what is read.
const char* const Settings_Of_The_Library[] = {"MDBOPTS", "MDBICONV", "MDB_JET3_CHARSET"};

[[noreturn]] void Refuse_As_Damaged(const QString& reason) {
    throw Refusal(u"It is damaged: "_s + reason +
                  u". Repair it in Access (Compact and Repair), or take another copy of it."_s);
}

[[noreturn]] void Refuse_As_Unreadable() {
    Refuse_As_Damaged(u"its tables can't be read to the end"_s);
}

// The reader's output, taken piece by piece. Waiting for more is where the converter spends its time, so the
// watcher is called while it waits.
class Told {
public:
    Told(const QString& file, const Reader_Program& reader, const Progress& progress, const Watcher& watcher)
        : longest_silence_ms(reader.longest_silence_ms),
          still_allowed(Most_Told_At_Least + QFileInfo(file).size() * Most_Told_For_A_Byte),
          progress(progress),
          watcher(watcher) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : Settings_Of_The_Library)
            environment.remove(QString::fromLatin1(name));
        process.setProcessEnvironment(environment);
        process.setStandardErrorFile(QProcess::nullDevice());
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(reader.path, {QFileInfo(file).absoluteFilePath()});
        if (!process.waitForStarted())
            throw Refusal(u"The program that reads it, %1, isn't there."_s.arg(reader.path));
        since_watched.start();
    }
    ~Told() {
        process.kill();
        process.waitForFinished();
    }
    Told(const Told&) = delete;
    Told& operator=(const Told&) = delete;

    template<class Plain>
    Plain Take() {
        Plain value;
        Need(sizeof value);
        std::memcpy(&value, buffer.constData() + at, sizeof value);
        at += qsizetype(sizeof value);
        return value;
    }

    QByteArray Take_Bytes(quint32 longest) {
        const auto size = Take<quint32>();
        if (size > longest) Refuse_As_Unreadable();
        Need(size);
        at += size;
        return buffer.mid(at - size, size);
    }

    QString Take_Text(quint32 longest) { return QString::fromUtf8(Take_Bytes(longest)); }

private:
    void Need(qsizetype size) {
        if (buffer.size() - at >= size) return;
        buffer.remove(0, at);
        at = 0;
        while (buffer.size() < size)
            Wait_For_More();
    }

    void Wait_For_More() {
        QElapsedTimer silence;
        silence.start();
        while (process.bytesAvailable() == 0) {
            Watch();
            if (process.waitForReadyRead(Watcher_Interval_Ms)) break;
            if (process.state() == QProcess::NotRunning && process.bytesAvailable() == 0) {
                Watch(); // an interrupt from a terminal ends the reader, too, and isn't the file's fault
                Refuse_As_Unreadable();
            }
            if (silence.hasExpired(longest_silence_ms)) Refuse_As_Unreadable();
        }
        const QByteArray more = process.readAllStandardOutput();
        still_allowed -= more.size();
        if (still_allowed < 0) Refuse_As_Unreadable();
        buffer += more;
        if (since_watched.hasExpired(Watcher_Interval_Ms)) Watch();
    }

    void Watch() {
        watcher(progress);
        since_watched.restart();
    }

    QProcess process;
    int longest_silence_ms;
    qint64 still_allowed; // bytes
    QByteArray buffer;
    qsizetype at = 0; // what lies before it has been taken
    const Progress& progress;
    const Watcher& watcher;
    QElapsedTimer since_watched;
};

QString Take_Name(Told& told) {
    const QString name = told.Take_Text(Longest_Name);
    if (name.isEmpty() || name.contains(QChar(u'\0'))) Refuse_As_Unreadable();
    return name;
}

Source_Column Take_Column(Told& told) {
    Source_Column column;
    column.name = Take_Name(told);
    column.type = told.Take<Column_Type>();
    column.size = told.Take<quint32>();
    switch (column.type) {
    case Column_Type::Number:
    case Column_Type::Text:
    case Column_Type::Date:
    case Column_Type::Bytes:
        return column;
    }
    Refuse_As_Unreadable();
}

Source_Table Take_Table(Told& told) {
    Source_Table table;
    table.name = Take_Name(told);
    table.rows = told.Take<quint32>();
    const int columns = told.Take<quint16>();
    if (columns == 0 || columns > jet_stream::Most_Columns) Refuse_As_Unreadable();
    for (int i = 0; i < columns; ++i)
        table.columns.append(Take_Column(told));
    const int keys = told.Take<quint16>();
    if (keys > columns) Refuse_As_Unreadable();
    for (int i = 0; i < keys; ++i) {
        const int place = told.Take<quint16>();
        if (place >= columns) Refuse_As_Unreadable();
        table.key.append(table.columns[place].name);
    }
    return table;
}

void Take_Value(Told& told, Source_Value& value) {
    value.tag = told.Take<Value_Tag>();
    switch (value.tag) {
    case Value_Tag::Null:
        return;
    case Value_Tag::Whole:
        value.whole = told.Take<qint64>();
        return;
    case Value_Tag::Real:
    case Value_Tag::Date:
        value.real = told.Take<double>();
        if (!std::isfinite(value.real)) Refuse_As_Unreadable();
        return;
    case Value_Tag::Text:
    case Value_Tag::Bytes:
        value.bytes = told.Take_Bytes(jet_stream::Longest_Value);
        return;
    }
    Refuse_As_Unreadable();
}

void Take_Rows(Told& told, const Source_Table& table, Source_Visitor& visitor, Progress& progress) {
    Source_Row row(table.columns.size());
    for (qint64 rows = 0;; ++rows) {
        switch (told.Take<Record>()) {
        case Record::Row:
            if (rows == table.rows) Refuse_As_Unreadable();
            for (Source_Value& value : row)
                Take_Value(told, value);
            visitor.Take_Row(row);
            ++progress.rows;
            break;
        case Record::Table_End:
            if (rows != table.rows || told.Take<quint32>() != table.rows) Refuse_As_Unreadable();
            return;
        case Record::Fault:
            Refuse_As_Damaged(told.Take_Text(Longest_Name));
        default:
            Refuse_As_Unreadable();
        }
    }
}

void Take_Start(Told& told, Progress& progress) {
    const auto record = told.Take<Record>();
    if (record == Record::Fault) Refuse_As_Damaged(told.Take_Text(Longest_Name));
    if (record != Record::Start || told.Take<quint32>() != jet_stream::Version) Refuse_As_Unreadable();
    const auto tables = told.Take<quint32>();
    if (tables > Most_Tables) Refuse_As_Unreadable();
    progress.tables = static_cast<int>(tables);
    progress.of_rows = static_cast<qint64>(told.Take<quint64>());
}

QStringList Names_Of(const QList<Source_Column>& columns) {
    QStringList names;
    for (const Source_Column& column : columns)
        names.append(column.name);
    return names;
}

void Refuse_What_Lacks_A_Table(const database::Tables& tables) {
    const QStringList lacking = database::Lacking(tables, foundation::Needed_Tables());
    if (!lacking.isEmpty())
        Refuse_As_Damaged(u"it lacks "_s + lacking.first() +
                          (lacking.size() > 1 ? u" and %1 more"_s.arg(lacking.size() - 1) : QString()) +
                          u", which each database of the suite has"_s);
}

} // namespace

Reader_Program Reader_Beside_This_Program() {
    return {QCoreApplication::applicationDirPath() + u"/mevo-jet-reader"_s};
}

void Read_Jet_File(const QString& file, const Reader_Program& reader, Source_Visitor& visitor,
                   const Watcher& watcher) {
    Refuse_Unless_Convertible(file);
    Progress progress;
    Told told(file, reader, progress, watcher);
    Take_Start(told, progress);
    database::Tables tables;
    while (progress.table_number < progress.tables) {
        const auto record = told.Take<Record>();
        if (record == Record::Fault) Refuse_As_Damaged(told.Take_Text(Longest_Name));
        if (record != Record::Table) Refuse_As_Unreadable();
        const Source_Table table = Take_Table(told);
        ++progress.table_number;
        progress.table = table.name;
        tables[table.name] = Names_Of(table.columns);
        visitor.Begin_Table(table);
        Take_Rows(told, table, visitor, progress);
        visitor.End_Table();
    }
    if (told.Take<Record>() != Record::End) Refuse_As_Unreadable();
    Refuse_What_Lacks_A_Table(tables);
    watcher(progress);
}

} // namespace conversion
