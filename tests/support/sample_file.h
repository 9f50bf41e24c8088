#pragma once

#include "foundation/installation.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace test_support {

// A database of its own for a test, in a folder that goes when the test ends. It is copied from a sample that
// is made once for each size.
class Sample_File {
public:
    explicit Sample_File(int pupils = 12);

    const QString& Path() const { return path; }
    QString Folder() const { return folder.path(); }
    foundation::Installation Installed() const; // paths and connection string that lead here

    // Plain SQLite, past the program's own layers. Each throws what the engine says.
    void Run(const QString& sql) const;
    QString Value(const QString& sql) const;      // the first cell as text; "NULL" for none
    QStringList Column(const QString& sql) const; // the first column

    void Make_UTF_16() const; // the same tables and rows, their texts in another encoding
    void Make_Older() const;  // as before version 5.1: no groups, no logins
    void Move_Away() const;
    void Put_Back() const;

private:
    QTemporaryDir folder;
    QString path;
};

} // namespace test_support
