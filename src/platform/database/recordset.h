#pragma once

#include "platform/database/connection.h"

#include <QString>
#include <map>
#include <memory>
#include <vector>

namespace database {

enum class Lock_Type { Default = 0, Read_Only = 1, Pessimistic = 2, Optimistic = 3, Batch_Optimistic = 4 };

class Recordset;

// One column of the current row. Setting a value is kept until the recordset's Update.
class Field {
public:
    QString Name() const;
    basics::Value Value() const;
    void Set_Value(const basics::Value& value);

private:
    friend class Recordset;
    Field(Recordset& owner, int column) : owner(owner), column(column) {}
    Recordset& owner;
    int column;
};

// The rows of one query, walked forwards and rewound by MoveFirst. The rows are read when it opens, so that
// no lock stays on the file while a page works through them.
class Recordset {
public:
    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    Lock_Type LockType = Lock_Type::Default;
    QString Source;
    // Of a table's whole rows that are sorted: those that are read, where not all are. The others may be as
    // if the table didn't have them.
    QStringList Columns;
    void Set_ActiveConnection(Connection* connection); // must be open

    void Open();                          // runs Source; an action statement leaves the recordset closed
    void Open_Table(const QString& name); // the whole table by its name, for walking its columns
    void Close();
    bool Is_Open() const { return open; }

    bool Eof() const; // behind the last row
    void MoveFirst(); // error 3021 if there is no row
    void MoveNext();

    int Field_Count() const;
    // The place of the column of this name, without regard to case; -1 if there is none. It holds for all
    // recordsets of the same shape, so that a caller who reads many rows looks it up once.
    int Column_Of(const QString& name) const;
    // The column's value in the current row, put where the caller keeps it; a column that isn't there is
    // error 3265.
    void Read(int column, basics::Value& into) const;
    // The rows as they were read, whatever was assigned or written since, and the place of a column in these;
    // error 3265 for one that isn't there.
    const Row_Store& Stored_Rows() const;
    int Stored_Place(const QString& name) const;
    const std::shared_ptr<const Row_Shape>& Shape() const { return shape; }
    Field Fields(const QString& name); // without regard to case
    Field Fields(int column);          // from 0

    void AddNew(); // a new row, stored by Update
    void Update(); // writes the fields that were assigned, to this row and no other

private:
    friend class Connection;
    friend class Field;

    void Take(Statement_Result result);
    void Require_Open() const;
    void Require_Row() const;
    bool Is_As_Stored() const; // a row, and nothing was assigned or written that hides what was read
    basics::Value Checked_Value(int column) const;
    const QString& Name_Of(int column) const { return shape->names[column + first_column]; }
    basics::Value Value_At(int column) const;
    void Assign(int column, const basics::Value& value);
    void Forget_Assignments();
    void Insert_Row();
    void Update_Row();

    Connection* connection = nullptr;
    bool open = false;
    bool adding = false;
    QString table;        // empty: can't be written
    int first_column = 0; // 1 where the row's identity comes before its fields
    std::shared_ptr<const Row_Shape> shape;
    std::shared_ptr<const Row_Store> rows;
    std::map<std::pair<std::size_t, int>, basics::Value> written; // by row and column: what Update stored
    std::size_t current = 0;
    std::vector<std::pair<int, basics::Value>> assigned;
};

} // namespace database
