#pragma once

#include "support/database_beside.h"
#include "support/files.h"

#include <QList>

namespace test_support {

// A file of these bytes, after these statements.
struct Hostile_File {
    const char* name;
    QByteArray bytes;
    QStringList statements;

    void Write_To(const QString& file) const {
        Write_Bytes(file, bytes);
        if (!statements.isEmpty()) Database_Beside(file).Run(statements);
    }
};

// Where a database of the suite should be; made of a sound one.
inline QList<Hostile_File> What_Nothing_Can_Be_Made_Of(const QByteArray& sound) {
    using namespace Qt::StringLiterals;
    return {
        {"empty", "", {}},
        {"a text", "Surname,Forename\n", {}},
        {"a header and nothing behind", sound.left(100), {}},
        {"cut off in a page", sound.left(9000), {}},
        {"its last page lost", sound.chopped(8192), {}},
        {"without pupils", sound, {u"DROP TABLE Mevo_Pupils"_s}},
        {"a view in the pupils' place",
         sound,
         {u"ALTER TABLE Mevo_Pupils RENAME TO Hidden"_s, u"CREATE VIEW Mevo_Pupils AS SELECT * FROM Hidden"_s,
          u"CREATE TRIGGER spoil INSTEAD OF UPDATE ON Mevo_Pupils BEGIN DELETE FROM Hidden; END"_s}},
    };
}

} // namespace test_support
