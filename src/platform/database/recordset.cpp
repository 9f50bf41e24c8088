#include "platform/database/recordset.h"

#include "platform/database/engine_errors.h"
#include "platform/database/jet_sql.h"

using namespace Qt::StringLiterals;

namespace database {

using basics::Value;

static const QString This_Object = u"Recordset"_s;

QString Field::Name() const {
    return owner.names[column];
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
    const Translated_Statement statement = Translate_Jet(Source);
    const bool writes = LockType != Lock_Type::Default && LockType != Lock_Type::Read_Only;
    const bool with_identity = writes && !statement.table.isEmpty();
    Take(connection->Run(with_identity ? statement.with_row_identity : statement.sql), with_identity);
    if (with_identity) table = statement.table;
}

void Recordset::Open_Table(const QString& name) {
    Source = u"SELECT * FROM ["_s + name + u']';
    Open();
}

// The identity, where there is one, is the first column and not a field of the row.
void Recordset::Take(Connection::Rows taken, bool with_identity) {
    open = taken.returns_rows;
    current = 0;
    table.clear();
    identities.clear();
    columns.clear();
    Forget_Assignments();
    names = taken.names;
    rows = std::move(taken.rows);
    if (with_identity) {
        names.removeFirst();
        identities.reserve(rows.size());
        for (auto& row : rows) {
            identities.push_back(row.front());
            row.erase(row.begin());
        }
    }
    for (int column = 0; column < names.size(); ++column)
        columns.insert(names[column].toLower(), column);
}

void Recordset::Close() {
    Require_Open();
    open = false;
    rows.clear();
    identities.clear();
    Forget_Assignments();
}

bool Recordset::Eof() const {
    Require_Open();
    return current >= rows.size();
}

void Recordset::MoveFirst() {
    Require_Open();
    Forget_Assignments();
    if (rows.empty()) Raise_Object_Error(errors::No_Current_Record, This_Object);
    current = 0;
}

void Recordset::MoveNext() {
    Require_Row();
    Forget_Assignments();
    ++current;
}

int Recordset::Field_Count() const {
    Require_Open();
    return static_cast<int>(names.size());
}

Field Recordset::Fields(const QString& name) {
    Require_Open();
    const auto found = columns.constFind(name.toLower());
    if (found == columns.cend()) Raise_Object_Error(errors::No_Such_Field, This_Object);
    return Field(*this, *found);
}

Field Recordset::Fields(int column) {
    Require_Open();
    if (column < 0 || column >= names.size()) Raise_Object_Error(errors::No_Such_Field, This_Object);
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
    if (current >= rows.size()) Raise_Object_Error(errors::No_Current_Record, This_Object);
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
    return rows[current][static_cast<std::size_t>(column)];
}

void Recordset::Assign(int column, const Value& value) {
    if (table.isEmpty()) Raise_Object_Error(errors::Not_Updatable, This_Object);
    if (!adding) Require_Row();
    std::erase_if(assigned, [column](const auto& kept) { return kept.first == column; });
    assigned.emplace_back(column, value);
}

static QString Quoted(QString name) {
    return u'"' + name.replace(u"\""_s, u"\"\""_s) + u'"';
}

void Recordset::Insert_Row() {
    QStringList into;
    QStringList marks;
    std::vector<Value> values;
    for (const auto& [column, value] : assigned) {
        into.append(Quoted(names[column]));
        marks.append(u"?"_s);
        values.push_back(value);
    }
    const QString content = into.isEmpty()
                                ? u" DEFAULT VALUES"_s
                                : u" ("_s + into.join(u", "_s) + u") VALUES ("_s + marks.join(u", "_s) + u')';
    connection->Run(u"INSERT INTO "_s + table + content, values);
}

void Recordset::Update_Row() {
    Require_Row();
    QStringList set;
    std::vector<Value> values;
    for (const auto& [column, value] : assigned) {
        set.append(Quoted(names[column]) + u" = ?"_s);
        values.push_back(value);
    }
    values.push_back(identities[current]);
    const int affected =
        connection->Run(u"UPDATE "_s + table + u" SET "_s + set.join(u", "_s) + u" WHERE rowid = ?"_s, values)
            .affected;
    if (affected == 0)
        Raise_Engine_Error(errors::Row_Has_Gone,
                           u"Row cannot be located for updating. "
                           "Some values may have been changed since it was last read."_s);
    for (const auto& [column, value] : assigned)
        rows[current][static_cast<std::size_t>(column)] = value;
}

} // namespace database
