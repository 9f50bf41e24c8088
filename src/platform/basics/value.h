#pragma once

#include <QDateTime>
#include <QString>
#include <variant>

namespace basics {

// A tagged value: a database field as it came, which is empty (NULL), a number, a text or a date.
//
// Conversions follow the run-time's rules: an empty value converts to nothing (error 94), a text that is
// no number to no number (13), and a number outside the target's range overflows (6).
class Value {
public:
    Value() = default;
    Value(int number) : content(static_cast<qint64>(number)) {}
    Value(qint64 number) : content(number) {}
    Value(double number) : content(number) {}
    Value(QString text) : content(std::move(text)) {}
    Value(QDateTime date) : content(std::move(date)) {}

    // Becomes this text, in the room of the one that it was where it can: an item is read over and over.
    void Set_Text(const char* utf8, qsizetype size);

    bool Is_Empty() const { return std::holds_alternative<std::monostate>(content); }
    bool Is_Number() const;
    bool Is_Text() const { return std::holds_alternative<QString>(content); }
    bool Is_Date() const { return std::holds_alternative<QDateTime>(content); }

    QString As_Text() const;       // a number in the plain form, a date as dd/mm/yyyy
    QString Text_Or_Empty() const; // the value joined to empty text: a NULL gives empty text
    double As_Double() const;
    qint16 As_Integer() const; // 16 bits, rounded to even
    qint32 As_Long() const;    // 32 bits, rounded to even
    QDateTime As_Date() const;

    // Compared as stored: numbers with numbers, texts with texts letter by letter; a number never equals a
    // text. An empty value equals another empty one and the empty text.
    friend bool operator==(const Value& left, const Value& right);

    // Whether the value reads as the given text, whatever it was stored as.
    bool Reads(QStringView text) const;

private:
    std::variant<std::monostate, qint64, double, QString, QDateTime> content;
};

} // namespace basics
