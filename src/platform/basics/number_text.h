#pragma once

#include <QString>

namespace basics {

// The plain form: 87 gives "87", -1.88 gives "-1.88"; at most 15 significant digits.
QString Plain_Number(double number);

// The form that keeps a place for the sign: 87 gives " 87", -1 gives "-1".
QString Signed_Number(double number);

// Two decimals with at least one digit before the point ("##0.00" and "Fixed"): the decimal value of the
// number is rounded, ties away from zero, so 1.005 gives "1.01" although its binary form lies below.
QString Two_Decimals(double number);

// Rounds to the nearest whole number, a tie to the even one: 2.5 gives 2, 3.5 gives 4.
double Round_To_Even(double number);

} // namespace basics
