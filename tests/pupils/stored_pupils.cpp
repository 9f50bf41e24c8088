#include "pupils/stored_pupils.h"

#include "foundation/schema.h"

using namespace Qt::StringLiterals;

namespace pupils {

using test_support::Sample_File;

const QStringList& Data_Tables() {
    static const QStringList tables{u"mevo_tolvens_data"_s, u"mevo_friends_data"_s, u"mevo_karrel_data"_s,
                                    u"mevo_letters_data"_s, u"mevo_bln_data"_s,     u"mevo_drell_data"_s,
                                    u"mevo_mirvel_data"_s,  u"mevo_yoon_data"_s,    u"mevo_pindo_data"_s};
    return tables;
}

static QString Joined(const QString& suffix) {
    return foundation::Status_Columns().join(suffix + u" || ',' || "_s) + suffix;
}

QString Stored_Pupil(const Sample_File& sample, const QString& code) {
    const QString columns =
        u"surname || '|' || forename || '|' || sex || '|' || dob || '|' || group_class || '|' || "
        "quote(\"password\") || '|' || show_name || '|' || dob_as_pw || '|' || "_s +
        Joined(u""_s) + u" || '|' || "_s + Joined(u"_age"_s);
    return sample.Column(u"SELECT %1 FROM mevo_pupils WHERE studentcode = '%2'"_s.arg(columns, code))
        .join(u'\n');
}

QStringList Filled_Columns(const Sample_File& sample, const QString& table, const QString& code) {
    QStringList filled;
    for (const QString& column : sample.Column(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table)))
        if (!sample
                 .Column(u"SELECT 1 FROM %1 WHERE studentcode = '%2' AND %3 IS NOT NULL"_s.arg(table, code,
                                                                                               column))
                 .isEmpty())
            filled.append(column);
    return filled;
}

} // namespace pupils
