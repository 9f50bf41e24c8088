#include "pupils/prepare_page.h"

#include "pupils/import_page.h"
#include "support/files.h"
#include "support/on_windows.h"
#include "support/page_fixture.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QTableView>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace pupils {
namespace {

class Prepare : public Page_Fixture {
protected:
    // The page as it opens; what was prepared before is still there.
    std::unique_ptr<Form43> Opened() {
        auto form = std::make_unique<Form43>(outside.platform, navigator, installation, shared);
        Show_On_Screen(*form);
        form->Load();
        return form;
    }
    static shell::Click_Combo& Combo(const Form43& form, int number) {
        return Control<shell::Click_Combo>(form, u"Combo%1"_s.arg(number));
    }
    static QString Shown_Rows(const Form43& form) {
        const QAbstractItemModel& rows = *Control<QTableView>(form, u"Spread1"_s).model();
        QStringList names;
        for (int row = 0; row < rows.rowCount(); ++row)
            names.append(rows.index(row, rehearsal_column::Forename).data().toString());
        return names.join(u' ');
    }

    List_To_Import shared;
};

} // namespace

TEST_F(Prepare, RemembersColumnsByTheirHeadingsAndKeepsOrHandsOverTheList) {
    outside.clipboard.text =
        u"Surname\tGiven\tKnown as\tSex\tDOB\tClass\nAdams\tRobert\tBo\tM\t14/03/2019\tOak\n"
        "Bell\tCynthia\tCy\tF\t15/03/2019\tOak\n"_s;
    auto form = Opened();
    Click(*form, u"HotLabel3"_s);
    EXPECT_EQ(
        Caption(*form, u"Label13"_s),
        u"2 of the rows must be corrected, cured or left out first. No column is chosen for: forename."_s);
    Combo(*form, 3).Set_ListIndex(3);
    EXPECT_EQ(Shown_Rows(*form), u"Bo Cy"_s);
    shared.Forget();
    form = Opened();
    EXPECT_FALSE(Enabled(*form, u"HotLabel6"_s));
    Click(*form, u"HotLabel3"_s);
    EXPECT_EQ(Shown_Rows(*form), u"Bo Cy"_s);
    Control<QCheckBox>(*form, u"Check1"_s).click();
    const QString kept = sample.Folder() + u"/kept.txt"_s;
    outside.file_dialogs.answers = {kept};
    Click(*form, u"HotLabel5"_s);
    EXPECT_EQ(Bytes_Of(kept), "Adams,Bo,M,14/03/2019,Oak,\r\nBell,Cy,F,15/03/2019,Oak,\r\n");
    Click(*form, u"HotLabel6"_s);
    EXPECT_EQ(navigator.went_to, QList{shell::Page_Id::Import});
    const QString handed = shared.file.Name();
    EXPECT_EQ(Bytes_Of(handed), Bytes_Of(kept));
    const auto rights = QFileInfo(handed).permissions() & ~(QFile::ReadUser | QFile::WriteUser);
    EXPECT_TRUE(On_Windows || rights == (QFile::ReadOwner | QFile::WriteOwner));
    Form42 import(outside.platform, navigator, installation, shared);
    Show_On_Screen(import);
    import.Load();
    EXPECT_TRUE(Wait_Until([&] { return Enabled(import, u"HotLabel3"_s); }));
    EXPECT_EQ(Control<QLineEdit>(import, u"Text1"_s).text(), handed);
    Click(import, u"HotLabel1"_s);
    EXPECT_FALSE(QFile::exists(handed));
    EXPECT_EQ(shared.list.source, u""_s);
}

TEST_F(Prepare, FiltersRowsAndTellsWhatCannotBeRead) {
    const QString file = sample.Folder() + u"/list.xlsx"_s;
    Write_Bytes(file, Bytes_Of(QStringLiteral(MEVO_TEST_DATA) + u"/exports/workbook.xlsx"_s));
    outside.file_dialogs.answers = {file, sample.Path(), u""_s};
    const auto form = Opened();
    Click(*form, u"HotLabel2"_s);
    EXPECT_EQ(Shown_Rows(*form), u""_s);
    Combo(*form, 1).Set_ListIndex(1); // the other sheet
    EXPECT_EQ(Shown_Rows(*form), u"Seán Amelia Rose Zofia José Anna Dev"_s);
    auto& rows = *Control<QTableView>(*form, u"Spread1"_s).model();
    rows.setData(rows.index(2, rehearsal_column::Gender), u"X"_s);
    Combo(*form, 9).Set_ListIndex(2);
    EXPECT_EQ(Shown_Rows(*form), u"Zofia"_s);
    rows.setData(rows.index(0, rehearsal_column::Gender), u"girl"_s);
    EXPECT_EQ(Shown_Rows(*form), u"Seán Amelia Rose Zofia José Anna Dev"_s) << "no row of that kind is left";
    outside.boxes.Will_Answer(desktop::Answer::Ok);
    Click(*form, u"HotLabel2"_s);
    Click(*form, u"HotLabel2"_s); // cancelled
    EXPECT_EQ(outside.boxes.shown.first().text, u"This is no text and no workbook (.xlsx)."_s);
    EXPECT_EQ(rows.rowCount(), 6) << "the list that was there stays";
}

} // namespace pupils
