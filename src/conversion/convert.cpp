#include "conversion/convert.h"

#include "conversion/jet_file.h"
#include "conversion/refusal.h"
#include "platform/basics/run_time_error.h"
#include "platform/database/files/new_file.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace conversion {

namespace {

bool Is_There(const QString& file) {
    const QFileInfo info(file);
    return info.exists() || info.isSymLink();
}

void Refuse_Target(const QString& source, const QString& target, If_There_Is_One if_there_is_one) {
    const QFileInfo info(target);
    if (info.exists() && info.canonicalFilePath() == QFileInfo(source).canonicalFilePath())
        throw Refusal(u"It can't be converted into itself."_s);
    if (info.isDir()) throw Refusal(u"The target %1 is a folder."_s.arg(target));
    if (info.exists() && !info.isFile()) // a pipe or a device, which others may be waiting for
        throw Refusal(u"The target %1 isn't a file."_s.arg(target));
    if (Is_There(target) && if_there_is_one == If_There_Is_One::Refuse)
        throw Refusal(u"The target %1 is there already."_s.arg(target));
    // A program that finds a journal beside a database plays it back into it.
    for (const QString& ending : {u"-journal"_s, u"-wal"_s})
        if (Is_There(target + ending))
            throw Refusal(
                u"%1 lies beside the target: a database of that name is in use, or was when its machine stopped."_s
                    .arg(QFileInfo(target + ending).fileName()));
}

void Put_In_Place(database::New_File& file, const QString& target, If_There_Is_One if_there_is_one) {
    file.Flush_And_Close();
    if (if_there_is_one == If_There_Is_One::Replace) return file.Move_To_Its_Place();
    if (!file.Move_Unless_Taken()) throw Refusal(u"The target %1 is there already."_s.arg(target));
}

} // namespace

QList<Table_Summary> Convert_Jet_File(const QString& source, const QString& target,
                                      If_There_Is_One if_there_is_one, const Reader_Program& reader,
                                      const Watcher& watcher) {
    Refuse_Unless_Convertible(source);
    Refuse_Target(source, target, if_there_is_one);
    try {
        database::New_File file(target);
        QList<Table_Summary> summary;
        {
            New_Database database(file.Path());
            Read_Jet_File(source, reader, database, watcher);
            summary = database.Finish();
        }
        Put_In_Place(file, target, if_there_is_one);
        return summary;
    } catch (const basics::Run_Time_Error& error) {
        throw Refusal(u"The target %1 can't be written: %2."_s.arg(target, error.Description));
    }
}

void Compare_With_Jet_File(const QString& source, Comparison& comparison, const Reader_Program& reader,
                           const Watcher& watcher) {
    Read_Jet_File(source, reader, comparison, watcher);
    comparison.Finish();
}

} // namespace conversion
