#include "platform/database/files/kept_copies.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/files/file_rights.h"

#include <QDir>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace database {

using basics::Native_Path;

namespace {

const QString Ending = u".mdb"_s;

// A kept copy's name: why, when, and a number that tells two of one second apart.
QRegularExpressionMatch Parts_Of(const QString& name) {
    static const QRegularExpression form(
        u"^Mevo05_before_([a-z_]+)_((\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d)(?:_\\d)?)\\.mdb$"_s);
    return form.match(name);
}

QString Moment_In(const QString& path) {
    return Parts_Of(QFileInfo(path).fileName()).captured(2);
}

const QString Form_Of_Moment = u"yyyy-MM-dd_HH-mm-ss"_s;

} // namespace

QList<Kept_File> Kept_Files_In(const QString& folder) {
    QList<Kept_File> kept;
    for (const QFileInfo& file : QDir(folder).entryInfoList({u"Mevo05_before_*"_s + Ending}, QDir::Files)) {
        const QRegularExpressionMatch parts = Parts_Of(file.fileName());
        if (parts.hasMatch())
            kept.append({file.filePath(), parts.captured(1),
                         QDateTime::fromString(parts.captured(3), Form_Of_Moment)});
    }
    std::sort(kept.begin(), kept.end(), [](const Kept_File& left, const Kept_File& right) {
        return Moment_In(left.path) > Moment_In(right.path);
    });
    return kept;
}

QString Free_Kept_Name(const QString& folder, const QString& reason, const QDateTime& when) {
    const QDir there(folder);
    const QString name = u"Mevo05_before_"_s + reason + u'_' + when.toString(Form_Of_Moment);
    QString file = there.filePath(name + Ending);
    for (int number = 2; QFile::exists(file) && number <= 9; ++number)
        file = there.filePath(name + u'_' + QString::number(number) + Ending);
    return file;
}

bool Has_Name_Of_Kept_Copy(const QString& file) {
    const QString name = QFileInfo(file).fileName();
    return !Moment_In(name.left(1).toUpper() + name.mid(1).toLower()).isEmpty();
}

QString Companion_Of_Archive(const QString& archive) {
    const bool usual = archive.endsWith(Ending, Qt::CaseInsensitive);
    return (usual ? archive.chopped(Ending.size()) : archive) + u".kept.sqlite"_s;
}

Kept_Copy::Kept_Copy(const Replacement& order, const Write& write) {
    kept_as = order.kept_as;
    for (const QString& file : order.spared + QStringList{order.source})
        spared.append(QFileInfo(Native_Path(file)).canonicalFilePath());
    try {
        Write_In(Native_Path(order.keep_in), order, write);
    } catch (const basics::Run_Time_Error&) {
        Write_In(QFileInfo(Native_Path(order.target)).absolutePath(), order, write);
    }
}

Kept_Copy::~Kept_Copy() {
    if (!file.isEmpty() && !stays) QFile::remove(file);
}

void Kept_Copy::Write_In(const QString& folder, const Replacement& order, const Write& write) {
    const QString replaced = Native_Path(order.target);
    Make_Folder(folder, QFileInfo(replaced).absolutePath()); // where it can't, the new file says so
    const QString place = Free_Kept_Name(folder, order.reason, order.when);
    New_File copy(place, replaced);
    write(copy);
    copy.Flush_And_Close();
    copy.Move_To_Its_Place();
    file = place;
}

// After a clock fell back, the copy just made bears the earliest moment of all.
bool Kept_Copy::Is_Spared(const Kept_File& kept) const {
    const QString name = QFileInfo(kept.path).canonicalFilePath();
    return name == QFileInfo(file).canonicalFilePath() || spared.contains(name);
}

void Kept_Copy::Stay() {
    stays = true;
    if (file.isEmpty()) return;
    if (kept_as) *kept_as = file;
    QList<Kept_File> kept = Kept_Files_In(QFileInfo(file).absolutePath());
    const qsizetype too_many = kept.size() - Most_Kept_Copies;
    kept.removeIf([this](const Kept_File& copy) { return Is_Spared(copy); });
    for (const Kept_File& oldest : kept.last(std::clamp<qsizetype>(too_many, 0, kept.size())))
        if (QFile::remove(oldest.path)) QFile::remove(Companion_Of_Archive(oldest.path));
}

} // namespace database
