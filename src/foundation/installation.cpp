#include "foundation/installation.h"

using namespace Qt::StringLiterals;

namespace foundation {

QString Connection_String_For(const QString& database_path) {
    return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + database_path;
}

} // namespace foundation
