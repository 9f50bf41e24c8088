#include "foundation/database_words.h"

using namespace Qt::StringLiterals;

namespace foundation {

using Kind = School_Look::Kind;

static QString Pupils_In_Words(const School_Look& look) {
    const QString pupils = look.pupils == 1 ? u"1 pupil"_s : u"%1 pupils"_s.arg(look.pupils);
    return u"%1, %2 with results"_s.arg(pupils).arg(look.with_results);
}

QString In_Words_Of_A_Choice(const School_Look& look) {
    switch (look.kind) {
    case Kind::School:
        return u"%1: %2. %3"_s.arg(look.school.isEmpty() ? u"A school without a name"_s : look.school,
                                   Pupils_In_Words(look),
                                   look.is_51 ? u"Version 5.1."_s : u"Older than version 5.1."_s);
    case Kind::Damaged:
        return u"Damaged, and may fail to open: "_s + look.why;
    case Kind::Older_Format:
        return u"Saved in the older Access format. You will be asked whether to convert it."_s;
    case Kind::Unreadable:
        return u"What this is can't be read now: "_s + look.why;
    case Kind::Foreign:
        break;
    }
    return u"This is no database of Mevo."_s;
}

} // namespace foundation
