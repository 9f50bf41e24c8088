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

    QList<Box_Shown> shown;

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
};

// Acts on a dialog in the user's place instead of waiting for one.
class Scripted_Dialogs final : public desktop::Modal_Dialogs {
public:
    void Will_Do(std::function<void(QDialog&)> act) { acts.append(std::move(act)); }
    void Show(QDialog& dialog) override;
    QList<std::function<void(QDialog&)>> acts;
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
    desktop::Platform platform{boxes,     pointer, clock, sound,   documents,
                               processes, ini,     files, folders, dialogs};
};

} // namespace test_support
