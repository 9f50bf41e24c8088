#include "scoring/item_store.h"

using namespace Qt::StringLiterals;

namespace scoring {

void Item_Places::Find(const database::Recordset& rows, const Item_Columns& names) {
    if (rows.Shape() == found_for) return;
    found_for = rows.Shape();
    Repeat_Count = rows.Column_Of(u"RepeatCount"_s);
    Pause_Count = rows.Column_Of(u"PauseCount"_s);
    for (std::size_t field = 0; field < places.size(); ++field) {
        places[field].clear();
        for (const QString& name : names.Names(static_cast<Item_Field>(field)))
            places[field].push_back(rows.Column_Of(name));
    }
}

Item_Store::Item_Store() {
    for (int t = 1; t <= All_Tests; ++t)
        tests.emplace_back(Test_At(t).Highest_Item);
}

std::size_t Item_Store::Checked(int t) {
    if (t < 1 || t > All_Tests) basics::Raise(basics::errors::Subscript_Out_Of_Range);
    return static_cast<std::size_t>(t - 1);
}

} // namespace scoring
