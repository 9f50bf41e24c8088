#include "platform/basics/number_text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace basics {

constexpr int Significant_Digits = 15; // all that a double holds of a decimal without noise

QString Plain_Number(double number) {
    if (number == 0) return u"0"_s; // also for a negative zero
    return QString::number(number, 'g', Significant_Digits);
}

QString Signed_Number(double number) {
    return number < 0 ? Plain_Number(number) : u' ' + Plain_Number(number);
}

// Adds one to a row of decimal digits; the carry may lengthen it.
static QString Incremented(QString digits) {
    for (qsizetype place = digits.size() - 1; place >= 0; --place) {
        if (digits[place] != u'9') {
            digits[place] = QChar(digits[place].unicode() + 1);
            return digits;
        }
        digits[place] = u'0';
    }
    return u'1' + digits;
}

QString Two_Decimals(double number) {
    // Fifteen significant digits are the number's decimal value; rounding those by hand keeps the binary
    // representation out of it.
    const QString scientific = QString::number(std::fabs(number), 'e', Significant_Digits - 1);
    const qsizetype e = scientific.indexOf(u'e');
    const int exponent = scientific.mid(e + 1).toInt();
    QString digits = scientific.left(e).remove(u'.');

    const int kept = exponent + 1 + 2; // digits before the point, and two behind it
    if (kept < 0) {
        digits = u"0"_s;
    } else {
        const bool up = kept < digits.size() && digits[kept] >= u'5';
        digits = digits.left(kept).leftJustified(kept, u'0');
        if (up) digits = Incremented(digits);
    }
    digits = digits.rightJustified(3, u'0');
    const QString text = digits.chopped(2) + u'.' + digits.right(2);
    return number < 0 && text != "0.00"_L1 ? u'-' + text : text;
}

double Round_To_Even(double number) {
    const double below = std::floor(number);
    const double rest = number - below;
    const bool is_tie = rest == 0.5; // the rest is exact; the system's own rounding isn't on every system
    const bool down = is_tie ? std::fmod(below, 2) == 0 : rest < 0.5;
    return down ? below : below + 1;
}

} // namespace basics
