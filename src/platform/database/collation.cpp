#include "platform/database/collation.h"

#include "platform/basics/text_order.h"
#include "platform/database/engine_handle.h"
#include "platform/database/jet_sql.h"

#include <algorithm>
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

// As the engine's own: letters of ASCII only.
int Compare_Plainly(void*, int left_size, const void* left, int right_size, const void* right) {
    const int order = sqlite3_strnicmp(static_cast<const char*>(left), static_cast<const char*>(right),
                                       std::min(left_size, right_size));
    return order != 0 ? order : left_size - right_size;
}

using Order = int (*)(void*, int, const void*, int, const void*);

void Install(const Engine_Handle& engine, const char* name, Order order) {
    // In the engine's own encoding: for another one, its built-in NOCASE would go before ours.
    engine.Check(sqlite3_create_collation_v2(engine.Get(), name, SQLITE_UTF8, nullptr, order, nullptr));
}

} // namespace

bool Holds_Foreign_Indexes(const Engine_Handle& engine) {
    return Engine_Statement(engine, u"SELECT 1 FROM sqlite_master AS m, pragma_index_xinfo(m.name) AS x "
                                    "WHERE m.type = 'index' AND x.key = 1 AND x.coll = 'NOCASE' LIMIT 1"_s)
        .Step();
}

void Install_Text_Order(const Engine_Handle& engine) {
    Install(engine, Text_Order, Compare_Texts);
    Install(engine, "NOCASE", Compare_Texts);
}

void Install_Plain_No_Case(const Engine_Handle& engine) {
    Install(engine, "NOCASE", Compare_Plainly);
}

} // namespace database
