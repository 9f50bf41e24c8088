#include "pupils/date_lists.h"

#include "platform/basics/dates.h"
#include "platform/basics/number_text.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/theme.h"

#include <QDate>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

constexpr int Year_Digits = 4;
constexpr int February = 2;
constexpr int Months_In_A_Year = 12;

struct Month {
    QString name;
    int days; // in a common year
};

const QList<Month>& Months() {
    static const QList<Month> months{
        {u"January"_s, 31},   {u"February"_s, 28}, {u"March"_s, 31},    {u"April"_s, 30},
        {u"May"_s, 31},       {u"June"_s, 30},     {u"July"_s, 31},     {u"August"_s, 31},
        {u"September"_s, 30}, {u"October"_s, 31},  {u"November"_s, 30}, {u"December"_s, 31},
    };
    return months;
}

QString Two_Digits(int number) {
    return QString::number(number).rightJustified(2, u'0');
}

int Month_Boundaries(const QDate& from, const QDate& to) {
    return (to.year() - from.year()) * Months_In_A_Year + to.month() - from.month();
}

QLabel* Make_Age_Label(const QString& name, QWidget* parent) {
    QLabel* label = shell::Make_Label(name, u""_s, shell::Text_Role::Heading, parent);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

} // namespace

bool IsLeapYear(const basics::Value& year) {
    const int number = year.Is_Date() ? year.As_Date().date().year() : year.As_Integer();
    // The 29th rolls over into March where February ends with the 28th.
    return QDate(number, February, 1).addDays(28).day() == 29;
}

Date_Lists::Date_Lists(QWidget* page, QWidget* parent, desktop::Platform& platform)
    : QObject(page),
      Combo2(new shell::Click_Combo(u"Combo2"_s, parent)),
      Combo3(new shell::Click_Combo(u"Combo3"_s, parent)),
      Combo4(new shell::Click_Combo(u"Combo4"_s, parent)),
      Text2(new QLineEdit(parent)),
      txAgeY(Make_Age_Label(u"txAgeY"_s, parent)),
      txAgeM(Make_Age_Label(u"txAgeM"_s, parent)),
      platform(platform) {
    Text2->setObjectName(u"Text2"_s);
    Text2->hide();
    const std::pair<shell::Click_Combo*, QString> lists[] = {
        {Combo2, u"Day of birth"_s}, {Combo3, u"Month of birth"_s}, {Combo4, u"Year of birth"_s}};
    for (const auto& [list, accessible_name] : lists) {
        list->setAccessibleName(accessible_name);
        list->setMaxVisibleItems(16);
    }
    shell::On(Combo2, &shell::Click_Combo::Click, this, platform, [this] { Combo2_Click(); });
    shell::On(Combo3, &shell::Click_Combo::Click, this, platform, [this] { Combo3_Click(); });
    shell::On(Combo4, &shell::Click_Combo::Click, this, platform, [this] { Combo4_Click(); });
}

void Date_Lists::Populate_Date_List(int days, int day) {
    Combo2->Clear();
    for (int number = 1; number <= days; ++number)
        Combo2->AddItem(basics::Signed_Number(number));
    Combo2->Set_ListIndex((day <= days ? day : days) - 1);
    Combo2->update(); // painted with all else that changes now, before the next key is looked at
}

void Date_Lists::Populate_Months_List() {
    Combo3->Clear();
    for (const Month& month : Months())
        Combo3->AddItem(month.name);
    Combo3->Set_ListIndex(0);
}

int Date_Lists::Current_Year() const {
    return platform.clock.Now().date().year();
}

void Date_Lists::Populate_Year_List(int first_year, int chosen_item) {
    Combo4->Clear();
    for (int year = first_year; year < Current_Year(); ++year)
        Combo4->AddItem(basics::Signed_Number(year));
    Combo4->Set_ListIndex(chosen_item);
}

int Date_Lists::Selected_Day() const {
    return Combo2->ListIndex() + 1;
}

bool Date_Lists::Is_February() const {
    return Combo3->ListIndex() + 1 == February;
}

void Date_Lists::Rebuild_February() {
    const bool leap = IsLeapYear(Combo4->currentText().trimmed().toInt());
    const int days = Months()[February - 1].days + (leap ? 1 : 0);
    Populate_Date_List(days, Selected_Day());
}

void Date_Lists::Combo2_Click() {
    Compute_And_Display_Age();
}

void Date_Lists::Combo3_Click() {
    if (Is_February()) {
        Rebuild_February();
    } else if (Combo3->ListIndex() >= 0) {
        const int days = Months()[Combo3->ListIndex()].days;
        if (Combo2->count() != days) Populate_Date_List(days, Selected_Day());
    }
    Compute_And_Display_Age();
}

void Date_Lists::Combo4_Click() {
    if (Is_February()) Rebuild_February();
    Compute_And_Display_Age();
}

void Date_Lists::Compute_And_Display_Age() {
    Text2->setText(Two_Digits(Selected_Day()) + u'/' + Two_Digits(Combo3->ListIndex() + 1) + u'/' +
                   Combo4->currentText().right(Year_Digits));
    const auto birth = basics::Stored_Date(Text2->text());
    if (!birth) return; // while the lists fill, there is no date yet
    const int months = Month_Boundaries(birth->date(), platform.clock.Now().date());
    txAgeY->setText(basics::Plain_Number(months / Months_In_A_Year));
    txAgeM->setText(basics::Plain_Number(months % Months_In_A_Year));
}

void Date_Lists::Blank_Age() {
    txAgeY->setText(u""_s);
    txAgeM->setText(u""_s);
}

void Date_Lists::Set_Enabled(bool enabled) {
    for (shell::Click_Combo* list : {Combo2, Combo3, Combo4})
        list->setEnabled(enabled);
}

} // namespace pupils
