#pragma once

#include "platform/desktop/message_boxes.h"
#include "platform/desktop/printers.h"

#include <QDateTime>
#include <QString>
#include <cstdlib>
#include <functional>
#include <vector>

class QDialog;
class QWidget;

namespace desktop {

// What the program asks of the world outside the process, one small class a concern. The real ones stand
// in qt_platform.h; a test brings its own.

// The mouse pointer over all of the program; the values are the system's own.
enum class Pointer_Shape { Default = 0, Hourglass = 11, Arrow_And_Hourglass = 13 };

class Pointer {
public:
    virtual ~Pointer() = default;
    virtual void Set(Pointer_Shape shape) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0; // local time
    // How long a page's one-shot timer really waits for the interval that its design gives, in milliseconds.
    virtual int Timer_Interval(int designed) const = 0;
};

class Sound {
public:
    virtual ~Sound() = default;
    // Plays a wave file and returns when it has ended; a missing file or device is passed over.
    virtual void Play(const QString& file) = 0;
};

class Documents {
public:
    virtual ~Documents() = default;
    // The system's short form of a folder's path; empty if there is no such folder.
    virtual QString Short_Path(const QString& path) = 0;
    // Opens a file with the application registered for it. Above 32 or negative is success; the others are
    // the system's own codes, such as 2 for a missing file and 31 for no application.
    virtual int Shell_Open(const QString& file, const QString& folder) = 0;
};

class Processes {
public:
    virtual ~Processes() = default;
    // Starts a program, visible and with the focus, and doesn't wait for it.
    // Throws basics::Run_Time_Error 53 if it isn't there.
    virtual void Start(const QString& command_line) = 0;
    // Ends this process at once. Nothing is closed first.
    [[noreturn]] void End(int status) {
        End_Process(status);
        std::abort(); // a body that came back would let the program run on behind its own end
    }

protected:
    virtual void End_Process(int status) = 0;
};

class Ini_Files {
public:
    virtual ~Ini_Files() = default;
    // The value of a key without the blanks around it; an empty value is empty text. `missing` if the file,
    // the section or the key isn't there.
    virtual QString Value(const QString& file, const QString& section, const QString& key,
                          const QString& missing) = 0;
};

// What one account settled for itself, by keys such as "Reports/Keep_To_Margins", from one start to the next.
// No work depends on it: a file that can't be read is one without values, and one that can't be written is
// passed over.
class User_Settings {
public:
    virtual ~User_Settings() = default;
    virtual QString Value(const QString& key, const QString& missing) = 0;
    virtual void Keep(const QString& key, const QString& value) = 0;

    // A switch is as others have it, "1" or else, until it has been turned; off where they don't say.
    bool Is_On(const QString& key, const QString& others = {}) {
        return Value(key, others) == QStringLiteral("1");
    }
    void Turn(const QString& key, bool on) { Keep(key, QString::number(on ? 1 : 0)); }
};

class Files {
public:
    virtual ~Files() = default;
    // The bare name of a file as it is spelt on the disk; empty if there is none.
    virtual QString Dir(const QString& file) = 0;
};

// The system's registry, below the root of the whole machine. Results are the system's own: 0 is success.
class Registry {
public:
    virtual ~Registry() = default;
    static constexpr int Read_Access = 131097;
    static constexpr int String_Type = 1;

    // Opens a key, which is made if it is missing and the account may.
    virtual int Create_Key(const QString& key, int access, quintptr& handle) = 0;
    // Puts a value into the buffer, which isn't made longer, and its type into `type`.
    virtual int Query_Value(quintptr handle, const QString& name, int& type, QByteArray& buffer) = 0;
    virtual void Close_Key(quintptr handle) = 0;
};

// Folders that the system keeps, by their customary numbers.
inline constexpr int Common_AppData = 35; // application data of all users
inline constexpr int Own_Documents = 5;   // the account's own

class Special_Folders {
public:
    virtual ~Special_Folders() = default;
    // Sets `path` and gives 0, or gives another number if the system knows no such folder.
    virtual int Folder_Path(int number, QString& path) = 0;
};

// What a file dialog says of a file that is chosen, and whether it takes it.
struct File_Words {
    QString words;
    bool is_taken = true;
};

// What a file dialog shows at first.
struct File_Question {
    QString title;
    QString filter; // "Text files (*.txt)": words, and the patterns in brackets
    QString folder;
    QString file_name;
    QString extension; // added to a name without one, no dot
    // Why the file chosen isn't taken; empty if it is. None takes all.
    std::function<QString(const QString& file)> why_not = {};
    // Tells what the file is that the user stands on, in a line of the dialog itself. None shows no line.
    std::function<File_Words(const QString& file)> tell = {};
};

class File_Dialogs {
public:
    virtual ~File_Dialogs() = default;
    // The full name chosen; empty if the dialog was cancelled. Where a file isn't taken the user is told why,
    // and the dialog stays.
    virtual QString Open_File(const File_Question& question) = 0;
    virtual QString Save_File(const File_Question& question) = 0;
    // A folder that is there; it begins in `folder`. Empty if the dialog was cancelled.
    virtual QString Choose_Folder(const QString& title, const QString& folder) = 0;
};

class Input_Box {
public:
    virtual ~Input_Box() = default;
    // One line of text; empty if it was cancelled.
    virtual QString Ask(const QString& prompt, const QString& title) = 0;
};

class Random_Source {
public:
    virtual ~Random_Source() = default;
    virtual void Seed(double seconds) = 0; // from the time of day
    virtual double Next() = 0;             // in [0, 1)
};

// Shows a dialog over the page and comes back when it is closed.
class Modal_Dialogs {
public:
    virtual ~Modal_Dialogs() = default;
    virtual void Show(QDialog& dialog) = 0;
};

// What the one thread is in the middle of. An event loop that runs inside a handler, under a box or for
// painting, must not begin anything of the same window.
struct Work_In_Hand {
    std::vector<const QWidget*> windows; // of the handlers that run, the innermost last; null for none
    bool painting = false;               // the window repaints itself meanwhile and takes nothing
};

// All of them together, by reference; app makes one, a test makes its own.
struct Platform {
    Message_Boxes& boxes;
    Pointer& pointer;
    Clock& clock;
    Sound& sound;
    Documents& documents;
    Processes& processes;
    Ini_Files& ini;
    Files& files;
    Special_Folders& folders;
    Modal_Dialogs& dialogs;
    File_Dialogs& file_dialogs;
    Input_Box& input_box;
    Random_Source& random;
    Printers& printers;
    Clipboard& clipboard;
    Registry& registry;
    User_Settings& settings;
    Work_In_Hand work{};
};

} // namespace desktop
