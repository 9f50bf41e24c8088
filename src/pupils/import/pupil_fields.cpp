#include "pupils/import/pupil_fields.h"

using namespace Qt::StringLiterals;

namespace pupils {

QString Normalise_Hyphen(const QString& surname) {
    const QString spaced_hyphen = u" - "_s;
    const qsizetype place = surname.indexOf(spaced_hyphen);
    if (place < 0) return surname;
    return surname.left(place) + u'-' + surname.mid(place + spaced_hyphen.size());
}

} // namespace pupils
