#include "pupils/import_page.h"
#include "pupils/page_parts.h"

using namespace Qt::StringLiterals;

namespace pupils {

using shell::Text_Role;

constexpr QSize Frame_Size{1080, 560};
constexpr int Left = 16;
constexpr int Whole_Width = 1048;
constexpr int Menu_Left = 924;

Form42::Form42(desktop::Platform& platform, shell::Navigator& navigator,
               const foundation::Installation& installation, List_To_Import& prepared)
    : Page(platform, navigator, Frame_Size),
      installation(installation),
      prepared(prepared),
      maker(platform, installation) {
    setObjectName(u"Form42"_s);
    setWindowTitle(u"Import a fixed format comma-seperated file into Mevo"_s);
    Lay_Out();
    Tell_Helps();
}

void Form42::Lay_Out() {
    constexpr int row = 90;
    constexpr int height = 40;
    Make_Label(u"Label1"_s, u"Import new individuals using a special text file"_s, Text_Role::Title,
               {Left, 16, Whole_Width - 180, 40});
    Make_Label(u"Label2"_s, windowTitle(), Text_Role::Subtitle, {Left, 56, Whole_Width - 180, 24});
    PreviewImport = Make_HotLabel(u"PreviewImport"_s, u"Preview file"_s, {Left, row, 150, height},
                                  [this] { PreviewImport_Click(); });
    Text1 = Make_Entry(u"Text1"_s, u"File to import"_s, {Left + 162, row, 586, height}, Frame1);
    Text1->setReadOnly(true);
    Text1->setAccessibleDescription(u"The file that was previewed last."_s);
    HotLabel3 = Make_HotLabel(u"HotLabel3"_s, u"Import all "_s, {Left + 760, row, 138, height},
                              [this] { HotLabel3_Click(); });
    HotLabel4 = Make_HotLabel(u"HotLabel4"_s, u"Print out"_s, {Left + 910, row, 138, height},
                              [this] { HotLabel4_Click(); });
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {Menu_Left, 504, 140, height},
                              [this] { HotLabel1_Click(); });
    HotLabel3->Set_Weight(shell::HotLabel::Weight::Primary);
    Lay_Out_Grid();
    ProgressBar1 = new shell::Work_Bar(platform, u"ProgressBar1"_s, u"Progress of the import"_s,
                                       {Left, 474, Whole_Width, 20}, Frame1);
    Label3 = Make_Help_Label(u"Label3"_s, {Left, 500, Menu_Left - 164 - Left, 44}, Frame1);
    // Made last, so that the others keep their letters.
    HotLabel5 = Make_HotLabel(u"HotLabel5"_s, u"Prepare a file..."_s,
                              {Left + Whole_Width - 168, 30, 168, height}, [this] { HotLabel5_Click(); });
    SaveAsPdf = Make_HotLabel(u"SaveAsPdf"_s, u"Save as PDF..."_s, {Menu_Left - 152, 504, 140, height},
                              [this] { SaveAsPdf_Click(); });
    setTabOrder(HotLabel4, SaveAsPdf);
    Offer_Import(false);
}

// What is narrower on screen than on paper leaves room for the bar beside the rows.
constexpr int On_Screen(int width) {
    return width * 23 / 25;
}

// The column that always reads the same gives its room to the marks of the rows.
void Form42::Set_User_Id_Width(int less) {
    constexpr int column = 5;
    constexpr int width = 158;
    Spread1->Set_ColWidth(column, width);
    Spread1->Narrow_On_Screen(column, On_Screen(width) - less);
}

void Form42::Lay_Out_Grid() {
    struct Column {
        QString heading;
        int width;
    };
    const Column columns[] = {
        {u"Surname"_s, 200}, {u"Forename(s)"_s, 200},   {u"Gender"_s, 80},    {u"Date of Birth"_s, 120},
        {u"User ID"_s, 158}, {u"Group / Class"_s, 190}, {u"Password"_s, 170},
    };
    Spread1 = new grid::fpSpread(u"Spread1"_s, static_cast<int>(std::size(columns)),
                                 grid::fpSpread::Rows_As_Written, Frame1);
    Spread1->setAccessibleName(u"Preview of the individuals to import"_s);
    Spread1->setAccessibleDescription(u"One row for each line of the file."_s);
    Spread1->setGeometry(Left, 142, Whole_Width, 324);
    int number = 0;
    for (const Column& column : columns) {
        Spread1->Set_Text(++number, 0, column.heading);
        Spread1->Set_ColWidth(number, column.width);
        Spread1->Narrow_On_Screen(number, On_Screen(column.width));
    }
    for (const int text_column : {1, 2, 6, 7})
        Spread1->Set_Left_Aligned(text_column);
    shell::On(Spread1->selectionModel(), &QItemSelectionModel::currentChanged, this, platform,
              [this] { Tell_Mark(); });
}

void Form42::Tell_Helps() {
    auto* help = Help_In(Label3, this);
    help->Tell(HotLabel1, u"Return to Main Menu"_s);
    help->Tell(
        HotLabel3,
        u"If you have previewed an import file and wish to proceed and import the individuals' details please select 'Import individuals'"_s);
    help->Tell(
        HotLabel4,
        u"Print out the contents of the spreadsheet that previews the information you would like to import."_s);
    help->Tell(SaveAsPdf, u"Save the contents of the spreadsheet in a PDF file, where you choose."_s);
    help->Tell(
        PreviewImport,
        u"Preview allows you to do a dry run and check that the import file is in the correct format."_s);
    help->Tell(HotLabel5, u"Any other list of pupils: with headings, in another order, or a workbook. It is "
                          u"prepared on a page of "
                          u"its own, and comes back here."_s);
    help->Follow_Focus(*this);
}

} // namespace pupils
