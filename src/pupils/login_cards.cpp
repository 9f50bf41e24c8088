#include "pupils/login_cards.h"

#include "platform/basics/dates.h"
#include "platform/basics/run_time_error.h"
#include "pupils/page_parts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

Login_Cards::Login_Cards(desktop::Platform& platform, shell::Navigator& navigator, Record_Data data)
    : Sheets_Page(platform, navigator, data.installation,
                  {u"Login cards"_s, 300, u"Security"_s, u"Return to the Security page"_s,
                   u"Print out the sheets. They show passwords: fetch them at once."_s}),
      records(data.records),
      reading(platform) {
    setObjectName(u"Login_Cards"_s);
    Lay_Out();
    Tell_Helps({{Group, u"Whose logins are shown"_s},
                {Cards, u"Eight cards on a sheet, for the pupils: to be cut out along the dashed lines"_s},
                {Class_List, u"A list of the same logins, for the teacher"_s}});
}

void Login_Cards::Lay_Out() {
    constexpr int right = Left + Preview_Width;
    Group = Make_Combo(u"Group"_s, u"Group/Class"_s, {right - 440, 16, 220, 32}, Frame1);
    const auto option = [&](const QString& name, const QString& caption, const QRect& place) {
        auto* button = new QRadioButton(caption, Frame1);
        button->setObjectName(name);
        button->setGeometry(place);
        shell::On(button, &QRadioButton::clicked, this, platform, [this] { Draw_Anew(); });
        return button;
    };
    Cards = option(u"Cards"_s, u"Cards"_s, {right - 204, 18, 84, 28});
    Class_List = option(u"ClassList"_s, u"Class sheet"_s, {right - 114, 18, 114, 28});
    Cards->setChecked(true);
    shell::On(Group, &shell::Click_Combo::Click, this, platform, [this] { Draw_Anew(); });
}

void Login_Cards::Load() {
    try {
        Read_Logins();
    } catch (const basics::Run_Time_Error& error) {
        classes.clear();
        platform.boxes.Ask(desktop::Box_Style::Critical, u"Login cards"_s,
                           u"The logins can't be read at present: "_s + reading.Why(error));
    }
    Group->AddItem(u"All groups"_s);
    for (const Class_Logins& logins : classes)
        Group->AddItem(logins.group);
    Group->setCurrentIndex(std::max(Group->findText(records.Group_For_Cards, Qt::MatchExactly), 0));
    Sheets_Page::Load();
}

void Login_Cards::Read_Logins() {
    foundation::Access_Holder& holder = reading.Holder();
    const auto act = holder.Begin_Act();
    Group_Lists groups;
    Load_Groups(holder, installation, groups);
    for (int i = 1; i <= groups.Group_Count; ++i)
        classes.append({groups.Group_Names[i], groups.Group_Show_On_List[i] == 1, {}});
    classes.append({u"No group"_s, true, {}});
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s,
                    u"ReadOnly"_s);
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext())
        Take_Pupil();
    holder.ado_Close();
    if (classes.last().pupils.isEmpty()) classes.removeLast();
}

// To the database names that differ only in case are one group, though a group of its very name goes first.
static qsizetype Place_Of_Group(const QList<Class_Logins>& classes, const QString& group) {
    for (const Qt::CaseSensitivity matching : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (qsizetype i = 0; i + 1 < classes.size(); ++i)
            if (classes[i].group.compare(group, matching) == 0) return i;
    return classes.size() - 1;
}

void Login_Cards::Take_Pupil() {
    foundation::Access_Holder& holder = reading.Holder();
    const auto text = [&](const QString& field) { return holder.Field(field).Text_Or_Empty(); };
    const auto is_set = [&](const QString& field) { return Number_Or_Zero(holder.Field(field)) == 1; };
    classes[Place_Of_Group(classes, text(u"Group_Class"_s))].pupils.append(
        {.user_id = text(u"StudentCode"_s),
         .surname = text(u"Surname"_s).trimmed(),
         .forename = text(u"Forename"_s).trimmed(),
         .born = Day_First(holder.Field(u"DOB"_s)),
         .password = text(u"Password"_s),
         .by_birthday = is_set(u"Dob_as_pw"_s),
         .on_list = is_set(u"Show_Name"_s)});
}

void Login_Cards::Draw_Sheets() {
    QList<Class_Logins> chosen = classes;
    if (Group->ListIndex() > 0)
        chosen = {classes[Group->ListIndex() - 1]};
    else
        chosen.removeIf([](const Class_Logins& logins) { return logins.pupils.isEmpty(); });
    if (Cards->isChecked())
        Draw_Login_Cards(chosen, installation.Institution, ViewPro1);
    else
        Draw_Class_Sheets(chosen, installation.Institution, platform.clock, ViewPro1);
    ViewPro1.Title = Document_Name() + u" - "_s + Group->currentText();
}

QString Login_Cards::Document_Name() const {
    return Cards->isChecked() ? u"Mevo login cards"_s : u"Mevo logins"_s;
}

} // namespace pupils
