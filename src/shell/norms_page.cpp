#include "shell/norms_page.h"

#include "platform/desktop/wait_pointer.h"
#include "scoring/norm_check.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace shell {

constexpr QSize Frame_Size{1000, 556};
constexpr int Left = 24;
constexpr int Whole_Width = Frame_Size.width() - 2 * Left;

Norms_Page::Norms_Page(desktop::Platform& platform, Navigator& navigator,
                       const foundation::Installation& installation)
    : Page(platform, navigator, Frame_Size), installation(installation) {
    setObjectName(u"Norms_Page"_s);
    Lay_Out();
}

void Norms_Page::Lay_Out() {
    constexpr int row = 25;
    Make_Label(u"NormsTitle"_s, u"Norm tables"_s, Text_Role::Title, {Left, 20, 400, 38});
    digest = Make_Label(u"NormsDigest"_s, u""_s, Text_Role::Fact, {Left, 62, 440, 30});
    result = Make_Label(u"NormsResult"_s, u""_s, Text_Role::Fact, {Left + 452, 62, Whole_Width - 452, 30});
    for (QLabel* told : {digest, result})
        told->setFocusPolicy(Qt::TabFocus);
    tables = new grid::fpSpread(u"NormTables"_s, 3, 1, Frame1);
    tables->setGeometry(Left, 100, Whole_Width, 352);
    tables->setAccessibleName(u"Norm tables"_s);
    tables->verticalHeader()->setDefaultSectionSize(row);
    tables->Set_Heading_Row(row + 5);
    int column = 1;
    for (const int width : {200, 150, Whole_Width - 376})
        tables->Set_ColWidth(column++, width);
    tables->Set_Left_Aligned(3);
    HotLabel* back = Make_HotLabel(u"HotLabel1"_s, u"Settings"_s, {Left + Whole_Width - 140, 496, 140, 40},
                                   [this] { navigator.Close_Page(); });
    Help_Line* help = Make_Help(u"NormsHelp"_s, {Left, 464, Whole_Width - 160, 72}).line;
    help->Tell(back, u"Return to the Settings page"_s);
    help->Tell(
        digest,
        u"Stands for all sixteen tables: schools with the same digest go by the same norms. It is kept in "
        "the properties of each PDF."_s);
    help->Tell(result, u"How many of the tables have something that a score could stumble over"_s);
    help->Tell(tables,
               u"Each table: no gap between the ages, centiles that rise with the score, a centile for "
               "every score that can be reached, and times that fall where the centile rises."_s);
    help->Follow_Focus(*this);
}

void Norms_Page::Load() {
    tables->Set_Text(1, 1, u"Table"_s);
    tables->Set_Text(2, 1, u"Rows"_s);
    tables->Set_Text(3, 1, u"Findings"_s);
    Once_Painted(u"NormsTimer"_s, [this] { Show_Check(); });
}

void Norms_Page::Show_Check() {
    const desktop::Wait_Pointer busy(platform.pointer);
    const scoring::Norm_Check check = scoring::Check_Norms(platform, installation);
    digest->setText(u"Digest  "_s + check.digest);
    const int findings = check.Findings();
    const QString found = findings == 0 ? u"All tables are in order."_s : u"Findings: %1."_s.arg(findings);
    const QString made_up =
        scoring::Are_Practice_Norms(check.digest) ? u" Made-up norms, for practice."_s : QString();
    result->setText(found + made_up);
    tables->Set_MaxRows(1 + static_cast<int>(check.tables.size()));
    int row = 1;
    for (const scoring::Norm_Findings& table : check.tables) {
        tables->Set_Text(1, ++row, table.table);
        tables->Set_Text(2, row, table.size);
        tables->Set_Text(3, row, table.findings.isEmpty() ? u"in order"_s : table.findings.join(u' '));
    }
    tables->Fit_Rows();
}

} // namespace shell
