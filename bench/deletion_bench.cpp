#include "answering.h"
#include "console/other_ports.h"
#include "foundation/installation.h"
#include "import_bench.h"
#include "measuring.h"
#include "nowhere.h"
#include "plain_reading.h"
#include "plain_writing.h"
#include "pupils/delete_page.h"
#include "sampledb/sample_data.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace bench {
namespace {

constexpr int School = 2500;
constexpr int In_A_Selection = 100;

void Delete_Plainly(Plain_Writer& writer, const QStringList& codes) {
    for (const QString& code : codes)
        for (const QString& table :
             {u"Mevo_Pupils"_s, u"mevo_pindo_data"_s, u"mevo_friends_data"_s, u"mevo_letters_data"_s,
              u"mevo_tolvens_data"_s, u"mevo_drell_data"_s, u"mevo_mirvel_data"_s, u"mevo_karrel_data"_s,
              u"mevo_yoon_data"_s, u"mevo_bln_data"_s})
            writer.Run(u"DELETE FROM %1 WHERE studentcode = '%2'"_s.arg(table, code));
}

} // namespace

void Delete_A_School(benchmark::State& state, desktop::Platform& ports) {
    const QTemporaryDir folder;
    const QString by_page = folder.filePath(u"page.mdb"_s);
    const QString plain = folder.filePath(u"plain.mdb"_s);
    sample_data::Write_Database(by_page, {School, 1});
    if (!QFile::copy(by_page, plain)) throw std::runtime_error("can't copy the database");
    Yes_To_All boxes;
    desktop::Platform platform = console::With({.boxes = &boxes}, ports);
    foundation::Installation installation;
    installation.Connection_String = foundation::Connection_String_For(by_page);
    const auto lists = std::make_unique<scoring::Pupil_Lists>();
    const auto records = std::make_unique<pupils::Pupil_Records>();
    shell::Menu_Counts counts;
    Nowhere nowhere;
    pupils::Form9 page(platform, nowhere, {installation, *lists, *records}, counts);
    page.resize(1366, 768);
    page.Load();
    page.show();
    QApplication::processEvents();
    Plain_Writer writer(plain);
    QStringList codes;
    const auto select = [&] {
        codes.clear();
        for (int p = 1; p <= In_A_Selection; ++p)
            codes.append(lists->Student_Code[p]);
        auto* list = page.findChild<pupils::List_View*>();
        for (int i = 0; i < In_A_Selection; ++i)
            list->topLevelItem(i)->setSelected(true);
    };
    Measure_Beside(
        state, [&] { page.HotLabel2_Click(); }, [&] { Delete_Plainly(writer, codes); }, Wall_Ms, select);
    const QString all = u"SELECT * FROM Mevo_Pupils"_s;
    if (Read_Plainly(by_page, all) != Read_Plainly(plain, all))
        throw std::runtime_error("the two schools differ");
    state.SetLabel(Limit_At_Most(state, Most_Times_One_By_One));
}

} // namespace bench
