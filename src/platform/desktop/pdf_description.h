#pragma once

#include "platform/desktop/printers.h"

#include <QByteArray>
#include <QDateTime>
#include <QIODevice>
#include <QString>
#include <vector>

namespace desktop {

// What a PDF says of itself beside its sheets.
struct Pdf_Description {
    QString title;
    QString author; // may be empty, as the next one
    QString creator;
    QDateTime made;
    std::vector<Bookmark> bookmarks; // in the order of their pages
};

// The description as the XMP packet that the toolkit's writer is to put in the file: an archive's reader
// wants it there word for word as in the file's own properties.
QByteArray Metadata_Packet(const Pdf_Description& description);

// Writes a PDF of the toolkit's writer to the device, with what that writer leaves out: the author, the
// language, the list of bookmarks, one name for each embedded part of a font, and blanks where it calls them
// tabs. A file that it doesn't know its way about in is written as it is. A fault of the device is the
// device's to tell.
void Write_Described(const QByteArray& written, const Pdf_Description& description, QIODevice& device);

} // namespace desktop
