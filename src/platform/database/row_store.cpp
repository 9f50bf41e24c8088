#include "platform/database/row_store.h"

#include "platform/basics/dates.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace database {

using basics::Value;

// Test modules and older tools store a date as text in several forms; the declared type or, in files made
// without types, the suite's own column names tell that one is meant.
static bool Is_Date_Column(const char* declared_type, const QString& name) {
    if (declared_type && qstrnicmp(declared_type, "DATE", 4) == 0) return true;
    return name.compare("DOB"_L1, Qt::CaseInsensitive) == 0 || name.endsWith("_date"_L1, Qt::CaseInsensitive);
}

std::size_t Any_Case_Hash::operator()(const QString& name) const {
    std::size_t hash = 0;
    for (const QChar c : name)
        hash = hash * 31 + c.toCaseFolded().unicode();
    return hash;
}

Row_Shape::Row_Shape(sqlite3_stmt* statement) {
    const int count = sqlite3_column_count(statement);
    for (int column = 0; column < count; ++column) {
        const QString name = QString::fromUtf8(sqlite3_column_name(statement, column));
        names.append(name);
        columns[name] = column;
        is_date.push_back(Is_Date_Column(sqlite3_column_decltype(statement, column), name));
    }
}

void Row_Store::Take_Row(sqlite3_stmt* statement, int columns) {
    width = static_cast<std::size_t>(columns);
    ++rows;
    cells.resize(rows * width);
    Cell* cell = cells.data() + (rows - 1) * width;
    for (int column = 0; column < columns; ++column, ++cell) {
        sqlite3_value* value = sqlite3_column_value(statement, column);
        switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            break;
        case SQLITE_INTEGER:
            cell->kind = Kind::Whole;
            cell->whole = sqlite3_value_int64(value);
            break;
        case SQLITE_FLOAT:
            cell->kind = Kind::Number;
            cell->number = sqlite3_value_double(value);
            break;
        default: {
            // A text isn't taken as it is stored: a file may keep its texts in UTF-16.
            const bool is_text = sqlite3_value_type(value) == SQLITE_TEXT;
            const void* bytes =
                is_text ? sqlite3_column_text(statement, column) : sqlite3_column_blob(statement, column);
            cell->kind = Kind::Text;
            cell->size = sqlite3_column_bytes(statement, column);
            cell->start = texts.size();
            if (bytes) texts.append(static_cast<const char*>(bytes), static_cast<std::size_t>(cell->size));
        }
        }
    }
}

void Row_Store::Clear() {
    width = rows = 0;
    cells.clear();
    texts.clear();
}

static Value Date_Value(const QString& text) {
    if (text.trimmed().isEmpty()) return {}; // an untyped file's way to leave a date out
    if (const auto date = basics::Stored_Date(text)) return *date;
    return text;
}

void Row_Store::Read(std::size_t row, int column, bool is_date, Value& into) const {
    const Cell& cell = cells[row * width + static_cast<std::size_t>(column)];
    switch (cell.kind) {
    case Kind::Empty:
        into = {};
        break;
    case Kind::Whole:
        into = cell.whole;
        break;
    case Kind::Number:
        into = cell.number;
        break;
    case Kind::Text:
        into.Set_Text(texts.data() + cell.start, cell.size);
        if (is_date) into = Date_Value(into.As_Text());
    }
}

} // namespace database
