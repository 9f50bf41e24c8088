#pragma once

#include "foundation/access_holder.h"

#include <vector>

namespace foundation {

// The fields of row after row of an open holder. A list asks each row for the same fields in the same order,
// so that where each stands is looked up once.
class Row_Fields {
public:
    explicit Row_Fields(Access_Holder& holder) : rows(holder.Rows()) {}

    // The field's value in the row at hand; it holds until the next one is asked for. Error 3265 for a column
    // that isn't there.
    const basics::Value& operator()(const QString& name) {
        rows.Read(Column_Of(name), value);
        return value;
    }
    // Its text, empty text for none.
    QString Text(const QString& name) { return rows.Text(Column_Of(name)); }
    void Keep(const QString& name, basics::Kept_Date& into) { rows.Keep(Column_Of(name), into); }
    bool Is_Behind_The_Last() const { return rows.Eof(); }
    void Next_Row() {
        rows.MoveNext();
        next = 0;
    }

private:
    struct Place {
        QString name;
        int column = 0;
    };

    int Column_Of(const QString& name) {
        if (next == places.size()) places.emplace_back();
        Place& place = places[next++];
        const bool is_same = place.name.constData() == name.constData() || place.name == name;
        if (!is_same) place = {name, rows.Column_Of(name)};
        return place.column;
    }

    database::Recordset& rows;
    std::vector<Place> places; // by their turn within a row
    std::size_t next = 0;
    basics::Value value;
};

} // namespace foundation
