#pragma once

#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/help_line.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <functional>

namespace pupils {

// Two option buttons of which one holds.
struct Yes_No {
    QRadioButton* yes = nullptr;
    QRadioButton* no = nullptr;

    bool Is_Yes() const { return yes->isChecked(); }
    void Set(bool value) const { (value ? yes : no)->setChecked(true); }
};

// Side by side, from the corner to the right.
Yes_No Make_Yes_No(const QString& yes_name, const QString& no_name, const QString& question,
                   const QPoint& corner, QWidget* parent);

QGroupBox* Make_Panel(const QString& name, const QString& caption, const QRect& place, QWidget* parent);
QLineEdit* Make_Entry(const QString& name, const QString& accessible_name, const QRect& place,
                      QWidget* parent);
shell::Click_Combo* Make_Combo(const QString& name, const QString& accessible_name, const QRect& place,
                               QWidget* parent);
QLabel* Make_Number(const QString& name, const QRect& place, QWidget* parent); // a count, at the right
QLabel* Make_Help_Label(const QString& name, const QRect& place, QWidget* parent);

// A help line whose texts the label shows.
shell::Help_Line* Help_In(QLabel* label, QObject* owner);

// Reads all pupils by their names into the lists and the box to choose from. `take` fills what the page needs
// of the row at hand at place p; `columns` are those that it reads beside those of the names.
void List_All_Pupils(foundation::Access_Holder& holder, const Record_Data& data, shell::Click_Combo& box,
                     const QStringList& columns,
                     const std::function<void(foundation::Row_Fields& field, int p)>& take);

// Selects the first item; a list without items is left alone.
void Select_First(shell::Click_Combo* combo);

} // namespace pupils
