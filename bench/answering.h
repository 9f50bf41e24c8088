#pragma once

#include "platform/desktop/ports.h"

#include <stdexcept>

namespace bench {

// Nobody sits before the screen: questions are answered, news is taken, and what is wrong ends the run.
class Yes_To_All final : public desktop::Message_Boxes {
public:
    desktop::Answer Ask(desktop::Box_Style style, const QString&, const QString& text) override {
        using desktop::Box_Style;
        if (style == Box_Style::Yes_No_Question) return desktop::Answer::Yes;
        if (style == Box_Style::Plain || style == Box_Style::Information) return desktop::Answer::Ok;
        throw std::runtime_error(text.toStdString());
    }
};

class One_File final : public desktop::File_Dialogs {
public:
    explicit One_File(QString file) : file(std::move(file)) {}
    QString Open_File(const desktop::File_Question&) override { return file; }
    QString Save_File(const desktop::File_Question&) override { return file; }
    QString Choose_Folder(const QString&, const QString&) override { return {}; }

private:
    QString file;
};

} // namespace bench
