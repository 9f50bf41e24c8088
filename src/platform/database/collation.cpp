#include "platform/database/collation.h"

#include "platform/database/engine_handle.h"
#include "platform/database/jet_sql.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <memory>
#include <sqlite3.h>
#include <string_view>

using namespace Qt::StringLiterals;

namespace database {
namespace {

// The system's collator is costly to make, and most queries compare nothing.
class Text_Comparer {
public:
    int Compare(const QString& left, const QString& right) {
        if (!collator) {
            collator = std::make_unique<QCollator>(QLocale(QLocale::English, QLocale::UnitedKingdom));
            collator->setCaseSensitivity(Qt::CaseInsensitive);
        }
        return collator->compare(left, right);
    }

private:
    std::unique_ptr<QCollator> collator;
};

bool Is_Letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool Are_Letters(std::string_view text) {
    return std::all_of(text.begin(), text.end(), Is_Letter);
}

int Compare_Texts(void* comparer, int left_size, const void* left_bytes, int right_size,
                  const void* right_bytes) {
    const std::string_view left(static_cast<const char*>(left_bytes), static_cast<std::size_t>(left_size));
    const std::string_view right(static_cast<const char*>(right_bytes), static_cast<std::size_t>(right_size));
    // Most names are plain letters, for which the collator's order is the alphabet's.
    if (Are_Letters(left) && Are_Letters(right))
        return qstrnicmp(left.data(), left_size, right.data(), right_size);
    return static_cast<Text_Comparer*>(comparer)->Compare(QString::fromUtf8(left), QString::fromUtf8(right));
}

void Delete_Comparer(void* comparer) {
    delete static_cast<Text_Comparer*>(comparer);
}

void Install(const Engine_Handle& engine, const char* name) {
    auto comparer = std::make_unique<Text_Comparer>();
    // In the engine's own encoding: for another one, its built-in NOCASE would go before ours.
    engine.Check(sqlite3_create_collation_v2(engine.Get(), name, SQLITE_UTF8, comparer.get(), Compare_Texts,
                                             Delete_Comparer));
    comparer.release(); // the connection deletes it
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
