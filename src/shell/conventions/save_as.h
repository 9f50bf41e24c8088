#pragma once

#include "platform/desktop/ports.h"

#include <QByteArray>
#include <QString>

namespace shell {

// A file that the user may take out of the program.
struct File_To_Save {
    QString title;     // of the dialog: "Save as PDF"
    QString filter;    // "PDF documents (*.pdf)"
    QString extension; // no dot
    QString name;      // offered, without the extension; made safe for any file system
};

// Where the user wants the file. The dialog begins in their own documents folder, so that names and scores
// never lie in the school's shared folder unless they go there themselves. A name with another extension
// isn't taken: nobody replaces a database by a list. Empty if it was cancelled.
QString Ask_Where_To_Save(const File_To_Save& file, desktop::Platform& platform);

// The folder where the user wants several files; the dialog begins as that for one. Empty if it was
// cancelled.
QString Ask_For_Folder(const QString& title, desktop::Platform& platform);

// Writes the whole file or nothing. A failure is told in a critical box under `title`, and gives false.
bool Save_Whole(const QString& file, const QByteArray& bytes, const QString& title,
                desktop::Platform& platform);

} // namespace shell
