#pragma once

#include <QString>

namespace conversion {

// What the first page of a file says of it, without the library that reads the rest.

// Whether the file was written by an Access whose files can be converted, protected or not. False for a
// missing one.
bool Is_Jet_File(const QString& file);

// Throws a Refusal that says what is wrong: missing, a folder, another kind of file, of a later Access,
// encrypted, protected by a password, or cut short.
void Refuse_Unless_Convertible(const QString& file);

} // namespace conversion
