#include "shell/conventions/save_as.h"

#include "platform/basics/file_stem.h"
#include "platform/basics/native_path.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace shell {

static QString Own_Documents(desktop::Platform& platform) {
    QString folder;
    return platform.folders.Folder_Path(desktop::Own_Documents, folder) == 0 ? folder : QDir::homePath();
}

QString Ask_Where_To_Save(const File_To_Save& file, desktop::Platform& platform) {
    desktop::File_Question question;
    question.title = file.title;
    question.filter = file.filter;
    question.folder = Own_Documents(platform);
    question.file_name = basics::File_Stem(file.name) + u'.' + file.extension;
    question.extension = file.extension;
    question.why_not = [&file](const QString& chosen) {
        return QFileInfo(basics::Native_Path(chosen)).suffix().compare(file.extension, Qt::CaseInsensitive) ==
                       0
                   ? QString()
                   : u"The file's name must end in \"."_s + file.extension + u"\"."_s;
    };
    return platform.file_dialogs.Save_File(question);
}

QString Ask_For_Folder(const QString& title, desktop::Platform& platform) {
    return platform.file_dialogs.Choose_Folder(title, Own_Documents(platform));
}

bool Save_Whole(const QString& file, const QByteArray& bytes, const QString& title,
                desktop::Platform& platform) {
    QSaveFile saved(basics::Native_Target(file));
    if (saved.open(QIODevice::WriteOnly) && saved.write(bytes) == bytes.size() && saved.commit()) return true;
    platform.boxes.Ask(desktop::Box_Style::Critical, title,
                       u"The file '"_s + file + u"' can't be written: "_s + saved.errorString());
    return false;
}

} // namespace shell
