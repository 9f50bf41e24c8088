#pragma once

#include "platform/database/files/kept_copies.h"

#include <QDateTime>
#include <QStringList>
#include <functional>

namespace database {

// Copies that are made of a database before it can be changed, in a folder of their own beside it and under
// the names of kept ones. They go on their own: of a past hour the last stays, and the newest twenty in all.
inline constexpr int Most_Page_Copies = 20;

// The folder for those of a database.
QString Copies_Folder(const QString& database);

struct Page_Copy {
    QString database;
    QString reason; // what is about to happen, for the name: "delete"
    QDateTime when;
    QStringList spared = {}; // copies that stay whatever their age: one in view
    // Copies what belongs to the database to where it belongs to the copy.
    std::function<void(const QString& copy)> along = {};
};

// Copies the database, unless nothing has been written to it since its newest copy. Gives the copy's name;
// empty where none was wanted. What was copied is read back and checked before it stands under its name.
// Throws as File_Copies do, having changed nothing. To be asked while no connection of the process has the
// file open.
QString Copy_If_Changed(const Page_Copy& order, int timeout_seconds);

// Those beyond the number that is kept, of a list with the latest first. The one made now counts and stays,
// whatever moment its name bears.
QList<Kept_File> Superfluous(const QList<Kept_File>& copies, const Kept_File& made);

} // namespace database
