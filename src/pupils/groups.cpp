#include "pupils/groups.h"

#include "pupils/pupil_records.h"

using namespace Qt::StringLiterals;

namespace pupils {

void Load_Groups(foundation::Access_Holder& holder, const foundation::Installation& installation,
                 Group_Lists& groups) {
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM mevo_groups"_s, u"Optimistic"_s);
    qint16 count = 0;
    holder.ado_RSCount(count);
    for (int i = 1; i <= count; ++i) {
        groups.Group_Names[i] = holder.Field(u"Group_Name"_s).Text_Or_Empty();
        groups.Group_Show_On_List[i] = Number_Or_Zero(holder.Field(u"Show_On_List"_s));
        groups.Group_Dob_As_Pw[i] = Number_Or_Zero(holder.Field(u"Dob_as_pw"_s));
        holder.Rows().MoveNext();
    }
    holder.ado_Close();
    groups.Group_Count = count;
}

bool Is_Group_Name(const Group_Lists& groups, const QString& name) {
    for (int i = 1; i <= groups.Group_Count; ++i)
        if (groups.Group_Names[i] == name) return true;
    return false;
}

} // namespace pupils
