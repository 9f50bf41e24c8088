#include "shell/settings.h"

#include "shell/conventions/utilities.h"

#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace shell {

using desktop::Answer;
using desktop::Box_Style;

constexpr QSize Frame_Size{760, 440};
constexpr int Left = 36;
constexpr int Whole_Width = 688;

static const QString Flash_Download_Page = u"https://get.adobe.com/flashplayer/"_s;

Form20::Form20(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation)
    : Page(platform, navigator, Frame_Size), installation(installation), holder(platform) {
    setObjectName(u"Form20"_s);
    Lay_Out();
    Tell_Helps();
}

void Form20::Lay_Out() {
    Make_Label(u"Label10"_s, u"Settings Page"_s, Text_Role::Title, {Left, 24, Whole_Width, 44});
    const auto framed = [this](const QString& frame_name, const QString& caption, const QString& name,
                               const QRect& place) {
        auto* frame = new QGroupBox(caption, Frame1);
        frame->setObjectName(frame_name);
        frame->setGeometry(place);
        QLabel* shown = Make_Label(name, u""_s, Text_Role::Fact, {10, 36, place.width() - 20, 36}, frame);
        shown->setFocusPolicy(Qt::TabFocus); // so that the keys reach what the help line has to tell of it
        return shown;
    };
    lblVersion =
        framed(u"Frame2"_s, u"Software version"_s, u"lblVersion"_s, {Left, 88, Whole_Width / 2 - 8, 84});
    lblFlashVersion = framed(u"Frame3"_s, u"Adobe Flash ® Player version"_s, u"lblFlashVersion"_s,
                             {Left + Whole_Width / 2 + 8, 88, Whole_Width / 2 - 8, 84});
    HotLabel2 = Make_HotLabel(
        u"HotLabel2"_s, u"Change password"_s, {Left, 196, Whole_Width / 2 - 8, 56},
        [this] { HotLabel2_Click(); }, HotLabel::Look::Entry);
    HotLabel2->Set_Weight(HotLabel::Weight::Primary);
    NormTables = Make_HotLabel(u"NormTables"_s, u"Norm tables"_s, {Left + Whole_Width / 2 + 8, 204, 180, 40},
                               [this] { navigator.Open_On_Top(Page_Id::Norms); });
    ChangesEntry = Make_HotLabel(
        u"ChangesEntry"_s, u"Changes and data protection"_s, {Left, 260, Whole_Width / 2 - 8, 48},
        [this] { navigator.Open_On_Top(Page_Id::Changes); }, HotLabel::Look::Entry);
    HotLabel1 = Make_HotLabel(u"HotLabel1"_s, u"Menu"_s, {Left + Whole_Width - 140, 204, 140, 40},
                              [this] { HotLabel1_Click(); });
}

void Form20::Tell_Helps() {
    Help_Line* help = Make_Help(u"Label1"_s, {Left, 322, Whole_Width, 96}).line;
    help->Tell(HotLabel1, u"Return to Main Menu"_s);
    help->Tell(HotLabel2, u"Click on 'Change password' to change the administrator's password."_s);
    help->Tell(NormTables,
               u"Look into the norm tables: what they hold, whether they are in order, and their digest."_s);
    help->Tell(
        ChangesEntry,
        u"See what was done with the pupils' records and when, who hasn't been tested for long, and make a copy for support in which nobody can be recognised."_s);
    help->Tell(lblVersion, u"Your Mevo software version number."_s);
    help->Tell(lblFlashVersion, [this] {
        return Flash_Installed
                   ? u"Several of the Mevo games require the Adobe Flash Player to play movies and this is already installed."_s
                   : u"Several of the Mevo games require the Adobe Flash Player to play movies, therefore you must install Adobe Flash Player on this computer. Please go to the website link "_s +
                         Flash_Download_Page;
    });
}

void Form20::Load() {
    lblVersion->setText(u"5.11    [8 Dec 2011]"_s);
    lblFlashVersion->setText(u"Flash Player not installed"_s);
    Flash_Installed = false;
    const QString keys[] = {u"SOFTWARE\\Macromedia\\FlashPlayerActiveX\\"_s,
                            u"SOFTWARE\\Wow6432Node\\Macromedia\\FlashPlayerActiveX\\"_s,
                            u"SOFTWARE\\Macromedia\\FlashPlayerPlugin\\"_s};
    for (const QString& key : keys) {
        const QString version = Read_Flash_Version(key, platform);
        if (version.isEmpty()) continue;
        lblFlashVersion->setText(version);
        Flash_Installed = true;
    }
}

void Form20::HotLabel1_Click() {
    navigator.Close_Page();
}

void Form20::HotLabel2_Click() {
    if (platform.boxes.Ask(Box_Style::Yes_No, u"Change admin password"_s,
                           u"Do you wish to change your administrator's password ?"_s) == Answer::Yes)
        Change_Password();
}

bool Form20::Entered(const QString& prompt) {
    question.Password_Prompt = prompt;
    Form3 dialog(platform, question);
    platform.dialogs.Show(dialog);
    return !question.Password_Cancelled;
}

void Form20::Change_Password() {
    // In clear on purpose: whoever stands here is the administrator.
    question.Password_Hint = u"Password: "_s + installation.Admin_Password.Text_Or_Empty();
    if (!Entered(u"Enter your NEW password"_s)) return;
    const QString first_entry = question.Password_Entered;
    if (!Entered(u"Enter NEW password again"_s)) return;
    if (question.Password_Entered != first_entry) {
        platform.boxes.Ask(Box_Style::Information, u"Error"_s, u"Cannot change password."_s);
        return;
    }
    installation.Admin_Password = question.Password_Entered;
    Save_New_Password();
    platform.boxes.Ask(Box_Style::Information, u"New password"_s,
                       u"The new Administrator's password is - "_s + question.Password_Entered);
}

void Form20::Save_New_Password() {
    holder.ado_Open(installation.Connection_String,
                    u"SELECT * FROM Customer_Details WHERE Product_Name = 'MEVO'"_s, u"Optimistic"_s);
    holder.Rows().Fields(u"Admin_Password"_s).Set_Value(installation.Admin_Password);
    holder.Rows().Update();
    holder.ado_Close();
}

} // namespace shell
