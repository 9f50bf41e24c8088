#pragma once

#include "printing/report_page.h"

#include <QList>
#include <QListWidget>
#include <utility>

namespace printing {

// The preview of sheets that follow one another, with a list of them. The page that opened it lies beneath.
class Sheets_Page : public Report_Page {
    Q_OBJECT
public:
    void Load() override;

protected:
    struct Words {
        QString title;
        int title_width; // pixels; the rest of the line is the page's own
        QString back;    // the caption of the way back, and its help
        QString back_help;
        QString print_help;
    };
    Sheets_Page(desktop::Platform& platform, shell::Navigator& navigator,
                const foundation::Installation& installation, const Words& words);

    virtual void Draw_Sheets() = 0;
    void Draw_Anew() final;
    // Of the page's own controls; called once these are there.
    void Tell_Helps(const QList<std::pair<QWidget*, QString>>& own);

    static constexpr int Left = 16;
    static constexpr int Preview_Width = 804;

private:
    void Lay_Out(const Words& words);

    QListWidget* pages;
    shell::Help_Line* help;
};

} // namespace printing
