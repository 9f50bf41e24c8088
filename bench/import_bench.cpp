#include "import_bench.h"

#include "answering.h"
#include "console/other_ports.h"
#include "foundation/installation.h"
#include "measuring.h"
#include "nowhere.h"
#include "plain_reading.h"
#include "plain_writing.h"
#include "pupils/import_page.h"
#include "pupils/new_pupil.h"
#include "sampledb/sample_data.h"

#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr int In_A_Class = 100;

// Three letters that no other pupil's surname begins with, so that no two codes can be the same.
QString Own_Letters(int i) {
    constexpr int alphabet = 26;
    QString letters;
    for (int rest = i; letters.size() < 3; rest /= alphabet)
        letters += QChar(u'A' + rest % alphabet);
    return letters;
}

// Names, a group and a date as a school's file would have them.
QStringList Fields_Of_Pupil(int i) {
    const QString number = QString::number(i);
    return {Own_Letters(i) + u"son"_s,    u"Forename"_s + number,
            i % 2 == 0 ? u"F"_s : u"M"_s, u"14/03/03"_s,
            u"Class %1"_s.arg(i % 40),    i % 3 == 0 ? u"pass"_s + number : u""_s};
}

// The statements of one pupil: their row, their data rows, and the question whether there is their group.
struct Statements {
    QStringList of_the_pupil;
    QString group_test;
    QString new_group;
};

Statements Statements_Of_Pupil(int i) {
    const QStringList fields = Fields_Of_Pupil(i);
    const QString code = Own_Letters(i) + u"FOR417QXZ"_s;
    Statements statements{{pupils::New_Pupil_Statement(fields, code)},
                          pupils::Group_Test_Statement(fields[4]),
                          pupils::New_Group_Statement(fields[4])};
    for (const QString& test : {u"pindo"_s, u"friends"_s, u"letters"_s, u"tolvens"_s, u"drell"_s, u"mirvel"_s,
                                u"karrel"_s, u"yoon"_s, u"bln"_s})
        statements.of_the_pupil.append(
            u"INSERT INTO mevo_%1_data (studentcode) VALUES ('%2') "_s.arg(test, code));
    return statements;
}

// Two equal schools without pupils, one for each way, and the class lists to import.
class Two_Schools {
public:
    Two_Schools() {
        sample_data::Write_Template(Imported(), 1);
        if (!QFile::copy(Imported(), Plain())) throw std::runtime_error("can't copy the database");
    }

    QString Imported() const { return folder.filePath(u"imported.mdb"_s); }
    QString Plain() const { return folder.filePath(u"plain.mdb"_s); }
    QString List_File() const { return folder.filePath(u"pupils.txt"_s); }
    void Write_List(int first) const {
        QFile list(List_File());
        if (!list.open(QIODevice::WriteOnly)) throw std::runtime_error("can't write the list");
        for (int i = first; i < first + In_A_Class; ++i)
            list.write(Fields_Of_Pupil(i).join(u',').toUtf8() + "\r\n");
    }
    void Require_Equal_Rows() const {
        for (const QString& table : {u"Mevo_Pupils"_s, u"Mevo_BLN_data"_s, u"Mevo_Groups"_s}) {
            const QString all = u"SELECT * FROM "_s + table;
            if (Read_Plainly(Imported(), all) != Read_Plainly(Plain(), all))
                throw std::runtime_error("the two schools differ in " + table.toStdString());
        }
    }

private:
    QTemporaryDir folder;
};

} // namespace

void Import_A_School(benchmark::State& state, desktop::Platform& ports) {
    const Two_Schools schools;
    Yes_To_All boxes;
    One_File file_dialogs(schools.List_File());
    desktop::Platform platform = console::With({.boxes = &boxes, .file_dialogs = &file_dialogs}, ports);
    foundation::Installation installation;
    Nowhere nowhere;
    pupils::List_To_Import prepared;
    pupils::Form42 page(platform, nowhere, installation, prepared);
    page.resize(1366, 768);
    page.show();
    installation.Connection_String = foundation::Connection_String_For(schools.Imported());
    Plain_Writer writer(schools.Plain());
    int first = -In_A_Class;
    QList<Statements> statements;
    const auto make_ready = [&] {
        first += In_A_Class;
        schools.Write_List(first);
        page.PreviewImport_Click();
        statements.clear();
        for (int i = first; i < first + In_A_Class; ++i)
            statements.append(Statements_Of_Pupil(i));
    };
    const auto write_plainly = [&] {
        for (const Statements& pupil : statements) {
            for (const QString& statement : pupil.of_the_pupil)
                writer.Run(statement);
            if (writer.Run(pupil.group_test) == 0) writer.Run(pupil.new_group);
        }
    };
    Measure_Beside(
        state, [&] { page.HotLabel3_Click(); }, write_plainly, Wall_Ms, make_ready);
    schools.Require_Equal_Rows();
    state.SetLabel(Limit_At_Most(state, Most_Times_One_By_One));
}

} // namespace bench
