#include "platform/database/kept_copies.h"

#include "platform/basics/run_time_error.h"

#include <QDir>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace database {
namespace {

const QString Ending = u".mdb"_s;

QString Name_Of(const QString& reason, const QDateTime& when) {
    return u"Mevo05_before_"_s + reason + u'_' + when.toString(u"yyyy-MM-dd_HH-mm-ss"_s);
}

// The moment in a kept copy's name, with the number that tells two of one second apart; empty for any other
// name.
QString Moment_In(const QString& name) {
    static const QRegularExpression form(
        u"^Mevo05_before_[a-z_]+_(\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d(?:_\\d)?)\\.mdb$"_s);
    return form.match(name).captured(1);
}

QString Free_Name(const QString& folder, const QString& name) {
    const QDir there(folder);
    QString file = there.filePath(name + Ending);
    for (int number = 2; QFile::exists(file) && number <= 9; ++number)
        file = there.filePath(name + u'_' + QString::number(number) + Ending);
    return file;
}

} // namespace

Kept_Copy::Kept_Copy(const QStringList& folders, const QString& reason, const QDateTime& when,
                     const Write& write) {
    for (qsizetype i = 0; i < folders.size(); ++i) {
        try {
            Write_In(folders[i], Name_Of(reason, when), write);
            return;
        } catch (const basics::Run_Time_Error&) {
            if (i + 1 == folders.size()) throw;
        }
    }
}

Kept_Copy::~Kept_Copy() {
    if (!file.isEmpty() && !stays) QFile::remove(file);
}

void Kept_Copy::Write_In(const QString& folder, const QString& name, const Write& write) {
    QDir().mkpath(folder); // where it can't, the new file says so
    const QString place = Free_Name(folder, name);
    New_File copy(place);
    write(copy);
    copy.Flush_And_Close();
    copy.Move_To_Its_Place();
    file = place;
}

void Kept_Copy::Stay() {
    stays = true;
    if (file.isEmpty()) return;
    const QDir folder = QFileInfo(file).absoluteDir();
    QStringList names = folder.entryList({u"Mevo05_before_*"_s + Ending}, QDir::Files);
    names.removeIf([](const QString& name) { return Moment_In(name).isEmpty(); });
    std::sort(names.begin(), names.end(),
              [](const QString& left, const QString& right) { return Moment_In(left) > Moment_In(right); });
    for (const QString& name : names.mid(Most_Kept_Copies))
        QFile::remove(folder.filePath(name));
}

} // namespace database
