#include "support/scripted_platform.h"

#include "platform/basics/run_time_error.h"
#include "support/printing.h"

#include <QFileInfo>
#include <QPainter>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace test_support {

void Scripted_Boxes::Will_Answer(desktop::Answer answer, std::function<void()> meanwhile) {
    replies.append({answer, std::move(meanwhile)});
}

desktop::Answer Scripted_Boxes::Ask(desktop::Box_Style style, const QString& title, const QString& text) {
    shown.append({style, title, text});
    if (replies.isEmpty() && otherwise) return otherwise(style);
    if (replies.isEmpty()) {
        ADD_FAILURE() << "Nobody expected a box: " << title.toStdString() << ": " << text.toStdString();
        return desktop::Answer::Abort;
    }
    const Reply reply = replies.takeFirst();
    if (reply.meanwhile) reply.meanwhile();
    return reply.answer;
}

QStringList Scripted_Boxes::Titles() const {
    QStringList titles;
    for (const Box_Shown& box : shown)
        titles.append(box.title);
    return titles;
}

void Scripted_Boxes::Expect_All_Asked() const {
    EXPECT_TRUE(replies.isEmpty()) << replies.size() << " expected boxes were never shown";
}

void Scripted_Boxes::Expect_Last(desktop::Box_Style style, const QString& title, const QString& text) const {
    ASSERT_FALSE(shown.isEmpty()) << title.toStdString();
    EXPECT_EQ(shown.last().style, style);
    EXPECT_EQ(shown.last().title, title);
    EXPECT_EQ(shown.last().text, text);
}

void Scripted_Boxes::Expect_Abort_Ends(const std::function<void()>& reading) {
    Will_Answer(desktop::Answer::Abort);
    EXPECT_THROW(reading(), Program_Ended);
    EXPECT_EQ(Titles().value(Titles().size() - 1), u"Error Information: ado_Open"_s);
}

void Recording_Processes::Start(const QString& command_line) {
    if (shell_is_missing) basics::Raise(basics::errors::File_Not_Found);
    started.append(command_line);
}

QString Scripted_Ini::Value(const QString& file, const QString& section, const QString& key,
                            const QString& missing) {
    asked.append(file);
    if (fails) throw basics::Run_Time_Error(75, u"Mevo"_s, u"Path/File access error"_s);
    const auto found = values.find(section + u'/' + key);
    return found == values.end() ? missing : found->second;
}

int Scripted_Folders::Folder_Path(int number, QString& path) {
    EXPECT_TRUE(number == desktop::Common_AppData || number == desktop::Own_Documents);
    if (result == 0) path = number == desktop::Own_Documents ? own_documents : common_app_data;
    return result;
}

void Scripted_Dialogs::Show(QDialog& dialog) {
    if (acts.isEmpty()) {
        ADD_FAILURE() << "Nobody expected the dialog " << dialog.windowTitle().toStdString();
        return;
    }
    const auto act = acts.takeFirst();
    act(dialog);
}

QString Scripted_File_Dialogs::Next(const desktop::File_Question& question) {
    asked.append(question);
    while (!answers.isEmpty()) {
        const QString answer = answers.takeFirst();
        QString why_not = question.why_not && !answer.isEmpty() ? question.why_not(answer) : QString();
        if (question.tell && QFileInfo(answer).isFile()) {
            const desktop::File_Words found = question.tell(answer);
            told.append(found.words);
            if (!found.is_taken && !changes_what_was_chosen) why_not = found.words;
        }
        if (why_not.isEmpty()) return answer;
        refusals.append(why_not);
    }
    return {};
}

QString Scripted_Input_Box::Ask(const QString& prompt, const QString& title) {
    asked.append(title + u": "_s + prompt);
    return answers.isEmpty() ? QString() : answers.takeFirst();
}

int Scripted_Registry::Create_Key(const QString& key, int access, quintptr& handle) {
    EXPECT_EQ(access, Read_Access);
    asked.append(key);
    constexpr int denied = 5;
    if (!versions.contains(key)) return denied;
    handle = static_cast<quintptr>(asked.size());
    open.append(handle);
    return 0;
}

int Scripted_Registry::Query_Value(quintptr handle, const QString& name, int& type, QByteArray& buffer) {
    EXPECT_TRUE(open.contains(handle));
    EXPECT_EQ(name, u"Version"_s);
    EXPECT_EQ(buffer, QByteArray(1024, '\0'));
    const Version& found = versions[asked.last()];
    type = found.type;
    buffer.replace(0, found.bytes.size(), found.bytes);
    return 0;
}

void Picture_Printer::Print(const desktop::Printed_Document& document) {
    if (broken) throw basics::Run_Time_Error(482, u"Printer"_s, u"The printer is stopped."_s);
    printed.append(document.name);
    for (int page = 1; page <= document.pages; ++page) {
        QImage sheet(794, 1123, QImage::Format_RGB32);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        painter.scale(96 / 1440.0, 96 / 1440.0);
        document.paint(painter, page);
        pages.append(sheet);
    }
}

void Scripted_Platform::Expect_Silent_Unless_Printed(const std::function<void()>& print) {
    const qsizetype shown = boxes.shown.size();
    for (bool* reason : {&printers.cancelled, &printers.broken}) {
        *reason = true;
        EXPECT_NO_THROW(print());
        *reason = false;
    }
    EXPECT_TRUE(printers.printed.isEmpty());
    EXPECT_EQ(boxes.shown.size(), shown);
}

} // namespace test_support
