#pragma once

#include "conversion/jet_source.h"
#include "setup/product_ini.h"
#include "setup/school_files.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace set_up {

enum class Sheets { Within_The_Margins, At_The_Papers_Corner };

// What is to be set up. Without a school and without files to bring, what lies in the folder is used.
struct Order {
    QString folder; // plain
    QString group;  // whose accounts may use a folder that is made; empty: as the system gives it
    std::optional<New_School> school;
    QString from; // the template of a new school, or the school to bring; may be empty
    std::optional<Sheets> sheets;
};

struct Around {
    QString program_folder;
    QString standard_folder; // for all users' data, plain
    QString own_program;     // mevo-setup
    conversion::Reader_Program reader;
    conversion::Watcher watcher = [](const conversion::Progress&) {};
};

// Of this computer and of the running program.
Around Surroundings_Here();

struct Done {
    QStringList lines; // what lies there now, a sentence each
    Told_Program program;
};

// Makes the folder of an order if it is missing. One that isn't this computer's own wants the folder above
// it: a share that is away has none. Throws a Refusal.
void Prepare_Folder(const Order& order, const Around& around);

// Does it all. A Refusal where something can't be done; what is then there already is a whole database.
Done Carry_Out(const Order& order, const Around& around);

// Starts what lies beside the program, with a window; false where it isn't there.
bool Start_Beside(const QString& program, const QStringList& arguments, const Around& around);

// Whether the database that mevo would open can be opened. One that is in use can.
bool Mevo_Finds_Its_Database(const QString& program_folder);

} // namespace set_up
