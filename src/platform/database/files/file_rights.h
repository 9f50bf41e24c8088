#pragma once

#include <QString>

namespace database {

// Whoever may use a database may use what replaces it or is made beside it, whichever account makes it. On
// systems where a file takes its folder's rights by itself nothing is done here.

// The file whose rights one that is made at `place` takes: what stands there, else the database in its folder
// that most may use, else `otherwise`. Empty if there is none of these.
QString Rights_Model(const QString& place, const QString& otherwise);

// Gives an open file or folder the rights of another, and its owner and group as far as the account may.
void Take_Rights(int opened, const QString& like);

// Makes a folder with the rights of another, and those above it that are missing. One that is there stays as
// it is.
void Make_Folder(const QString& folder, const QString& like);

// Whether the system would let this account write the file and make a journal beside it. Nothing is written.
bool May_Be_Written(const QString& file);

} // namespace database
