#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"

namespace foundation {

// What a school settled for all its computers, in an initialisation file beside its database. Nothing depends
// on it: without the file all is as it always was. It is read through the port for such files.

// Beside the database, or in a folder whose name ends in a slash.
QString School_Settings_File(const QString& database_path);

// What the file holds for a school whose report sheets are to begin within the paper's margins, or not.
QString School_Settings_Text(bool keep_to_margins);

// As a user's own setting has it: "1", "0", or empty where the school settled nothing.
QString Margins_Of_School(desktop::Platform& platform, const Installation& installation);

} // namespace foundation
