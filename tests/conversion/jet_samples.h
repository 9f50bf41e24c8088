#pragma once

#include "conversion/convert.h"
#include "support/files.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace test_support {

// The genuine files that the tests have, and what can be made of them.
QString Test_Data(const QString& name);

QByteArray Stored_Text(const QString& text); // two bytes a character

// As Access itself disguises them: the header tells of a password, or of a key that the pages are encrypted
// by.
QByteArray With_Password(QByteArray jet_file, const QString& password);
QByteArray Encrypted(QByteArray jet_file);

// A folder for a conversion.
class Conversion_Folder {
public:
    QString Place(const QString& name) const { return folder.filePath(name); }
    QString Put(const QString& name, const QByteArray& bytes) const;
    QStringList Names() const; // of all that lies there, hidden ones too

private:
    QTemporaryDir folder;
};

// Converts without replacing; throws the refusal.
QList<conversion::Table_Summary>
Convert(const QString& source, const QString& target,
        const conversion::Reader_Program& reader = conversion::Reader_Beside_This_Program());
// The refusal's text; empty where there was none.
QString Why_Refused(const QString& source, const QString& target,
                    const conversion::Reader_Program& reader = conversion::Reader_Beside_This_Program());

} // namespace test_support
