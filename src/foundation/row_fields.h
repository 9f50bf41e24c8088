#pragma once

#include "foundation/access_holder.h"

#include <vector>

namespace foundation {

// The fields of row after row of an open holder, as they were read. A list asks each row for the same fields
// in the same order, so that where each stands is looked up once.
class Row_Fields {
public:
    explicit Row_Fields(Access_Holder& holder) : recordset(holder.Rows()), rows(recordset.Stored_Rows()) {}

    // The field's value in the row at hand; it holds until the next one is asked for. Error 3265 for a column
    // that isn't there, 3021 behind the last row.
    const basics::Value& operator()(const QString& name) {
        const Place& place = Place_Of(name);
        rows.Read(row, place.column, place.is_date, value);
        return value;
    }
    // The same as a whole number of 16 bits, by the rules of values.
    qint16 Integer(const QString& name) {
        const Place& place = Place_Of(name);
        const std::optional<qint64> whole = rows.Whole(row, place.column);
        if (whole && *whole == static_cast<qint16>(*whole)) return static_cast<qint16>(*whole);
        rows.Read(row, place.column, place.is_date, value);
        return value.As_Integer();
    }
    // Its text, empty text for none.
    QString Text(const QString& name) {
        const Place& place = Place_Of(name);
        return rows.Text(row, place.column, place.is_date);
    }
    void Keep(const QString& name_of_date, basics::Kept_Date& into) {
        rows.Keep(row, Place_Of(name_of_date).column, into);
    }
    bool Is_Behind_The_Last() const { return row >= rows.Row_Count(); }
    void Next_Row() {
        ++row;
        next = 0;
    }

private:
    struct Place {
        QString name;
        int column = 0;
        bool is_date = false;
    };

    const Place& Place_Of(const QString& name) {
        if (Is_Behind_The_Last()) basics::Raise(basics::errors::No_Current_Record);
        if (next == places.size()) places.emplace_back();
        Place& place = places[next++];
        const bool is_same = place.name.constData() == name.constData() || place.name == name;
        if (!is_same) {
            const int column = recordset.Stored_Place(name);
            place = {name, column, recordset.Shape()->Is_Date(column)};
        }
        return place;
    }

    const database::Recordset& recordset;
    const database::Row_Store& rows;
    std::size_t row = 0;
    std::vector<Place> places; // by their turn within a row
    std::size_t next = 0;
    basics::Value value;
};

} // namespace foundation
