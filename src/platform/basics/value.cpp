#include "platform/basics/value.h"

#include "platform/basics/dates.h"
#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace basics {

void Value::Set_Text(const char* utf8, qsizetype size) {
    auto* text = std::get_if<QString>(&content);
    if (!text) text = &content.emplace<QString>();
    text->resize(size);
    QChar* letter = text->data();
    unsigned char bits = 0;
    for (qsizetype i = 0; i < size; ++i) { // nearly all that is stored are a few plain letters and digits
        const auto byte = static_cast<unsigned char>(utf8[i]);
        bits |= byte;
        letter[i] = QLatin1Char(static_cast<char>(byte));
    }
    if (bits >= 0x80) *text = QString::fromUtf8(utf8, size);
}

bool Value::Is_Number() const {
    return std::holds_alternative<qint64>(content) || std::holds_alternative<double>(content);
}

QString Value::As_Text() const {
    if (const auto* text = std::get_if<QString>(&content)) return *text;
    if (const auto* whole = std::get_if<qint64>(&content)) return QString::number(*whole);
    if (const auto* number = std::get_if<double>(&content)) return Plain_Number(*number);
    if (const auto* date = std::get_if<QDateTime>(&content)) return Date_Text(*date);
    Raise(errors::Invalid_Use_Of_Null);
}

QString Value::Text_Or_Empty() const {
    return Is_Empty() ? QString(u""_s) : As_Text();
}

double Value::As_Double() const {
    if (const auto* whole = std::get_if<qint64>(&content)) return static_cast<double>(*whole);
    if (const auto* number = std::get_if<double>(&content)) return *number;
    if (Is_Empty()) Raise(errors::Invalid_Use_Of_Null);
    bool is_number = false;
    const double number = As_Text().trimmed().toDouble(&is_number);
    if (!is_number) Raise(errors::Type_Mismatch);
    return number;
}

template<class Whole>
static Whole Converted(double number) {
    const auto fits = [](double whole) {
        return whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max();
    };
    if (fits(number) && static_cast<Whole>(number) == number) return static_cast<Whole>(number);
    const double rounded = Round_To_Even(number);
    if (!fits(rounded)) Raise(errors::Overflow);
    return static_cast<Whole>(rounded);
}

qint16 Value::As_Integer() const {
    const auto* whole = std::get_if<qint64>(&content);
    const bool fits = whole && *whole == static_cast<qint16>(*whole);
    return fits ? static_cast<qint16>(*whole) : Converted<qint16>(As_Double());
}

qint32 Value::As_Long() const {
    return Converted<qint32>(As_Double());
}

QDateTime Value::As_Date() const {
    if (const auto* date = std::get_if<QDateTime>(&content)) return *date;
    const auto date = Stored_Date(As_Text());
    if (!date) Raise(errors::Type_Mismatch);
    return *date;
}

bool operator==(const Value& left, const Value& right) {
    const auto* left_text = std::get_if<QString>(&left.content);
    const auto* right_text = std::get_if<QString>(&right.content);
    if (left_text && right_text) return *left_text == *right_text;
    if (left.Is_Number() && right.Is_Number()) return left.As_Double() == right.As_Double();
    if (left.Is_Number() || right.Is_Number()) return false;
    if (left.Is_Date() || right.Is_Date()) return left.content == right.content;
    return left.Text_Or_Empty() == right.Text_Or_Empty();
}

bool Value::Reads(QStringView text) const {
    if (const auto* own = std::get_if<QString>(&content)) return own->size() == text.size() && *own == text;
    if (Is_Empty() || text.isEmpty()) return Is_Empty() && text.isEmpty();
    return As_Text() == text;
}

} // namespace basics
