#pragma once

#include "foundation/installation.h"
#include "platform/database/kept_engine.h"
#include "platform/desktop/ports.h"
#include "pupils/import/pupil_fields.h"

#include <QString>
#include <QStringList>

namespace pupils {

// Overwrites in place each character that occurs in from_chars, and gives the text back.
QString& Replace_Chars(QString& text, const QString& from_chars, QChar to_char);

// The statement that makes the pupil's own row; the group must not be blank any more.
QString New_Pupil_Statement(const QStringList& fields, const QString& student_code);

// Changes nothing: the number of rows that it touches tells whether there is a group of that name.
QString Group_Test_Statement(const QString& group);
QString New_Group_Statement(const QString& group);

// Makes pupils for the Register page and the Import page.
class Pupil_Maker {
public:
    Pupil_Maker(desktop::Platform& platform, const foundation::Installation& installation)
        : platform(platform), installation(installation) {}

    // Sets New_StudentCode. Nothing asks whether the code is taken: the table's key alone can refuse it.
    void Generate_StudentCode(const QString& surname, const QString& forename);

    // Stores a pupil under a new code: their row, a row in each data table, and their group if there is none
    // of that name. A blank group becomes "Universal" in the list handed in. Every statement stands alone;
    // the first that fails ends the work in silence, what ran before it stays, and the result is false.
    bool Insert_New_Pupil(QStringList& fields);

    // For an import of many: the file stays open until its end.
    database::Whole_Act Begin_Act() { return database::Whole_Act(kept); }

    QString New_StudentCode;

private:
    QString Random_Letter();
    QString Random_Letters(int count);
    QString Random_Digits(int count);
    QString Name_Group(const QString& name);
    void Run_All_Statements(QStringList& fields);

    desktop::Platform& platform;
    const foundation::Installation& installation;
    database::Kept_Engine kept; // for the next pupil of the same import
};

} // namespace pupils
