#include "platform/database/recordset.h"

#include "platform/database/engine_errors.h"

using namespace Qt::StringLiterals;

namespace database {

using basics::Value;

static const QString This_Object = u"Recordset"_s;

QString Field::Name() const {
    return owner.Name_Of(column);
}

Value Field::Value() const {
    return owner.Value_At(column);
}

void Field::Set_Value(const basics::Value& value) {
    owner.Assign(column, value);
}

void Recordset::Set_ActiveConnection(Connection* active) {
    if (!active || !active->Is_Open()) Raise_Object_Error(errors::Connection_Invalid, This_Object);
    connection = active;
}

void Recordset::Open() {
    if (open) Raise_Object_Error(errors::Object_Open, This_Object);
    if (!connection || !connection->Is_Open()) Raise_Object_Error(errors::Connection_Invalid, This_Object);
    const bool writes = LockType != Lock_Type::Default && LockType != Lock_Type::Read_Only;
    Take(connection->Opened().Run_Jet(Source, writes, Columns));
}

void Recordset::Open_Table(const QString& name) {
    Source = u"SELECT * FROM ["_s + name + u']';
    Open();
}

// The identity, where there is one, is the first column and not a field of the row.
void Recordset::Take(Statement_Result result) {
    open = result.Returns_Rows();
    current = 0;
    table = result.table;
    first_column = table.isEmpty() ? 0 : 1;
    shape = std::move(result.shape);
    rows = std::move(result.rows);
    written.clear();
    Forget_Assignments();
}

void Recordset::Close() {
    Require_Open();
    open = false;
    rows.reset();
    written.clear();
    Forget_Assignments();
}

bool Recordset::Eof() const {
    Require_Open();
    return current >= rows->Row_Count();
}

void Recordset::MoveFirst() {
    Require_Open();
    Forget_Assignments();
    if (rows->Row_Count() == 0) Raise_Object_Error(errors::No_Current_Record, This_Object);
    current = 0;
}

void Recordset::MoveNext() {
    Require_Row();
    Forget_Assignments();
    ++current;
}

int Recordset::Field_Count() const {
    Require_Open();
    return shape->Column_Count() - first_column;
}

int Recordset::Column_Of(const QString& name) const {
    Require_Open();
    const auto found = shape->columns.find(name);
    return found == shape->columns.end() ? -1 : found->second - first_column;
}

bool Recordset::Is_As_Stored() const {
    return open && !adding && assigned.empty() && written.empty() && current < rows->Row_Count();
}

Value Recordset::Checked_Value(int column) const {
    if (column < 0 || column >= Field_Count()) Raise_Object_Error(errors::No_Such_Field, This_Object);
    return Value_At(column);
}

void Recordset::Read(int column, Value& into) const {
    const int place = column + first_column;
    if (Is_As_Stored() && column >= 0 && place < shape->Column_Count())
        rows->Read(current, place, shape->Is_Date(place), into);
    else
        into = Checked_Value(column);
}

const Row_Store& Recordset::Stored_Rows() const {
    Require_Open();
    return *rows;
}

int Recordset::Stored_Place(const QString& name) const {
    const int column = Column_Of(name);
    if (column < 0) Raise_Object_Error(errors::No_Such_Field, This_Object);
    return column + first_column;
}

Field Recordset::Fields(const QString& name) {
    return Fields(Column_Of(name));
}

Field Recordset::Fields(int column) {
    if (column < 0 || column >= Field_Count()) Raise_Object_Error(errors::No_Such_Field, This_Object);
    return Field(*this, column);
}

void Recordset::AddNew() {
    Require_Open();
    if (table.isEmpty()) Raise_Object_Error(errors::Not_Updatable, This_Object);
    Forget_Assignments();
    adding = true;
}

void Recordset::Update() {
    Require_Open();
    if (adding)
        Insert_Row();
    else if (!assigned.empty())
        Update_Row();
    Forget_Assignments();
}

void Recordset::Require_Open() const {
    if (!open) Raise_Object_Error(errors::Object_Closed, This_Object);
}

void Recordset::Require_Row() const {
    Require_Open();
    if (current >= rows->Row_Count()) Raise_Object_Error(errors::No_Current_Record, This_Object);
}

void Recordset::Forget_Assignments() {
    adding = false;
    assigned.clear();
}

Value Recordset::Value_At(int column) const {
    for (auto kept = assigned.rbegin(); kept != assigned.rend(); ++kept)
        if (kept->first == column) return kept->second;
    if (adding) return {};
    Require_Row();
    if (const auto found = written.find({current, column}); found != written.end()) return found->second;
    const int place = column + first_column;
    Value value;
    rows->Read(current, place, shape->Is_Date(place), value);
    return value;
}

void Recordset::Assign(int column, const Value& value) {
    if (table.isEmpty()) Raise_Object_Error(errors::Not_Updatable, This_Object);
    if (!adding) Require_Row();
    std::erase_if(assigned, [column](const auto& kept) { return kept.first == column; });
    assigned.emplace_back(column, value);
}

void Recordset::Insert_Row() {
    QStringList into;
    QStringList marks;
    std::vector<Value> values;
    for (const auto& [column, value] : assigned) {
        into.append(Quoted(Name_Of(column)));
        marks.append(u"?"_s);
        values.push_back(value);
    }
    const QString content = into.isEmpty()
                                ? u" DEFAULT VALUES"_s
                                : u" ("_s + into.join(u", "_s) + u") VALUES ("_s + marks.join(u", "_s) + u')';
    connection->Opened().Run(u"INSERT INTO "_s + table + content, values);
}

void Recordset::Update_Row() {
    Require_Row();
    QStringList set;
    std::vector<Value> values;
    for (const auto& [column, value] : assigned) {
        set.append(Quoted(Name_Of(column)) + u" = ?"_s);
        values.push_back(value);
    }
    rows->Read(current, 0, false, values.emplace_back());
    const int affected =
        connection->Opened()
            .Run(u"UPDATE "_s + table + u" SET "_s + set.join(u", "_s) + u" WHERE rowid = ?"_s, values)
            .affected;
    if (affected == 0)
        Raise_Engine_Error(errors::Row_Has_Gone,
                           u"Row cannot be located for updating. "
                           "Some values may have been changed since it was last read."_s);
    for (const auto& [column, value] : assigned)
        written[{current, column}] = value;
}

} // namespace database
