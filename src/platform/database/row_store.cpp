#include "platform/database/row_store.h"

#include "platform/basics/dates.h"
#include "platform/basics/text_order.h"

#include <algorithm>
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
    Cell* cell = New_Row();
    for (int column = 0; column < columns; ++column, ++cell) {
        // One thread has the engine, so that its values may be asked as if they were copies.
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
        case SQLITE_TEXT: // not taken as it is stored: a file may keep its texts in UTF-16
            Take_Bytes(sqlite3_value_text(value), sqlite3_value_bytes(value), Kind::Text, *cell);
            break;
        default:
            Take_Bytes(sqlite3_value_blob(value), sqlite3_value_bytes(value), Kind::Bytes, *cell);
        }
    }
}

Row_Store::Cell* Row_Store::New_Row() {
    const std::size_t piece = rows++ / Rows_Of_A_Piece;
    if (piece == pieces.size()) {
        pieces.emplace_back();
        if (piece > 0) pieces.back().reserve(Rows_Of_A_Piece * width); // of one row nothing more may come
    }
    std::vector<Cell>& cells = pieces[piece];
    cells.resize(cells.size() + width);
    return cells.data() + (cells.size() - width);
}

void Row_Store::Take_Bytes(const void* bytes, int size, Kind kind, Cell& cell) {
    cell.kind = kind;
    cell.size = size;
    cell.start = texts.size();
    if (bytes) texts.append(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

void Row_Store::Clear() {
    width = rows = 0;
    for (std::vector<Cell>& cells : pieces)
        cells.clear();
    ordered.clear();
    texts.clear();
}

// An untyped file's way to leave a date out.
static bool Is_Blank(QStringView text) {
    return text.trimmed().isEmpty();
}

static Value Date_Value(const QString& text) {
    if (Is_Blank(text)) return {};
    if (const auto date = basics::Stored_Date(text)) return *date;
    return text;
}

void Row_Store::Read(std::size_t row, int column, bool is_date, Value& into) const {
    const Cell& cell = At(row, column);
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
    case Kind::Bytes:
        into.Set_Text(texts.data() + cell.start, cell.size);
        if (is_date) into = Date_Value(into.As_Text());
    }
}

QString Row_Store::Text(std::size_t row, int column, bool is_date) const {
    const Cell& cell = At(row, column);
    if (cell.kind == Kind::Text) {
        QString text = QString::fromUtf8(texts.data() + cell.start, cell.size);
        if (!is_date || basics::Is_Date_Text(text)) return text;
        return Is_Blank(text) ? u""_s : basics::Stored_Date_Text(text);
    }
    Value value;
    Read(row, column, is_date, value);
    return value.Text_Or_Empty();
}

void Row_Store::Keep(std::size_t row, int column, basics::Kept_Date& into) const {
    const Cell& cell = At(row, column);
    if (cell.kind == Kind::Text)
        into.Set_Stored(Text_Of(cell));
    else
        into = Text(row, column, true);
}

int Row_Store::Compare(const Cell& left, const Cell& right) const {
    const auto kind_of_order = [](const Cell& cell) {
        return cell.kind == Kind::Number ? Kind::Whole : cell.kind;
    };
    const auto number = [](const Cell& cell) {
        return cell.kind == Kind::Whole ? static_cast<double>(cell.whole) : cell.number;
    };
    const auto in_order = [](auto one, auto other) { return one < other ? -1 : other < one ? 1 : 0; };
    const Kind kind = kind_of_order(left);
    if (kind != kind_of_order(right)) return in_order(kind, kind_of_order(right));
    if (kind == Kind::Text) return basics::Compare_Names(Text_Of(left), Text_Of(right));
    if (kind == Kind::Bytes) return Text_Of(left).compare(Text_Of(right));
    if (left.kind == Kind::Whole && right.kind == Kind::Whole) return in_order(left.whole, right.whole);
    return kind == Kind::Empty ? 0 : in_order(number(left), number(right));
}

void Row_Store::Put_In_Order(const std::vector<int>& by_columns) {
    ordered.reserve(rows);
    for (std::size_t row = 0; row < rows; ++row)
        ordered.push_back(pieces[row / Rows_Of_A_Piece].data() + row % Rows_Of_A_Piece * width);
    if (!by_columns.empty()) Sort_By(by_columns);
}

void Row_Store::Sort_By(const std::vector<int>& columns) {
    struct Row {
        const Cell* cells;
        std::size_t starts; // where those of its texts begin
    };
    std::vector<Row> sorted;
    std::vector<basics::Name_Start> starts;
    sorted.reserve(rows);
    starts.reserve(rows * columns.size());
    for (const Cell* cells : ordered) {
        sorted.push_back({cells, starts.size()});
        for (const int column : columns)
            starts.push_back(cells[column].kind == Kind::Text ? basics::Name_Start(Text_Of(cells[column]))
                                                              : basics::Name_Start());
    }
    std::stable_sort(sorted.begin(), sorted.end(), [&](const Row& left, const Row& right) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto by_start = Compare_Starts(starts[left.starts + i], starts[right.starts + i]);
            const int found = by_start ? *by_start : Compare(left.cells[columns[i]], right.cells[columns[i]]);
            if (found != 0) return found < 0;
        }
        return false;
    });
    std::transform(sorted.begin(), sorted.end(), ordered.begin(), [](const Row& row) { return row.cells; });
}

} // namespace database
