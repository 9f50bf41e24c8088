#pragma once

#include "foundation/installation.h"
#include "pupils/list_to_import.h"
#include "pupils/rehearsal_view.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"

#include <QCheckBox>
#include <QLineEdit>

namespace pupils {

// The page that makes the import's file of any list that a school brings: it reads the list, shows what its
// columns hold, rehearses the import, and hands the prepared list to the Import page's preview. It writes
// nothing before.
class Form43 final : public shell::Page {
    Q_OBJECT
public:
    Form43(desktop::Platform& platform, shell::Navigator& navigator,
           const foundation::Installation& installation, List_To_Import& shared);

    void Load() override;

    void HotLabel1_Click(); // back to the Import page
    void HotLabel2_Click(); // opens a file
    void HotLabel3_Click(); // pastes
    void HotLabel4_Click(); // cures the rows shown
    void HotLabel5_Click(); // keeps the prepared list
    void HotLabel6_Click(); // hands it to the import
    void Combo1_Click();    // another encoding or sheet
    void Combo8_Click();    // another order of dates
    void Mapping_Click();
    void Text2_Change();
    void Check1_Click();

private:
    void Lay_Out();
    void Lay_Out_Source();
    void Lay_Out_Columns();
    void Lay_Out_Rows();
    void Tell_Helps();

    // Does what may find the source unfit, and tells so.
    void Telling_Refusals(const std::function<void()>& work);
    void Begin_With(const QString& source, const QByteArray& bytes, Source_Table table);
    void Show_List();
    void Show_Source();
    void Show_Columns();
    void Show_Dates();
    void Show_Rehearsal();
    void Show_Filter(const Rehearsal_Counts& counts);
    void Show_New_Classes(const Rehearsal_Counts& counts);
    void Tell_Row();
    QString Summary(const Rehearsal_Counts& counts) const;
    void Take_Change();
    QList<Rehearsed_Row> Shown_Rows() const;

    const foundation::Installation& installation;
    List_To_Import& shared;
    Preparation& list;
    Registered registered;
    QList<Rehearsed_Row> rows;
    static constexpr int All_Kinds = -1;
    QList<int> filters; // of each of Combo9's items, the kind of rows

    shell::HotLabel *HotLabel1, *HotLabel2, *HotLabel3, *HotLabel4, *HotLabel5, *HotLabel6;
    QLineEdit* Text1;              // the source
    QLabel* Label2;                // "Encoding" or "Sheet"
    shell::Click_Combo* Combo1;    // of them
    shell::Click_Combo* Fields[6]; // Combo2 to Combo7: the column of each field
    shell::Click_Combo* Combo8;    // the order of dates
    QLineEdit* Text2;              // the class for all
    shell::Click_Combo* Combo9;    // which rows are shown
    QLabel* Label12;               // the counts
    QLabel* Label13;               // what is to be done yet
    Rehearsal_View* Spread1;
    QCheckBox* Check1; // the new classes
    QLabel* Label3;    // the help line
};

} // namespace pupils
