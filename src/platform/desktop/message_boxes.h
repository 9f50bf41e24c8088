#pragma once

#include <QString>

namespace desktop {

enum class Answer { Ok, Cancel, Abort, Retry, Ignore, Yes, No };

// The box styles that the program uses; the values are the system's own: buttons plus icon.
enum class Box_Style {
    Plain = 0, // OK
    Yes_No = 4,
    Critical = 16, // OK
    Abort_Retry_Ignore_Critical = 18,
    Yes_No_Question = 36,
    Exclamation = 48, // OK
    Information = 64, // OK
    Yes_No_Cancel_Information = 67,
    Yes_No_Information = 68,
};

// The title of a box that was given none: the program's name.
inline QString Default_Box_Title() {
    return QStringLiteral("Mevo");
}

// Every message and question put to the user.
class Message_Boxes {
public:
    virtual ~Message_Boxes() = default;
    virtual Answer Ask(Box_Style style, const QString& title, const QString& text) = 0;
};

} // namespace desktop
