#pragma once

#include "platform/basics/dates.h"

#include <string>
#include <string_view>

namespace basics {

// A date of a list that is kept of everybody and shown of few: its text as it is stored, which is read when
// it is shown. The usual ones take no room of their own.
class Kept_Date {
public:
    Kept_Date() = default;
    Kept_Date(const QString& text) : stored(text.toStdString()) {}

    void Set_Stored(std::string_view utf8) { stored = utf8; }
    // Some files have blanks where it is left out.
    bool isEmpty() const { return stored.empty() || Text().trimmed().isEmpty(); }
    operator QString() const { return isEmpty() ? QString() : Stored_Date_Text(Text()); }

private:
    QString Text() const { return QString::fromStdString(stored); }

    std::string stored;
};

} // namespace basics
