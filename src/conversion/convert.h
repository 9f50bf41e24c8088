#pragma once

#include "conversion/comparison.h"
#include "conversion/jet_source.h"
#include "conversion/new_database.h"

#include <QList>
#include <QString>

namespace conversion {

enum class If_There_Is_One { Refuse, Replace };

// Makes `target` a database of this program's format with all that the Jet file `source` holds. It appears
// whole, and is on the disk when this returns; after a failure everything is as it was.
// Throws a Refusal; what the watcher throws passes through.
QList<Table_Summary> Convert_Jet_File(const QString& source, const QString& target,
                                      If_There_Is_One if_there_is_one, const Reader_Program& reader,
                                      const Watcher& watcher);

// Compares an existing database with the Jet file. Throws as above.
void Compare_With_Jet_File(const QString& source, Comparison& comparison, const Reader_Program& reader,
                           const Watcher& watcher);

} // namespace conversion
