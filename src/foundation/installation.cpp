#include "foundation/installation.h"

using namespace Qt::StringLiterals;

namespace foundation {

QString Connection_String_For(const QString& database_path) {
    return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + database_path;
}

QString Database_Named_In(const QString& connection_string) {
    const QString key = u"Data Source="_s;
    const qsizetype place = connection_string.indexOf(key);
    return place < 0 ? QString() : connection_string.mid(place + key.size());
}

} // namespace foundation
