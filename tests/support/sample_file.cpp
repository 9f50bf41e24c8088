#include "support/sample_file.h"

#include "sampledb/sample_data.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/other_workstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace test_support {
namespace {

// Test programs run side by side, and each case is a process: the sample is made in one rename.
QString Sample_Of(int pupils) {
    const QDir folder(
        QDir::temp().filePath(u"mevo-test-samples-%1"_s.arg(QString::fromLatin1(MEVO_SAMPLE_KEY))));
    QDir().mkpath(folder.path());
    const QString file = folder.filePath(u"%1.mdb"_s.arg(pupils));
    if (!QFile::exists(file)) {
        QTemporaryDir own;
        const QString fresh = own.filePath(u"fresh.mdb"_s);
        sample_data::Write_Database(fresh, {pupils, 1});
        QFile::copy(fresh, file + u'.' + QString::number(QCoreApplication::applicationPid()));
        QFile::rename(file + u'.' + QString::number(QCoreApplication::applicationPid()), file);
    }
    return file;
}

} // namespace

Sample_File::Sample_File(int pupils) : path(folder.filePath(u"Mevo05Data.mdb"_s)) {
    if (!QFile::copy(Sample_Of(pupils), path)) throw std::runtime_error("no sample database");
}

foundation::Installation Sample_File::Installed() const {
    foundation::Installation installation;
    installation.App_Path = Folder();
    installation.Database_Path = path;
    installation.Empty_Database_Path = folder.filePath(u"Mevo05EmptyDatabase.mdb"_s);
    installation.Archive_Folder = Folder();
    installation.Current_Database_Path = path;
    installation.Connection_String = foundation::Connection_String_For(path);
    return installation;
}

QStringList Sample_File::Column(const QString& sql) const {
    return Database_Beside(path).Column(sql);
}

void Sample_File::Run(const QString& sql) const {
    Column(sql);
}

QString Sample_File::Value(const QString& sql) const {
    return Database_Beside(path).Value(sql);
}

void Sample_File::Make_UTF_16() const {
    QStringList statements = {u"PRAGMA encoding = 'UTF-16'"_s, u"BEGIN"_s};
    statements += Column(u"SELECT sql FROM sqlite_master WHERE type = 'table'"_s);
    for (const QString& table : Column(u"SELECT name FROM sqlite_master WHERE type = 'table'"_s)) {
        const QString row = Value(u"SELECT group_concat('quote(\"' || name || '\")', '||'',''||') "
                                  "FROM pragma_table_info('%1')"_s.arg(table));
        statements += Column(u"SELECT 'INSERT INTO %1 VALUES (' || %2 || ')' FROM %1"_s.arg(table, row));
    }
    Write_Bytes(path, {});
    Database_Beside(path).Run(statements + QStringList{u"COMMIT"_s});
}

void Sample_File::Make_Older() const {
    Run(u"DROP TABLE Mevo_Groups"_s);
    for (const QString& column : {u"Show_Name"_s, u"Group_Class"_s, u"Password"_s, u"Dob_as_pw"_s})
        Run(u"ALTER TABLE Mevo_Pupils DROP COLUMN "_s + column);
}

void Sample_File::Move_Away() const {
    if (QFile::rename(path, path + u".away"_s)) return;
    // Some systems move no file that is open, as that of a kept engine is until the user's action is over.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    if (!QFile::rename(path, path + u".away"_s)) throw std::runtime_error("the sample stays where it is");
}

void Sample_File::Put_Back() const {
    QFile::rename(path + u".away"_s, path);
}

} // namespace test_support
