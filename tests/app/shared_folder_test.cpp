// What leaves the program lies where the user put it: never in the school's shared folder unasked.

#include "app/running_program.h"
#include "shell/conventions/click_combo.h"
#include "support/files.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

// A page that prints, and the way to it from the Main menu. What leads to no page has no name of one.
struct Place_To_Print {
    QList<std::pair<QString, QString>> way;
    QString print = u"HotLabel2"_s;
    bool asks_first = true; // the previews show no printer dialog
    bool tells = false;     // that it was printed
};

const std::pair<QString, QString> Reports{u"HotLabel1"_s, u"Form30"_s};

const Place_To_Print Places[] = {
    {{Reports, {u"HotLabel7"_s, {}}}, u"PrintIcon"_s},
    {{Reports, {u"BtnEnh11"_s, {}}}, u"PrintIcon"_s},
    {{Reports, {u"EarlierResults"_s, u"Earlier_Page"_s}}},
    {{Reports, {u"HotLabel4"_s, u"Form94"_s}}, u"HotLabel2"_s, false},
    {{Reports, {u"HotLabel6"_s, u"Form92"_s}, {u"HotLabel7"_s, {}}, {u"HotLabel9"_s, {}}},
     u"HotLabel2"_s,
     false},
    {{Reports, {u"WhyEntry"_s, {}}, {u"WhyPrint"_s, u"Why_Report"_s}}, u"HotLabel2"_s, false},
    {{{u"HotLabel14"_s, u"Form2"_s}, {u"LoginCards"_s, u"Login_Cards"_s}}, u"HotLabel2"_s, false},
    {{{u"HotLabel7"_s, u"Form14"_s}, {u"TickList"_s, u"Tick_List"_s}}, u"HotLabel2"_s, false},
    {{{u"HotLabel5"_s, u"Form15"_s}, {u"AllData"_s, u"Whole_Data_Page"_s}}, u"HotLabel2"_s, false},
    {{{u"HotLabel7"_s, u"Form14"_s}}, u"HotLabel2"_s, true, true},
    {{{u"HotLabel14"_s, u"Form2"_s}}, u"HotLabel2"_s, true, true},
    {{{u"HotLabel2"_s, u"Form42"_s}, {u"PreviewImport"_s, {}}}, u"HotLabel4"_s, true, true},
    {{{u"HotLabel6"_s, u"Form20"_s}, {u"ChangesEntry"_s, u"Changes_Page"_s}}},
};

class Shared_Folder : public testing::TestWithParam<Place_To_Print>, public Running_Program {
protected:
    void SetUp() override {
        outside.folders.own_documents = own.path();
        Write_Bytes(own.filePath(u"class.txt"_s), "Ashdown,Ella,female,14/03/2019,Class 1 Oak,\r\n");
        outside.file_dialogs.answers = {own.filePath(u"class.txt"_s)}; // where a way asks for one
        Start();
        for (const auto& [entry, form] : GetParam().way) {
            Click(Page(), entry);
            if (!form.isEmpty()) Follow_To(form);
            if (form == "Form30"_L1) Control<shell::Click_Combo>(Page(), u"Combo1"_s).Set_ListIndex(1);
        }
        outside.file_dialogs.answers.clear();
        outside.file_dialogs.asked.clear();
    }

    void Expect_Out(const QString& entry, bool told) {
        if (told) outside.boxes.Will_Answer(desktop::Answer::Ok);
        Click(Page(), entry);
        outside.boxes.Expect_All_Asked();
    }

    // All files but the list of changes, which notes that a batch was printed.
    QStringList Files() const {
        QStringList names;
        QDirIterator files(sample.Folder(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext())
            if (!files.next().contains(u"Mevo05Changes"_s)) names.append(files.filePath());
        names.sort();
        return names;
    }

    const QTemporaryDir own;
};

} // namespace

TEST_P(Shared_Folder, HoldsOnlyWhatWasPutThere) {
    const Place_To_Print& place = GetParam();
    const QStringList before = Files();
    const QString pdf = own.filePath(u"chosen.pdf"_s);
    for (const bool set_up : {true, false}) {
        SCOPED_TRACE(set_up ? "with a printer" : "without a printer");
        outside.printers.is_set_up = set_up;
        outside.printers.cancelled = true;
        Expect_Out(u"SaveAsPdf"_s, false); // both dialogs are cancelled
        if (!set_up || place.asks_first) Expect_Out(place.print, false);
        outside.printers.cancelled = false;
        outside.file_dialogs.answers = {pdf};
        Expect_Out(place.print, place.tells);
        EXPECT_EQ(QFile::remove(pdf), !set_up);
        EXPECT_EQ(outside.printers.printed.size(), 1);
        EXPECT_EQ(Files(), before);
    }
    for (const desktop::File_Question& question : outside.file_dialogs.asked) {
        EXPECT_EQ(question.folder, own.path());
        EXPECT_TRUE(question.file_name.endsWith(u".pdf"_s));
    }
    const QString chosen = sample.Folder() + u"/chosen.pdf"_s;
    outside.file_dialogs.answers = {chosen};
    Expect_Out(u"SaveAsPdf"_s, false);
    EXPECT_EQ(Files().size(), before.size() + 1);
    EXPECT_TRUE(Bytes_Of(chosen).startsWith("%PDF-1.4"));
}

INSTANTIATE_TEST_SUITE_P(AllThatPrint, Shared_Folder, testing::ValuesIn(Places),
                         [](const auto& place) { return std::to_string(place.index); });
