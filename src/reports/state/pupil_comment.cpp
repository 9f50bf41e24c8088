#include "reports/state/pupil_comment.h"

using namespace Qt::StringLiterals;

namespace reports {

static QString Row_Of(int p, const scoring::Pupil_Lists& pupils) {
    return u"SELECT * FROM Mevo_Pupils WHERE StudentCode = '"_s + pupils.Student_Code[p] + u'\'';
}

void Load_Comment(int p, const scoring::Pupil_Lists& pupils, const foundation::Installation& installation,
                  foundation::Access_Holder& holder, Comment_In_Hand& comment) {
    holder.ado_Open(installation.Connection_String, Row_Of(p, pupils), u"ReadOnly"_s);
    comment.Pupil_Comment = holder.Field(u"Comment"_s).Text_Or_Empty();
    holder.ado_Close();
}

void Save_Comment(int p, const scoring::Pupil_Lists& pupils, const foundation::Installation& installation,
                  foundation::Access_Holder& holder, const Comment_In_Hand& comment) {
    holder.ado_Open(installation.Connection_String, Row_Of(p, pupils), u"Optimistic"_s);
    holder.Rows().Fields(u"Comment"_s).Set_Value(comment.Pupil_Comment);
    holder.Rows().Update();
    holder.ado_Close();
}

} // namespace reports
