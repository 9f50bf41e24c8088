#include "shell/conventions/csv_dialog.h"

#include "shell/conventions/dialog_layout.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/hot_label.h"
#include "shell/conventions/utilities.h"

#include <QGroupBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace shell {

using basics::Decimal_Mark;

const QString Rows_Setting = u"Csv/Row_For_Each_Pupil"_s;
const QString Decimal_Setting = u"Csv/Decimal_Comma"_s;

Csv_Dialog::Csv_Dialog(desktop::Platform& platform, Csv_Rows wanted, Csv_Form& form)
    : platform(platform),
      form(form),
      rows(Make_Either(
          u"Rows"_s,
          {Option{u"RowForEachTest", u"One row for each test",
                  u"A pupil has nine rows: to be sorted and counted by test."},
           Option{u"RowForEachPupil", u"One row for each pupil",
                  u"All tests of a pupil stand side by side: to be looked through as a class list."}},
          platform.settings.Is_On(Rows_Setting))),
      decimal(Make_Either(
          u"Numbers"_s,
          {Option{u"DecimalPoint", u"Decimal point: 1.5",
                  u"For spreadsheets that show one and a half as 1.5."},
           Option{
               u"DecimalComma", u"Decimal comma: 1,5",
               u"For spreadsheets that show one and a half as 1,5. A semicolon stands between the fields."}},
          platform.settings.Is_On(Decimal_Setting))) {
    setObjectName(u"Csv_Dialog"_s);
    setWindowTitle(u"Save as CSV"_s);
    setMinimumWidth(420);
    rows.group->setHidden(wanted == Csv_Rows::Of_One_Form);
    auto* ok = new HotLabel(u"HotLabel1"_s, u"OK"_s, this);
    auto* quit = new HotLabel(u"HotLabel3"_s, u"Cancel"_s, this);
    On(ok, &HotLabel::clicked, this, platform, [this] { HotLabel1_Click(); });
    On(quit, &HotLabel::clicked, this, platform, [this] { HotLabel3_Click(); });
    ok->setAccessibleDescription(u"Goes on to the name and place of the file."_s);
    quit->setAccessibleDescription(u"Leaves without a file."_s);
    ok->Set_Weight(HotLabel::Weight::Primary);
    Give_Mnemonics(*this);
    Lay_Out_Dialog(*this, {rows.group, decimal.group}, {ok, quit});
}

Csv_Dialog::Either Csv_Dialog::Make_Either(const QString& question, const std::array<Option, 2>& options,
                                           bool second) {
    auto* group = new QGroupBox(question, this);
    auto* column = new QVBoxLayout(group);
    Either made{group, {}};
    for (std::size_t i = 0; i < options.size(); ++i) {
        auto* button = new QRadioButton(QString::fromUtf16(options[i].caption), group);
        button->setObjectName(QString::fromUtf16(options[i].name));
        button->setAccessibleDescription(QString::fromUtf16(options[i].help));
        button->setToolTip(button->accessibleDescription());
        column->addWidget(button);
        made.options[i] = button;
    }
    made.options[second ? 1 : 0]->setChecked(true);
    return made;
}

void Csv_Dialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Center_Control(*this);
    const Either& first = rows.group->isHidden() ? decimal : rows;
    first.options[first.Is_Second() ? 1 : 0]->setFocus();
}

void Csv_Dialog::HotLabel1_Click() {
    form = {rows.Is_Second(), decimal.Is_Second() ? Decimal_Mark::Comma : Decimal_Mark::Point};
    if (!rows.group->isHidden()) platform.settings.Turn(Rows_Setting, rows.Is_Second());
    platform.settings.Turn(Decimal_Setting, decimal.Is_Second());
    accept();
}

void Csv_Dialog::HotLabel3_Click() {
    reject();
}

bool Ask_Csv_Form(Csv_Rows rows, Csv_Form& form, desktop::Platform& platform) {
    Csv_Dialog dialog(platform, rows, form);
    platform.dialogs.Show(dialog);
    return dialog.result() == QDialog::Accepted;
}

} // namespace shell
