#include "shell/archive_acts.h"

#include "foundation/database_version.h"
#include "foundation/database_words.h"
#include "foundation/schema.h"
#include "keeping/earlier_takings.h"
#include "platform/basics/native_path.h"
#include "platform/desktop/wait_pointer.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace shell {

using desktop::Answer;
using desktop::Box_Style;

static const QString Product_Row = u"SELECT * FROM Customer_Details WHERE Product_Name = 'MEVO'"_s;

// What is damaged is handed on all the same: its opening says what fails.
desktop::File_Words Tell_Of_File(const QString& file) {
    constexpr int longest_wait = 1; // seconds: the user looks through a folder
    const foundation::School_Look look = foundation::Look_At_School(basics::Native_Path(file), longest_wait);
    return {foundation::In_Words_Of_A_Choice(look), look.kind != foundation::School_Look::Kind::Foreign};
}

bool Archive_Acts::Confirmed(const QString& title, Wrong_Password wrong) {
    if (counts.Number_Of_Students.As_Integer() <= 0) return true; // nobody's results can be lost
    const QString text =
        u"Current database contains "_s + counts.Number_Of_Students.Text_Or_Empty() +
        u" pupils.\r"
        "It is strongly advised that you archive (save) your current pupil database before proceeding.\r"
        "Please only choose 'Yes' if you have recently archived the current database (or, if you have not "
        "recently archived the current database but are still happy to lose the current database).\r"
        "Select 'No' if in doubt or wish to cancel this task."_s;
    return platform.boxes.Ask(Box_Style::Yes_No, title, text) == Answer::Yes &&
           Password_Accepted(platform, installation, wrong);
}

// An empty answer never passes, whatever the password is.
bool Password_Accepted(desktop::Platform& platform, const foundation::Installation& installation,
                       Wrong_Password wrong) {
    const QString answer = platform.input_box.Ask(u"Please enter your password"_s, u"Security check"_s);
    if (answer.isEmpty()) return false;
    if (answer == installation.Admin_Password.Text_Or_Empty()) return true;
    if (wrong == Wrong_Password::Is_Told)
        platform.boxes.Ask(Box_Style::Critical, u"Incorrect password"_s, u"Password not accepted"_s);
    return false;
}

void Archive_Acts::Replace_Working_Database(const QString& source, const QString& reason) {
    const desktop::Wait_Pointer busy(platform.pointer);
    holder.Let_Go();
    QString kept_as;
    copies.Replace({source,
                    installation.Database_Path,
                    foundation::Needed_Tables(),
                    reason,
                    platform.clock.Now(),
                    installation.Archive_Folder,
                    {installation.Current_Database_Path},
                    &kept_as});
    // Today's stays where it is unless it stands beside the kept copy: it is the only one.
    keeping::Quietly([&] {
        if (kept_as.isEmpty()) return;
        keeping::Set_Companion_Aside(installation.Database_Path, kept_as);
        keeping::Copy_Companion(source, installation.Database_Path);
    });
}

void Archive_Acts::Note(keeping::Act act, const QString& file) {
    keeping::Note(installation, platform.clock, act, {QFileInfo(basics::Native_Path(file)).fileName()});
}

// Names that differ only in case are another product's. A file that may not be written needn't be, if it has
// the password already.
bool Archive_Acts::Lacks_The_Password(database::Recordset& row) const {
    return row.Fields(u"Product_Name"_s).Value().Text_Or_Empty() == "MEVO"_L1 &&
           row.Fields(u"Admin_Password"_s).Value() != installation.Admin_Password;
}

// Fails, before anything is replaced, where the archive wouldn't take the password.
void Archive_Acts::Require_That_It_Takes_The_Password(const QString& archive) {
    holder.Let_Go();
    database::Connection connection;
    connection.ConnectionString = foundation::Connection_String_For(archive);
    connection.Open();
    database::Recordset rows;
    rows.Source = Product_Row;
    rows.Set_ActiveConnection(&connection);
    rows.Open();
    for (; !rows.Eof(); rows.MoveNext())
        if (Lacks_The_Password(rows)) return connection.Rehearse_A_Change();
}

// The file's row of this product takes the password in force.
void Archive_Acts::Hand_On_The_Password(const QString& file) {
    Alternative_Connection_String = foundation::Connection_String_For(file);
    holder.ado_Open(Alternative_Connection_String, Product_Row, u"Optimistic"_s);
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext()) {
        if (!Lacks_The_Password(holder.Rows())) continue;
        holder.Rows().Fields(u"Admin_Password"_s).Set_Value(installation.Admin_Password);
        holder.Rows().Update();
    }
    holder.ado_Close();
}

// Brings the working database up, also while the program looks at an archive. False if that failed.
bool Archive_Acts::Working_Database_Is_Of_Version_51() {
    foundation::Installation working = installation;
    working.Connection_String = foundation::Connection_String_For(installation.Database_Path);
    return foundation::Database_Is_Version_51(working) ||
           foundation::Convert_Database_To_51(working, platform);
}

void Archive_Acts::Load(const QString& file, keeping::Act as) {
    Require_That_It_Takes_The_Password(file);
    Replace_Working_Database(file, u"load"_s);
    Note(as, file);
    // Behind the copy on purpose: the working database keeps the password that the archive had.
    Hand_On_The_Password(file);
    if (!Working_Database_Is_Of_Version_51()) return;
    platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(),
                       u"The database: \r"_s + file +
                           u"\r has now been loaded and becomes the working database."_s);
}

bool Archive_Acts::View(const QString& file) {
    installation.Current_Database_Path = file;
    installation.Connection_String = foundation::Connection_String_For(file);
    if (!foundation::Database_Is_Version_51(installation)) {
        const Answer answer = platform.boxes.Ask(
            Box_Style::Yes_No_Cancel_Information, u"Older archive type"_s,
            u"This archive seems to be an older type Mevo database. Do you wish to upgrade it to version 5.1 ?"_s);
        // Without an upgrade the mode stays normal, and yet every page reads the older archive from here on.
        if (answer != Answer::Yes) return false;
        if (!foundation::Convert_Database_To_51(installation, platform)) {
            installation.Connection_String = foundation::Connection_String_For(installation.Database_Path);
            return false;
        }
    }
    platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(),
                       u"The database "_s + file +
                           u" is now held in Viewing Mode (note that you cannot edit it)."_s);
    installation.Viewing_Mode = true;
    return true;
}

} // namespace shell
