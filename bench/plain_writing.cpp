#include "plain_writing.h"

using namespace Qt::StringLiterals;

namespace bench {

Plain_Writer::Plain_Writer(const QString& file) : engine(file, database::Access::Read_Write) {
    engine.Run(u"PRAGMA journal_mode = DELETE"_s);
    engine.Run(u"PRAGMA synchronous = FULL"_s);
}

int Plain_Writer::Run(const QString& sql) {
    engine.Run(sql);
    return engine.Changed_Rows();
}

} // namespace bench
