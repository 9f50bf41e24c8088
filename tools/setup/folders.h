#pragma once

#include <QString>
#include <QStringList>

namespace set_up {

// As product.ini names a folder: absolute, native, and without a slash at the end.
QString Plain_Folder(const QString& text);

// Makes a folder that is missing; where a group is named, all its accounts may make files in it, and what
// they make is the group's too. One that is there stays as it is. On systems where accounts' rights are
// settled elsewhere a group is a Refusal. Throws a conversion::Refusal in plain words with what an
// administrator can do about it.
void Make_Folder(const QString& folder, const QString& group);

// Whoever may make files in a folder may also write this one in it; whom the folder keeps out, it keeps out
// too.
void Open_To_Users_Of_Its_Folder(const QString& file);

// Groups of accounts that a folder can be given to; empty where that isn't settled here.
QStringList Groups_Of_Accounts();

// Text as a command of the system's own console takes it for one word.
QString Quoted_For_Console(const QString& text);

} // namespace set_up
