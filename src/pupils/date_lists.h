#pragma once

#include "platform/basics/value.h"
#include "platform/desktop/ports.h"
#include "shell/conventions/click_combo.h"

#include <QLabel>
#include <QLineEdit>

namespace pupils {

// The calendar's own answer; the argument is a date or a year.
bool IsLeapYear(const basics::Value& year);

// A date of birth chosen from three lists, so that it is always a real date, with the age that follows from
// it. The controls are made on a page, which gives them their places.
class Date_Lists final : public QObject {
public:
    Date_Lists(QWidget* page, QWidget* parent, desktop::Platform& platform);

    // Days 1 to `days`; `day` is selected if there is one, else the last.
    void Populate_Date_List(int days, int day);
    void Populate_Months_List();
    // Years from the first to the one before the current; the item counts from 0.
    void Populate_Year_List(int first_year, int chosen_item);
    int Current_Year() const;

    // Months are counted as calendar month boundaries crossed; the day of the month plays no part.
    void Compute_And_Display_Age();
    void Blank_Age();

    void Set_Enabled(bool enabled);

    shell::Click_Combo* Combo2; // day
    shell::Click_Combo* Combo3; // month
    shell::Click_Combo* Combo4; // year
    QLineEdit* Text2;           // the date as dd/mm/yyyy; not shown
    QLabel* txAgeY;
    QLabel* txAgeM;

private:
    void Combo2_Click();
    void Combo3_Click();
    void Combo4_Click();
    int Selected_Day() const; // from 1; 0 for none
    bool Is_February() const;
    void Rebuild_February();

    desktop::Platform& platform;
};

} // namespace pupils
