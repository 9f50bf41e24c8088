#include "console/console_platform.h"

#include "console/error_line.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/user_settings.h"
#include "platform/desktop/windows_services.h"

namespace console {

namespace {

class Console_Boxes final : public desktop::Message_Boxes {
public:
    Console_Boxes(const QString& program, QTextStream& errors) : program(program), errors(errors) {}

    desktop::Answer Ask(desktop::Box_Style style, const QString&, const QString& text) override {
        // A database box names its error in a first line, which tells a user of the console nothing.
        const qsizetype line_end = text.indexOf(u'\r');
        Write_Error_Line(program, text.mid(line_end + 1), errors);
        const bool asks = style == desktop::Box_Style::Abort_Retry_Ignore_Critical;
        return asks ? desktop::Answer::Abort : desktop::Answer::Ok;
    }

private:
    QString program;
    QTextStream& errors;
};

class No_Pointer final : public desktop::Pointer {
public:
    void Set(desktop::Pointer_Shape) override {}
};

class System_Clock final : public desktop::Clock {
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    int Timer_Interval(int designed) const override { return designed; }
};

class No_Sound final : public desktop::Sound {
public:
    void Play(const QString&) override {}
};

class No_Documents final : public desktop::Documents {
public:
    QString Short_Path(const QString&) override { return {}; }
    int Shell_Open(const QString&, const QString&) override { return No_Application; }

private:
    static constexpr int No_Application = 31;
};

class Ending_Processes final : public desktop::Processes {
public:
    void Start(const QString&) override { basics::Raise(basics::errors::File_Not_Found); }

protected:
    void End_Process(int status) override { throw Program_Ended{status}; }
};

class No_Ini_Files final : public desktop::Ini_Files {
public:
    QString Value(const QString&, const QString&, const QString&, const QString& missing) override {
        return missing;
    }
};

class No_Files final : public desktop::Files {
public:
    QString Dir(const QString&) override { return {}; }
};

class No_Folders final : public desktop::Special_Folders {
public:
    int Folder_Path(int, QString&) override { return 1; }
};

class No_File_Dialogs final : public desktop::File_Dialogs {
public:
    QString Open_File(const desktop::File_Question&) override { return {}; }
    QString Save_File(const desktop::File_Question&) override { return {}; }
    QString Choose_Folder(const QString&, const QString&) override { return {}; }
};

class No_Input_Box final : public desktop::Input_Box {
public:
    QString Ask(const QString&, const QString&) override { return {}; }
};

class No_Random final : public desktop::Random_Source {
public:
    void Seed(double) override {}
    double Next() override { return 0; }
};

class No_Printers final : public desktop::Printers {
public:
    bool Is_Any_Set_Up() override { return false; }
    bool Choose() override { return false; }
    void Print(const desktop::Printed_Document&) override { basics::Raise(Printer_Error); }

private:
    static constexpr int Printer_Error = 482;
};

class No_Clipboard final : public desktop::Clipboard {
public:
    void Put(const desktop::Page_Copy&) override {}
    QString Text() override { return {}; }
    void Put_Text(const QString&) override {}
};

class No_Dialogs final : public desktop::Modal_Dialogs {
public:
    void Show(QDialog&) override {}
};

} // namespace

struct Console_Platform::Bodies {
    Bodies(const QString& program, QTextStream& errors) : boxes(program, errors) {}

    Console_Boxes boxes;
    No_Pointer pointer;
    System_Clock clock;
    No_Sound sound;
    No_Documents documents;
    Ending_Processes processes;
    No_Ini_Files ini;
    No_Files files;
    No_Folders folders;
    No_Dialogs dialogs;
    No_File_Dialogs file_dialogs;
    No_Input_Box input_box;
    No_Random random;
    No_Printers printers;
    No_Clipboard clipboard;
    desktop::No_Registry registry;
    desktop::No_User_Settings settings;
    desktop::Platform ports{boxes,  pointer,  clock,     sound,    documents,    processes,
                            ini,    files,    folders,   dialogs,  file_dialogs, input_box,
                            random, printers, clipboard, registry, settings};
};

Console_Platform::Console_Platform(const QString& program, QTextStream& errors)
    : bodies(std::make_unique<Bodies>(program, errors)) {
}

Console_Platform::~Console_Platform() = default;

desktop::Platform& Console_Platform::Ports() {
    return bodies->ports;
}

} // namespace console
