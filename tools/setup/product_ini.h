#pragma once

#include <QString>

namespace set_up {

// What became of telling the program where the databases lie.
struct Told_Program {
    bool told = true; // product.ini says so now, or said so already
    QString file;     // as the program reads it
    QString line;     // that the file must hold
    QString command;  // by which an administrator writes it
};

// Has product.ini in the program's folder name the share; empty text for the folder for all users' data. The
// file is written whole, and a link to it is followed. Throws a conversion::Refusal for a folder that the
// file can't name.
Told_Program Tell_Program(const QString& program_folder, const QString& share);

} // namespace set_up
