#include "pupils/page_parts.h"

#include "shell/conventions/theme.h"

#include <QButtonGroup>

using namespace Qt::StringLiterals;

namespace pupils {

QGroupBox* Make_Panel(const QString& name, const QString& caption, const QRect& place, QWidget* parent) {
    auto* panel = new QGroupBox(caption, parent);
    panel->setObjectName(name);
    panel->setGeometry(place);
    return panel;
}

QLineEdit* Make_Entry(const QString& name, const QString& accessible_name, const QRect& place,
                      QWidget* parent) {
    auto* entry = new QLineEdit(parent);
    entry->setObjectName(name);
    entry->setAccessibleName(accessible_name);
    entry->setGeometry(place);
    return entry;
}

shell::Click_Combo* Make_Combo(const QString& name, const QString& accessible_name, const QRect& place,
                               QWidget* parent) {
    constexpr int most_lines = 20;
    auto* combo = new shell::Click_Combo(name, parent);
    combo->setAccessibleName(accessible_name);
    combo->setGeometry(place);
    combo->setMaxVisibleItems(most_lines);
    return combo;
}

static QRadioButton* Make_Option(const QString& name, const QString& caption, const QString& question,
                                 const QPoint& corner, QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(name);
    option->setAccessibleDescription(question);
    option->setGeometry(QRect(corner, QSize(64, 28)));
    return option;
}

Yes_No Make_Yes_No(const QString& yes_name, const QString& no_name, const QString& question,
                   const QPoint& corner, QWidget* parent) {
    const Yes_No pair{Make_Option(yes_name, u"Yes"_s, question, corner, parent),
                      Make_Option(no_name, u"No"_s, question, corner + QPoint(76, 0), parent)};
    // Without a group of their own they would belong to one group with those of the panels inside their
    // parent, which the Tab key would then pass over.
    auto* group = new QButtonGroup(parent);
    group->addButton(pair.yes);
    group->addButton(pair.no);
    return pair;
}

QLabel* Make_Number(const QString& name, const QRect& place, QWidget* parent) {
    QLabel* number = shell::Make_Label(name, u""_s, shell::Text_Role::Heading, parent);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setGeometry(place);
    return number;
}

QLabel* Make_Help_Label(const QString& name, const QRect& place, QWidget* parent) {
    QLabel* label = shell::Make_Label(name, u""_s, shell::Text_Role::Help, parent);
    label->setWordWrap(true);
    label->setAccessibleName(u"Help"_s);
    label->setGeometry(place);
    return label;
}

shell::Help_Line* Help_In(QLabel* label, QObject* owner) {
    return new shell::Help_Line(owner, [label](const QString& text) {
        QString lines = text;
        label->setText(lines.replace(u'\r', u'\n')); // a label breaks its lines at line feeds only
    });
}

using Take_Pupil = std::function<void(foundation::Row_Fields& field, int p)>;

// Gives their entries.
static QStringList Taken_Pupils(foundation::Access_Holder& holder, int count, const Record_Data& data,
                                const Take_Pupil& take) {
    foundation::Row_Fields field(holder);
    QStringList entries;
    entries.reserve(count);
    for (int p = 1; p <= count; ++p) {
        take(field, p);
        entries.append(Pupil_Entry(p, data));
        field.Next_Row();
    }
    return entries;
}

void List_All_Pupils(foundation::Access_Holder& holder, const Record_Data& data, shell::Click_Combo& box,
                     const QStringList& columns,
                     const std::function<void(foundation::Row_Fields& field, int p)>& take) {
    holder.ado_Open(data.installation.Connection_String,
                    u"SELECT * FROM Mevo_Pupils ORDER BY Surname,Forename"_s, u"Optimistic"_s,
                    Columns_Of_Names() + columns);
    qint16 count = 0;
    holder.ado_RSCount(count);
    box.Clear();
    if (count > 0) box.Add_Items(Taken_Pupils(holder, count, data, take));
    holder.ado_Close();
    data.pupils.Pupils_Listed = count;
}

void Select_First(shell::Click_Combo* combo) {
    if (combo->count() > 0) combo->Set_ListIndex(0);
}

} // namespace pupils
