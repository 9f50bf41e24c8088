#pragma once

#include "platform/basics/csv_text.h"
#include "platform/desktop/ports.h"

#include <QDialog>
#include <QRadioButton>
#include <array>

namespace shell {

// How a file for spreadsheets is to be written.
struct Csv_Form {
    bool row_a_pupil = false; // and not a row for each test
    basics::Decimal_Mark decimal = basics::Decimal_Mark::Point;
};

// Whether there is a choice between the two forms of rows.
enum class Csv_Rows { As_Chosen, Of_One_Form };

// Asks for the form, and begins with what this account chose last.
class Csv_Dialog : public QDialog {
    Q_OBJECT
public:
    Csv_Dialog(desktop::Platform& platform, Csv_Rows rows, Csv_Form& form);

    void HotLabel1_Click(); // takes the form over
    void HotLabel3_Click(); // leaves without

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Option {
        const char16_t *name, *caption, *help;
    };
    struct Either {
        QWidget* group;
        std::array<QRadioButton*, 2> options;
        bool Is_Second() const { return options[1]->isChecked(); }
    };
    Either Make_Either(const QString& question, const std::array<Option, 2>& options, bool second);

    desktop::Platform& platform;
    Csv_Form& form;
    Either rows, decimal;
};

// False if the dialog was cancelled.
bool Ask_Csv_Form(Csv_Rows rows, Csv_Form& form, desktop::Platform& platform);

} // namespace shell
