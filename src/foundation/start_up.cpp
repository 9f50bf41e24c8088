#include "foundation/start_up.h"

#include "foundation/access_holder.h"
#include "foundation/database_version.h"
#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"

using namespace Qt::StringLiterals;

namespace foundation {

using desktop::Box_Style;

constexpr int Ini_Value_Room = 249; // the system's buffer holds 250 with the closing NUL

QString Get_Ini_String(desktop::Platform& platform, const QString& file, const QString& section,
                       const QString& key) {
    QString value = platform.ini.Value(file, section, key, file).left(Ini_Value_Room);
    while (value.startsWith(u' '))
        value.remove(0, 1);
    return value;
}

static QString Missing_Template_Warning(const QString& share, const QString& app_path) {
    const QString lines[] = {
        u"Please check that the file 'Mevo05EmptyDatabase' is in the folder path "_s + share,
        u"Otherwise I will look for databases in the the default path:"_s,
        u"C:\\Documents and Settings\\All Users\\Application Data\\."_s,
        u""_s,
        u"To avoid this message and use the default path please edit the file "_s,
        app_path + u"\\Product.ini so there is nothing after the equals sign in 'database='"_s,
    };
    return QStringList(std::begin(lines), std::end(lines)).join(u'\r');
}

static QString Paths_From_Ini(desktop::Platform& platform, Installation& installation) {
    const QString settings = installation.App_Path + u"\\product.ini"_s;
    QString share = Get_Ini_String(platform, settings, u"SETTINGS"_s, u"database_sharepath"_s);
    const bool is_named = share != settings.left(Ini_Value_Room);
    if (share.size() > 1 && !share.endsWith(u'\\')) share += u'\\';
    installation.Database_Path = share + Working_File;
    installation.Empty_Database_Path = share + Template_File;
    installation.Archive_Folder = share;
    if (share.isEmpty()) return u"BLANK"_s;

    if (platform.files.Dir(installation.Empty_Database_Path).compare(Template_File, Qt::CaseInsensitive) == 0)
        return u"SET"_s;
    installation.Share_Is_Away = is_named;
    platform.boxes.Ask(Box_Style::Critical, u"Warning"_s,
                       Missing_Template_Warning(share, installation.App_Path));
    return u"BLANK"_s;
}

QString Read_Product_Ini(desktop::Platform& platform, Installation& installation) {
    try {
        return Paths_From_Ini(platform, installation);
    } catch (const basics::Run_Time_Error& error) {
        platform.boxes.Ask(Box_Style::Plain, u"Error"_s,
                           u"Error Reading INI File - "_s + basics::Signed_Number(error.Number) +
                               u" from "_s + error.Source + u'\r' + error.Description);
        return u"ERROR"_s;
    }
}

bool Read_Customer_Details(desktop::Platform& platform, Installation& installation) {
    Access_Holder holder(platform);
    return Read_Customer_Details(holder, installation);
}

bool Read_Customer_Details(Access_Holder& holder, Installation& installation) {
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Customer_Details"_s, u"Optimistic"_s);
    qint16 count = 0;
    holder.ado_RSCount(count);
    bool found = false;
    if (count >= 1) {
        for (; !holder.Rows().Eof(); holder.Rows().MoveNext()) {
            if (holder.Field(u"Product_Name"_s).Text_Or_Empty() != "MEVO"_L1) continue;
            installation.Product_Version = holder.Field(u"Product_Version"_s).Text_Or_Empty();
            installation.CustomerName = holder.Field(u"CustomerName"_s).Text_Or_Empty();
            installation.Institution = holder.Field(u"Institution"_s).Text_Or_Empty();
            installation.Admin_Password = holder.Field(u"Admin_Password"_s);
            found = true;
        }
    }
    holder.ado_Close();
    return found;
}

// It is named after an earlier release; schools' files lie there, so it keeps its name.
QString Standard_Folder(const QString& all_users_folder) {
    return all_users_folder + u"\\Quend Research\\Quend Mevo\\5.07\\"_s;
}

Form8::Form8(desktop::Platform& platform, Installation& installation)
    : platform(platform), installation(installation) {
}

void Form8::Load() {
    installation.Viewing_Mode = false;
}

void Form8::Find_CommonAppData() {
    QString folder;
    if (platform.folders.Folder_Path(desktop::Common_AppData, folder) != 0) {
        platform.boxes.Ask(Box_Style::Plain, desktop::Default_Box_Title(), u"Folder Not Valid on this OS"_s);
        platform.processes.End(1);
    }
    installation.Common_AppData_Path = folder;
    const QString base = Standard_Folder(folder);
    installation.Database_Path = base + Working_File;
    installation.Archive_Folder = base + u"archives"_s;
    installation.Empty_Database_Path = base + Template_File;
}

void Form8::Find_Database(const QString& program_folder) {
    installation.App_Path = program_folder;
    if (Read_Product_Ini(platform, installation) == "BLANK"_L1) Find_CommonAppData();
    installation.Current_Database_Path = installation.Database_Path;
    installation.Connection_String = Connection_String_For(installation.Current_Database_Path);
}

void Form8::Timer1_Timer(const QString& program_folder) {
    Find_Database(program_folder);
    // A conversion that failed has already told the user; the pages then show what the file still gives.
    Access_Holder holder(platform);
    const auto act = holder.Begin_Act();
    if (!Database_Is_Version_51(installation, holder.Kept())) {
        holder.Let_Go(); // a box is shown, and the tables change
        Convert_Database_To_51(installation, platform);
    }
    Read_Customer_Details(holder, installation);
}

} // namespace foundation
