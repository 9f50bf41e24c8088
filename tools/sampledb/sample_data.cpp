#include "sampledb/sample_data.h"

#include "foundation/schema.h"
#include "sampledb/memory_database.h"
#include "sampledb/sample_norms.h"
#include "sampledb/sample_pupils.h"

using namespace Qt::StringLiterals;

namespace sample_data {

namespace {

const QStringList& Class_Groups() {
    static const QStringList groups = {u"Class 1 Oak"_s, u"Class 2 Ash"_s, u"Mrs O'Hara's class"_s,
                                       u"Reception"_s};
    return groups;
}

void Create_Tables(Memory_Database& database) {
    for (const foundation::Table& table : foundation::Database_Tables())
        database.Execute(foundation::Create_Table_Statement(table));
}

// A row of another product stands first: the suite's products share this table.
void Fill_Customer(Memory_Database& database, const QString& customer) {
    database.Insert(u"Customer_Details"_s,
                    {u"SAMPLE"_s, u"2.03"_s, customer, u"Hillside Infants"_s, u"other"_s});
    database.Insert(u"Customer_Details"_s, {u"MEVO"_s, u"5.11"_s, customer, customer, u"admin"_s});
}

void Fill_Template(Memory_Database& database, quint32 seed, const QString& school) {
    Create_Tables(database);
    Fill_Customer(database, school);
    Fill_Norms(database, seed);
    database.Insert(u"Mevo_Groups"_s, {1, u"Universal"_s, 0, 1, u""_s});
}

void Fill_Groups(Memory_Database& database) {
    int id = 1;
    for (const QString& name : Class_Groups()) {
        ++id;
        database.Insert(u"Mevo_Groups"_s, {id, name, id % 2, 1, u""_s});
    }
}

} // namespace

void Write_Template(const QString& file, quint32 seed, const QString& school) {
    Memory_Database database;
    Fill_Template(database, seed, school);
    database.Save_As(file);
}

void Write_Database(const QString& file, const Options& options) {
    Memory_Database database;
    database.Execute(u"BEGIN"_s);
    Fill_Template(database, options.seed, options.school);
    Fill_Groups(database);
    Fill_Pupils(database, QStringList{u"Universal"_s} + Class_Groups(), options);
    database.Execute(u"COMMIT"_s);
    database.Save_As(file);
}

} // namespace sample_data
