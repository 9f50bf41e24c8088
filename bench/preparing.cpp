// Preparing a school's list on a school that is full already: from the file to the rehearsal on the page.

#include "answering.h"
#include "console/other_ports.h"
#include "full_school.h"
#include "measuring.h"
#include "pupils/import/import_file.h"
#include "pupils/prepare_page.h"

#include <QApplication>
#include <QFile>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr double Longest_Rehearsal_Ms = 1000;

void Write_List(const QString& name, int pupils) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("can't write the list");
    file.write("UPN;Pupil name;Sex;Date of birth;Reg group;Address\n");
    for (int i = 0; i < pupils; ++i)
        file.write(
            u"H%1;\"Surname%1, Forename\";female;%2/%3/2019;Class %4;\"%1 Hill Road, Hillside\"\n"_s.arg(i)
                .arg(1 + i % 28)
                .arg(1 + i % 12)
                .arg(i % 40)
                .toUtf8());
}

void Read_Lines_Plainly(const QString& name) {
    const QString text = pupils::Decoded_Import_Text(pupils::Read_Import_File(name));
    for (pupils::Line_Reader reader(text); !reader.At_End();)
        benchmark::DoNotOptimize(pupils::Import_Fields(reader.Next_Line()));
}

void Prepare_A_List(benchmark::State& state, Full_School& school) {
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"list.csv"_s);
    Write_List(name, school.size);
    Yes_To_All boxes;
    One_File file_dialogs(name);
    desktop::Platform platform =
        console::With({.boxes = &boxes, .file_dialogs = &file_dialogs}, school.platform);
    Nowhere nowhere;
    pupils::List_To_Import shared;
    pupils::Form43 page(platform, nowhere, school.installation, shared);
    page.resize(1366, 768);
    page.show();
    const double mean_ms = Measure_Beside(
        state,
        [&] {
            page.Load();
            page.HotLabel2_Click();
            QApplication::processEvents();
        },
        [&] { Read_Lines_Plainly(name); }, Processor_Ms, [&] { shared.Forget(); });
    if (pupils::Drafts(shared.list).size() != school.size)
        throw std::runtime_error("the list wasn't read whole");
    state.SetLabel(Limit_Below(mean_ms, Longest_Rehearsal_Ms));
}

} // namespace

void Register_Preparing(Full_School& school) {
    school.Register("prepare_a_list", Prepare_A_List);
}

} // namespace bench
