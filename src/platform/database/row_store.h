#pragma once

#include "platform/basics/kept_date.h"
#include "platform/basics/value.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3_stmt;

namespace database {

// Names of columns are the same in any case.
struct Any_Case_Hash {
    std::size_t operator()(const QString& name) const;
};
struct Any_Case_Equal {
    bool operator()(const QString& left, const QString& right) const {
        return left.compare(right, Qt::CaseInsensitive) == 0;
    }
};

// What all rows of a statement share: asked once when it is prepared.
struct Row_Shape {
    explicit Row_Shape(sqlite3_stmt* statement);

    QStringList names;
    std::unordered_map<QString, int, Any_Case_Hash, Any_Case_Equal> columns; // the last of a name counts
    std::vector<bool> is_date;

    int Column_Count() const { return static_cast<int>(names.size()); }
    bool Is_Date(int column) const { return is_date[static_cast<std::size_t>(column)]; }
};

// The rows of a query as the engine gave them. A cell becomes a value when it is asked for: of a wide row a
// pass reads few, and copying bytes costs next to nothing.
class Row_Store {
public:
    void Take_Row(sqlite3_stmt* statement, int columns);
    void Clear(); // keeps its room
    // When all are taken, and before one is read. They are sorted by these columns, the first goes first, in
    // the order that the engine gives mixed values and the program texts; rows that are the same there stay
    // in the order in which they came.
    void Put_In_Order(const std::vector<int>& by_columns);

    std::size_t Row_Count() const { return rows; }
    void Read(std::size_t row, int column, bool is_date, basics::Value& into) const;
    // None for what is stored as anything else.
    std::optional<qint64> Whole(std::size_t row, int column) const {
        const Cell& cell = At(row, column);
        return cell.kind == Kind::Whole ? std::optional(cell.whole) : std::nullopt;
    }
    QString Text(std::size_t row, int column, bool is_date) const;         // Text_Or_Empty of what Read gives
    void Keep(std::size_t row, int column, basics::Kept_Date& into) const; // that text, of a date

private:
    enum class Kind : quint8 { Empty, Whole, Number, Text, Bytes };
    struct Cell {
        union {
            qint64 whole = 0;
            double number;
            std::size_t start; // of a text in `texts`
        };
        int size = 0; // of a text, in bytes
        Kind kind = Kind::Empty;
    };

    const Cell& At(std::size_t row, int column) const { return ordered[row][column]; }
    std::string_view Text_Of(const Cell& cell) const {
        return std::string_view(texts).substr(cell.start, static_cast<std::size_t>(cell.size));
    }
    Cell* New_Row();
    void Take_Bytes(const void* bytes, int size, Kind kind, Cell& cell);
    void Sort_By(const std::vector<int>& columns);
    int Compare(const Cell& left, const Cell& right) const;

    static constexpr std::size_t Rows_Of_A_Piece = 128;

    std::size_t width = 0;
    std::size_t rows = 0;
    std::vector<std::vector<Cell>>
        pieces;                       // of row after row, as they came; a school's never move as they grow
    std::vector<const Cell*> ordered; // where each row begins there, in their order
    std::string texts;                // in UTF-8, one behind the other
};

} // namespace database
