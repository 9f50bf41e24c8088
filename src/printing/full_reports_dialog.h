#pragma once

#include "printing/batch_list.h"
#include "printing/full_reports.h"

#include <QDialog>
#include <QLabel>
#include <QRadioButton>

namespace shell {
class HotLabel;
class Work_Bar;
} // namespace shell

namespace printing {

// Asks how the full reports of chosen pupils are to be saved, and where, and makes them. While it works only
// its Stop can be pressed.
class Full_Reports_Dialog final : public QDialog {
    Q_OBJECT
public:
    Full_Reports_Dialog(desktop::Platform& platform, Full_Report_Sources sources, bool keep_to_margins,
                        Found_Entries chosen, const QString& group);

    void Create_Click();
    void reject() override; // stops the work, or else closes the dialog
    int Sheets_Made() const { return made.sheets; }

private:
    void Lay_Out();
    QString What_It_Makes() const;
    QString Where_To();
    bool May_Replace(const QString& folder);
    void Make(const QString& where);
    void Begin_Work();
    void Tell_Outcome(const QString& where);
    QString Outcome_In_Words(const QString& where) const;

    desktop::Platform& platform;
    Full_Report_Sources sources;
    Found_Entries chosen;
    QString group;
    Full_Reports reports;
    Full_Reports_Made made;
    bool working = false;
    bool stop_wanted = false;

    QRadioButton *one_file, *a_file_each;
    shell::Work_Bar* bar;
    QLabel* progress;
    shell::HotLabel *create, *cancel;
};

} // namespace printing
