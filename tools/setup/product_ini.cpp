#include "setup/product_ini.h"

#include "conversion/refusal.h"
#include "platform/desktop/disk_ports.h"
#include "setup/folders.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace set_up {

namespace {

const QString Section = u"SETTINGS"_s;
const QString Key = u"database_sharepath"_s;

QString Command_For(const Told_Program& outcome) {
#ifdef _WIN32
    return u"(echo [%1]& echo %2)> \"%3\""_s.arg(Section, outcome.line, outcome.file);
#else
    return u"printf '[%1]\\r\\n%s\\r\\n' %2 | sudo tee %3"_s.arg(Section, Quoted_For_Console(outcome.line),
                                                                 Quoted_For_Console(outcome.file));
#endif
}

// The reader drops quotes and blanks around a value, and takes no more of it than its buffer holds.
void Refuse_What_Cant_Be_Named(const QString& share) {
    constexpr qsizetype most = 248; // a backslash follows
    const QString ends = share.left(1) + share.right(1);
    const bool is_changed = share != share.trimmed() || ends == u"\"\""_s || ends == u"''"_s;
    if (is_changed || share.size() > most || share.contains(u'\n') || share.contains(u'\r'))
        throw conversion::Refusal(
            u"product.ini can't name the folder %1: its name is too long, or begins and ends in blanks or quotes."_s
                .arg(share));
}

bool Write_Whole(const QString& file, const QByteArray& bytes) {
    QSaveFile saved(file);
    saved.setDirectWriteFallback(true); // the file may be the account's where its folder isn't
    return saved.open(QIODevice::WriteOnly) && saved.write(bytes) == bytes.size() && saved.commit();
}

} // namespace

Told_Program Tell_Program(const QString& program_folder, const QString& share) {
    Refuse_What_Cant_Be_Named(share);
    Told_Program outcome;
    outcome.file = QDir::toNativeSeparators(program_folder + u"/product.ini"_s);
    outcome.line = Key + u'=' + share;
    outcome.command = Command_For(outcome);
    const desktop::Disk_Ports disk;
    const QString unset = u"="_s; // no folder begins so
    if (disk.ini->Value(outcome.file, Section, Key, unset) == share) return outcome;
    const QString text = u"[%1]\r\n%2\r\n"_s.arg(Section, outcome.line);
    outcome.told = Write_Whole(outcome.file, text.toUtf8());
    return outcome;
}

} // namespace set_up
