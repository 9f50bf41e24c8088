#pragma once

#include <QFile>
#include <QString>

namespace database {

// Waits until what was written to an open file is on the disk; false if that failed.
bool Is_On_The_Disk(const QFile& file);

// A file that is written beside the place where it is to stand, and disappears again unless it is put there.
//
// Failures are run-time errors: 61 where there is no room, 70 where the account may not write, 76 where the
// folder is missing, 57 for the rest.
class New_File {
public:
    // Makes an empty file of its own name in the folder of `place`, for whoever may use what stands at the
    // place or beside it; else for whoever may use `otherwise_like`. Removes those of any name that a process
    // left in the folder when it was ended a day ago or more.
    explicit New_File(const QString& place, const QString& otherwise_like = {});
    ~New_File();
    New_File(const New_File&) = delete;
    New_File& operator=(const New_File&) = delete;

    const QString& Path() const { return path; } // where it lies meanwhile
    void Write(const QByteArray& bytes);
    void Flush_And_Close(); // what was written is on the disk when this returns
    // Renames it over whatever stands at its place; on the disk as well when this returns.
    void Move_To_Its_Place();
    // The same where nothing stands there. False, and nothing has changed, where something does.
    bool Move_Unless_Taken();

private:
    bool Open(const QString& like);

    QString place;
    QString path;
    QFile file;
    bool moved = false;
};

} // namespace database
