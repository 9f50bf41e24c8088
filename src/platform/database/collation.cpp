#include "platform/database/collation.h"

#include "platform/basics/text_order.h"
#include "platform/database/engine_handle.h"
#include "platform/database/jet_sql.h"

#include <sqlite3.h>
#include <string_view>

using namespace Qt::StringLiterals;

namespace database {
namespace {

int Compare_Texts(void*, int left_size, const void* left_bytes, int right_size, const void* right_bytes) {
    const std::string_view left(static_cast<const char*>(left_bytes), static_cast<std::size_t>(left_size));
    const std::string_view right(static_cast<const char*>(right_bytes), static_cast<std::size_t>(right_size));
    return basics::Compare_Names(left, right);
}

void Install(const Engine_Handle& engine, const char* name) {
    // In the engine's own encoding: for another one, its built-in NOCASE would go before ours.
    engine.Check(
        sqlite3_create_collation_v2(engine.Get(), name, SQLITE_UTF8, nullptr, Compare_Texts, nullptr));
}

bool Holds_Foreign_Indexes(const Engine_Handle& engine) {
    return Engine_Statement(engine, u"SELECT 1 FROM sqlite_master AS m, pragma_index_xinfo(m.name) AS x "
                                    "WHERE m.type = 'index' AND x.key = 1 AND x.coll = 'NOCASE' LIMIT 1"_s)
        .Step();
}

} // namespace

void Install_Text_Order(const Engine_Handle& engine) {
    Install(engine, Text_Order);
    if (!Holds_Foreign_Indexes(engine)) Install(engine, "NOCASE");
}

} // namespace database
