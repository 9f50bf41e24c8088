#pragma once

#include "platform/desktop/ports.h"

#include <QDialog>
#include <QList>
#include <QStringList>
#include <functional>
#include <map>

namespace test_support {

// Thrown where the program would have ended its process.
struct Program_Ended {
    int status;
};

struct Box_Shown {
    desktop::Box_Style style;
    QString title;
    QString text;
};

// Answers from a list and keeps what was shown; a question that nobody expected fails the test.
class Scripted_Boxes final : public desktop::Message_Boxes {
public:
    // `meanwhile` runs while the box is on screen.
    void Will_Answer(desktop::Answer answer, std::function<void()> meanwhile = {});
    desktop::Answer Ask(desktop::Box_Style style, const QString& title, const QString& text) override;
    QStringList Titles() const;
    void Expect_All_Asked() const;
    void Expect_Last(desktop::Box_Style style, const QString& title, const QString& text) const;
    // What reads a database that has gone asks about it; Abort ends the program.
    void Expect_Abort_Ends(const std::function<void()>& reading);

    QList<Box_Shown> shown;
    std::function<desktop::Answer(desktop::Box_Style)> otherwise; // answers what nobody scripted

private:
    struct Reply {
        desktop::Answer answer;
        std::function<void()> meanwhile;
    };
    QList<Reply> replies;
};

class Recording_Pointer final : public desktop::Pointer {
public:
    void Set(desktop::Pointer_Shape shape) override { shapes.append(shape); }
    QList<desktop::Pointer_Shape> shapes;
};

class Standing_Clock final : public desktop::Clock {
public:
    QDateTime Now() const override { return now; }
    int Timer_Interval(int) const override { return 0; }
    QDateTime now{QDate(2026, 6, 15), QTime(10, 30)};
};

class Silent_Sound final : public desktop::Sound {
public:
    void Play(const QString& file) override { played.append(file); }
    QStringList played;
};

class Scripted_Documents final : public desktop::Documents {
public:
    QString Short_Path(const QString& path) override { return path; }
    int Shell_Open(const QString& file, const QString& folder) override {
        opened.append(file);
        folders.append(folder);
        return result;
    }
    int result = 33;
    QStringList opened;
    QStringList folders;
};

class Recording_Processes final : public desktop::Processes {
public:
    void Start(const QString& command_line) override;
    bool shell_is_missing = false;
    QStringList started;

protected:
    void End_Process(int status) override { throw Program_Ended{status}; }
};

class Scripted_Ini final : public desktop::Ini_Files {
public:
    QString Value(const QString& file, const QString& section, const QString& key,
                  const QString& missing) override;
    std::map<QString, QString> values; // by "section/key"
    bool fails = false;
    QStringList asked;
};

class Scripted_Files final : public desktop::Files {
public:
    QString Dir(const QString& file) override { return names.value(file); }
    QHash<QString, QString> names; // the name on the disk by the full name asked for
};

class Scripted_Folders final : public desktop::Special_Folders {
public:
    int Folder_Path(int number, QString& path) override;
    int result = 0;
    QString common_app_data;
    QString own_documents;
};

// Acts on a dialog in the user's place instead of waiting for one.
class Scripted_Dialogs final : public desktop::Modal_Dialogs {
public:
    void Will_Do(std::function<void(QDialog&)> act) { acts.append(std::move(act)); }
    void Show(QDialog& dialog) override;
    QList<std::function<void(QDialog&)>> acts;
};

// Gives the answers in order; none left is a cancel.
class Scripted_File_Dialogs final : public desktop::File_Dialogs {
public:
    QString Open_File(const desktop::File_Question& question) override { return Next(question); }
    QString Save_File(const desktop::File_Question& question) override { return Next(question); }
    QString Choose_Folder(const QString& title, const QString& folder) override {
        return Next({.title = title, .filter = {}, .folder = folder, .file_name = {}, .extension = {}});
    }
    QStringList answers;
    QStringList refusals;                 // why an answer wasn't taken and the next one was given
    QStringList told;                     // of each file that was chosen, where the dialog tells
    bool changes_what_was_chosen = false; // hands on a file that has become another since it was looked at
    QList<desktop::File_Question> asked;

private:
    QString Next(const desktop::File_Question& question);
};

class Scripted_Input_Box final : public desktop::Input_Box {
public:
    QString Ask(const QString& prompt, const QString& title) override;
    QStringList answers;
    QStringList asked; // title: prompt
};

// Gives the listed numbers over and over.
class Listed_Random final : public desktop::Random_Source {
public:
    void Seed(double seconds) override { seeds.append(seconds); }
    double Next() override { return numbers[next++ % numbers.size()]; }
    QList<double> numbers{0.0};
    QList<double> seeds;

private:
    qsizetype next = 0;
};

// Paints what is printed into pictures, one a page, at 96 dots to the inch.
class Picture_Printer final : public desktop::Printers {
public:
    bool Is_Any_Set_Up() override { return is_set_up; }
    bool Choose() override { return !cancelled; }
    void Print(const desktop::Printed_Document& document) override;
    bool is_set_up = true;
    bool cancelled = false;
    bool broken = false;
    QStringList printed;
    QList<QImage> pages;
};

class Kept_Clipboard final : public desktop::Clipboard {
public:
    void Put(const desktop::Page_Copy& page) override { copied.append(page); }
    void Put_Text(const QString& text) override { texts.append(text); }
    QString Text() override { return text; }
    QList<desktop::Page_Copy> copied;
    QStringList texts; // that were put there
    QString text;      // what lies there from elsewhere
};

// Values by their key, each with the type that the system would tell. A key without one can't be opened.
class Scripted_Registry final : public desktop::Registry {
public:
    struct Version {
        int type;
        QByteArray bytes;
    };
    int Create_Key(const QString& key, int access, quintptr& handle) override;
    int Query_Value(quintptr handle, const QString& name, int& type, QByteArray& buffer) override;
    void Close_Key(quintptr handle) override { open.removeOne(handle); }

    QHash<QString, Version> versions;
    QStringList asked;
    QList<quintptr> open;
};

class Kept_Settings final : public desktop::User_Settings {
public:
    QString Value(const QString& key, const QString& missing) override { return kept.value(key, missing); }
    void Keep(const QString& key, const QString& value) override { kept[key] = value; }
    QHash<QString, QString> kept;
};

struct Scripted_Platform {
    Scripted_Boxes boxes;
    Recording_Pointer pointer;
    Standing_Clock clock;
    Silent_Sound sound;
    Scripted_Documents documents;
    Recording_Processes processes;
    Scripted_Ini ini;
    Scripted_Files files;
    Scripted_Folders folders;
    Scripted_Dialogs dialogs;
    Scripted_File_Dialogs file_dialogs;
    Scripted_Input_Box input_box;
    Listed_Random random;
    Picture_Printer printers;
    Kept_Clipboard clipboard;
    Scripted_Registry registry;
    Kept_Settings settings;
    desktop::Platform platform{boxes,  pointer,  clock,     sound,    documents,    processes,
                               ini,    files,    folders,   dialogs,  file_dialogs, input_box,
                               random, printers, clipboard, registry, settings};

    // Prints with a cancelled dialog and with a faulty printer: neither may show a box or let an error out.
    void Expect_Silent_Unless_Printed(const std::function<void()>& print);
};

} // namespace test_support
