#pragma once

#include "foundation/access_holder.h"
#include "foundation/installation.h"
#include "keeping/change_list.h"
#include "platform/database/files/safe_copy.h"
#include "shell/conventions/menu_counts.h"

namespace shell {

// What a file dialog says of a file, and whether it takes it.
desktop::File_Words Tell_Of_File(const QString& file);

enum class Wrong_Password { Is_Silent, Is_Told };
// Asks for the Administrator's password.
bool Password_Accepted(desktop::Platform& platform, const foundation::Installation& installation,
                       Wrong_Password wrong);

// Putting another database in the working one's place, and looking at one instead of it, with all that the
// user is asked and told: at the Archiving page and wherever else a database is gone back to.
class Archive_Acts {
public:
    // The holder is the page's: what it keeps of a file is let go before the file is replaced.
    Archive_Acts(desktop::Platform& platform, foundation::Installation& installation,
                 const Menu_Counts& counts, database::File_Copies& copies, foundation::Access_Holder& holder)
        : platform(platform), installation(installation), counts(counts), copies(copies), holder(holder) {}

    // Whether the working database may be lost: asked, with the password, while it holds anybody.
    bool Confirmed(const QString& title, Wrong_Password wrong);

    // Over the working database. What it is called in the list of changes.
    void Load(const QString& file, keeping::Act as = keeping::Act::Loaded);
    bool View(const QString& file); // whether it is in view now

    // The steps of a replacement.
    void Hand_On_The_Password(const QString& file);
    void Replace_Working_Database(const QString& source, const QString& reason);
    bool Working_Database_Is_Of_Version_51();
    void Note(keeping::Act act, const QString& file); // that it was done, for the list of changes

private:
    void Require_That_It_Takes_The_Password(const QString& archive);
    bool Lacks_The_Password(database::Recordset& row) const;

    desktop::Platform& platform;
    foundation::Installation& installation;
    const Menu_Counts& counts;
    database::File_Copies& copies;
    foundation::Access_Holder& holder;
    QString Alternative_Connection_String; // leads to a file other than the one in use
};

} // namespace shell
