#include "scoring/population_means.h"

#include "scoring/norm_tables.h"

using namespace Qt::StringLiterals;

namespace scoring {

void Get_Population_Means(QString& module, int months, Population_Means& means,
                          foundation::Access_Holder& holder, const foundation::Installation& installation) {
    module = (module + u" band "_s + Age_To_Band_Letter(months)).trimmed();
    holder.ado_Open(installation.Connection_String, u"SELECT * FROM Mevo_Means"_s, u"ReadOnly"_s);
    for (; !holder.Rows().Eof(); holder.Rows().MoveNext()) {
        if (!holder.Field(u"Module"_s).Reads(module)) continue;
        means = {holder.Field(u"Time_Mean"_s),       holder.Field(u"Time_SD"_s),
                 holder.Field(u"Correct_Mean"_s),    holder.Field(u"Correct_SD"_s),
                 holder.Field(u"Seq_Errors_Mean"_s), holder.Field(u"Seq_Errors_SD"_s)};
        break;
    }
    holder.ado_Close();
}

} // namespace scoring
