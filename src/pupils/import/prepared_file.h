#pragma once

#include "pupils/import/rehearsal.h"

#include <QByteArray>

namespace pupils {

// The rows that go, in the import's own form: in the code page, or in UTF-8 with its mark where the import
// would take those bytes for something else.
QByteArray Prepared_Bytes(const QList<Rehearsed_Row>& rows);

// A list on its way from the page that prepared it to the import, in a file for this user alone. It goes with
// the page that imports it, or with the program.
class Prepared_File {
public:
    Prepared_File() = default;
    ~Prepared_File() { Drop(); }
    Q_DISABLE_COPY(Prepared_File)

    // Refused_Source if it can't be written.
    void Hold(const QByteArray& bytes);
    void Drop();
    const QString& Name() const { return name; } // the full name; empty if there is none

private:
    QString name;
};

} // namespace pupils
