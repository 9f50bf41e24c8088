#pragma once

#include "foundation/installation.h"
#include "platform/database/kept_engine.h"
#include "platform/desktop/ports.h"

namespace foundation {

// A database is of version 5.1 if it has the groups table and the pupils have the column Dob_as_pw. Both
// are always asked, and names are compared letter by letter. A file that can't be opened is a run-time error.
bool Database_Is_Version_51(const Installation& installation);
bool Database_Is_Version_51(const Installation& installation, database::Kept_Engine& kept); // of an act
bool Groups_Table_Exists(const Installation& installation, database::Kept_Engine* kept = nullptr);
bool Pupils_Have_Dob_As_Pw(const Installation& installation, database::Kept_Engine* kept = nullptr);

// Brings an older file up to 5.1, in place: groups, login list and passwords. True if every statement ran;
// otherwise the user is told and the statements already run stay done.
bool Convert_Database_To_51(const Installation& installation, desktop::Platform& platform);

} // namespace foundation
