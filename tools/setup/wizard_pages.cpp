#include "setup/wizard_pages.h"

#include "conversion/refusal.h"
#include "foundation/start_up.h"
#include "platform/basics/native_path.h"
#include "setup/folders.h"
#include "setup/share_check.h"
#include "shell/conventions/theme.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace set_up {

constexpr int Indent = 28;
constexpr int Caption_Width = 170;
const QString No_Group = u"this account alone"_s;

Set_Up_Page::Set_Up_Page(const QString& name, const QString& title, const QString& subtitle,
                         Wizard_State& state)
    : state(state), column(new QVBoxLayout(this)) {
    setObjectName(name);
    setTitle(title);
    setSubTitle(subtitle);
    column->setSpacing(6);
    column->setContentsMargins(8, 4, 8, 4);
    notice = shell::Make_Label(u"Notice"_s, {}, shell::Text_Role::Notice, this);
    notice->setWordWrap(true);
    notice->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    notice->hide();
    help_label = shell::Make_Label(u"Help"_s, {}, shell::Text_Role::Help, this);
    help_label->setWordWrap(true);
    help_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    help_label->setFixedHeight(48);
    help = new shell::Help_Line(this, [this](const QString& text) { help_label->setText(text); });
}

void Set_Up_Page::Finish_Layout() {
    column->addStretch();
    column->addWidget(notice);
    column->addWidget(help_label);
    help->Follow_Focus(*this);
}

QRadioButton* Set_Up_Page::Add_Choice(const QString& name, const QString& caption, const QString& help_text) {
    auto* choice = new QRadioButton(caption, this);
    choice->setObjectName(name);
    column->addWidget(choice);
    help->Tell(choice, help_text);
    // A letter that chooses gives the focus without a reason that the help follows.
    connect(choice, &QRadioButton::toggled, help_label, [this, help_text](bool is_chosen) {
        if (is_chosen) help_label->setText(help_text);
    });
    return choice;
}

void Set_Up_Page::Add_Row(QLabel* caption, const std::vector<QWidget*>& controls, const QString& help_text) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Indent, 0, 0, 0);
    caption->setTextFormat(Qt::AutoText);
    caption->setFixedWidth(Caption_Width);
    caption->setBuddy(controls.front());
    row->addWidget(caption);
    for (QWidget* control : controls)
        row->addWidget(control, control == controls.front() ? 1 : 0);
    column->addLayout(row);
    controls.front()->setAccessibleName(caption->text().remove(u'&').remove(u':'));
    for (QWidget* control : controls)
        help->Tell(control, help_text);
}

Set_Up_Page::Field Set_Up_Page::Add_Field(const QString& name, const QString& caption,
                                          const QString& help_text,
                                          const std::function<QString(const QString&)>& choose,
                                          const QString& title) {
    Field field{new QLabel(caption, this), new QLineEdit(this)};
    field.edit->setObjectName(name);
    std::vector<QWidget*> controls{field.edit};
    if (choose) {
        field.browse = new QPushButton(u"Choose..."_s, this);
        field.browse->setObjectName(name + u"_Browse"_s);
        field.browse->setAutoDefault(false);
        controls.push_back(field.browse);
        connect(field.browse, &QPushButton::clicked, this, [edit = field.edit, choose, title] {
            if (const QString chosen = choose(title); !chosen.isEmpty())
                edit->setText(QDir::toNativeSeparators(chosen));
        });
    }
    Add_Row(field.caption, controls, help_text);
    connect(field.edit, &QLineEdit::textChanged, this, [this] { Q_EMIT completeChanged(); });
    return field;
}

void Set_Up_Page::Field::Set_Enabled(bool enabled) const {
    caption->setEnabled(enabled);
    edit->setEnabled(enabled);
    if (browse) browse->setEnabled(enabled);
}

void Set_Up_Page::Field::Set_Visible(bool visible) const {
    caption->setVisible(visible);
    edit->setVisible(visible);
    if (browse) browse->setVisible(visible);
}

QPlainTextEdit* Set_Up_Page::Add_Text(const QString& name, const QString& spoken_name,
                                      const QString& help_text) {
    auto* text = new QPlainTextEdit(this);
    text->setObjectName(name);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setAccessibleName(spoken_name);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(text, 1);
    help->Tell(text, help_text);
    return text;
}

bool Set_Up_Page::Trying(const std::function<void()>& work) {
    Notice({});
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString refused;
    try {
        work();
    } catch (const conversion::Refusal& refusal) {
        refused = refusal.Why();
    }
    QApplication::restoreOverrideCursor();
    Notice(refused);
    return refused.isEmpty();
}

void Set_Up_Page::Notice(const QString& text) {
    notice->setText(text);
    notice->setVisible(!text.isEmpty());
}

Where_Page::Where_Page(Wizard_State& state)
    : Set_Up_Page(u"Where_Page"_s, u"Where"_s,
                  u"Where do the school's databases lie, or where are they to lie?"_s, state) {
    Here = Add_Choice(
        u"Here"_s, u"&This computer"_s,
        u"For a school with one computer. They lie in the folder for all users' data, which is made if it is missing: "_s +
            state.around.standard_folder);
    const QString group_help =
        u"The accounts of this group may change what lies in the folder. The group is given when the folder is made; one that is there stays as it is."_s;
    Group_Caption = new QLabel(u"&Group that may use it:"_s, this);
    Group = new QComboBox(this);
    Group->setObjectName(u"Group"_s);
    Group->addItems(QStringList{No_Group} + Groups_Of_Accounts());
    Add_Row(Group_Caption, {Group}, group_help);
    Shared = Add_Choice(
        u"Shared"_s, u"A &folder that several computers share"_s,
        u"For a school with several computers: the same folder is named on each of them, and nothing is copied."_s);
    Folder = Add_Field(
        u"Folder"_s, u"F&older:"_s,
        u"The shared folder, as this computer calls it, such as \\\\server\\mevo or /mnt/school/mevo."_s,
        state.choose_folder, u"Folder that several computers share"_s);
    Trying_It = Add_Choice(
        u"Trying_It"_s, u"&Just try it"_s,
        u"Opens a practice school of 24 made-up pupils with made-up norms. It lies with this account's own files, and nothing is set up."_s);
    Here->setChecked(true);
    for (const QRadioButton* choice : {Here, Shared, Trying_It})
        connect(choice, &QRadioButton::toggled, this, [this] { Show_State(); });
    Finish_Layout();
    Show_State();
}

void Where_Page::Show_State() {
    const bool can_choose = Group->count() > 1 && !QFileInfo(state.around.standard_folder).isDir();
    Group_Caption->setVisible(can_choose);
    Group->setVisible(can_choose);
    Group_Caption->setEnabled(Here->isChecked());
    Group->setEnabled(Here->isChecked());
    Folder.Set_Enabled(Shared->isChecked());
    Q_EMIT completeChanged();
}

bool Where_Page::isComplete() const {
    return !Shared->isChecked() || !Folder.edit->text().trimmed().isEmpty();
}

// A key may press Next before the choice of another has greyed it.
bool Where_Page::validatePage() {
    if (!isComplete()) return false;
    state.where = Here->isChecked()     ? Where::This_Computer
                  : Shared->isChecked() ? Where::Shared_Folder
                                        : Where::Just_Trying;
    if (state.where == Where::Just_Trying) return true;
    const bool is_here = state.where == Where::This_Computer;
    state.order.folder = is_here ? state.around.standard_folder : Plain_Folder(Folder.edit->text().trimmed());
    state.order.group = is_here && Group->currentIndex() > 0 ? Group->currentText() : QString();
    return Trying([this] { Prepare_Folder(state.order, state.around); });
}

int Where_Page::nextId() const {
    return Trying_It->isChecked() ? Done_Number : What_Number;
}

What_Page::What_Page(Wizard_State& state)
    : Set_Up_Page(u"What_Page"_s, u"What"_s, u"What lies there already, and what is to lie there?"_s, state) {
    Found = Add_Text(u"Found"_s, u"Databases found"_s,
                     u"The databases that lie in the folder. They were looked into and not changed."_s);
    Found->setFixedHeight(62);
    Use_Found = Add_Choice(u"Use_Found"_s, u"The databases that lie there &already"_s,
                           u"They stay as they are, and Mevo is told where they lie."_s);
    Bring = Add_Choice(
        u"Bring"_s, u"The school's &own files"_s,
        u"Copies a school's database with its template into the folder. Files of the older Access format are converted; the originals stay as they are."_s);
    From = Add_Field(u"From"_s, u"&Database:"_s,
                     u"The school's Mevo05Data.mdb. Its template Mevo05EmptyDatabase.mdb lies beside it."_s,
                     state.choose_file, u"The school's database"_s);
    Make_New = Add_Choice(
        u"Make_New"_s, u"A new &empty school"_s,
        u"Makes a database without pupils from the school's own template, which holds the norms."_s);
    Name = Add_Field(u"Name"_s, u"School's na&me:"_s, u"It heads every printed sheet."_s);
    Classes = Add_Field(
        u"Classes"_s, u"&Classes:"_s,
        u"Divided by commas, such as 1 Oak, 1 Ash. They can be changed later on the page Security."_s);
    Password = Add_Field(
        u"Password"_s, u"&Password:"_s,
        u"The Administrator's password, which guards deleting and replacing. Left empty, the template's stays."_s);
    Password_Again = Add_Field(u"Password_Again"_s, u"Password a&gain:"_s,
                               u"The same once more, as it can't be read while it is typed."_s);
    for (const Field& field : {Password, Password_Again})
        field.edit->setEchoMode(QLineEdit::Password);
    Template = Add_Field(
        u"Template"_s, u"Temp&late:"_s,
        u"The school's own file Mevo05EmptyDatabase.mdb, which came with the suite; it may be of the older format."_s,
        state.choose_file, u"The school's own template"_s);
    for (const QRadioButton* choice : {Use_Found, Bring, Make_New})
        connect(choice, &QRadioButton::toggled, this, [this] { Show_State(); });
    Finish_Layout();
}

void What_Page::initializePage() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const Found_Databases found = Databases_In(state.order.folder);
    QApplication::restoreOverrideCursor();
    const QStringList lines = found.In_Words();
    Found->setPlainText(lines.isEmpty() ? u"No database lies in %1."_s.arg(state.order.folder)
                                        : lines.join(u'\n'));
    has_template = found.empty_template.has_value();
    Use_Found->setEnabled(found.Can_Be_Used());
    for (QRadioButton* other : {Bring, Make_New})
        other->setEnabled(!found.working);
    (found.working ? Use_Found : Make_New)->setChecked(true);
    Notice(found.working && !found.Can_Be_Used()
               ? u"A working database lies there, but it can't be used as it is. What is said of it above "
                 u"tells why; then go back and on again. "
                 "The school's own template Mevo05EmptyDatabase.mdb must lie beside it."_s
               : QString());
    Show_State();
}

void What_Page::Show_State() {
    From.Set_Visible(Bring->isChecked());
    for (const Field& field : {Name, Classes, Password, Password_Again})
        field.Set_Visible(Make_New->isChecked());
    Template.Set_Visible(Make_New->isChecked() && !has_template);
    Q_EMIT completeChanged();
}

bool What_Page::isComplete() const {
    if (Bring->isChecked()) return !From.edit->text().trimmed().isEmpty();
    if (Make_New->isChecked())
        return !Name.edit->text().trimmed().isEmpty() &&
               (has_template || !Template.edit->text().trimmed().isEmpty());
    return Use_Found->isEnabled();
}

void What_Page::Take_Choice() {
    state.order.school.reset();
    state.order.from.clear();
    if (Bring->isChecked()) state.order.from = QDir::fromNativeSeparators(From.edit->text().trimmed());
    if (!Make_New->isChecked()) return;
    if (Password.edit->text() != Password_Again.edit->text())
        throw conversion::Refusal(u"The two passwords differ."_s);
    New_School school{Name.edit->text().simplified(), Classes_Of(Classes.edit->text()), {}};
    if (!Password.edit->text().isEmpty()) school.password = Password.edit->text();
    state.order.school = school;
    if (!has_template) state.order.from = QDir::fromNativeSeparators(Template.edit->text().trimmed());
    if (!has_template && !QFileInfo(state.order.from).isFile())
        throw conversion::Refusal(u"There is no file %1. The school's own template is needed."_s.arg(
            Template.edit->text().trimmed()));
}

bool What_Page::validatePage() {
    return isComplete() && Trying([this] { Take_Choice(); });
}

Sheets_Page::Sheets_Page(Wizard_State& state)
    : Set_Up_Page(
          u"Sheets_Page"_s, u"Printed sheets"_s,
          u"Where do report sheets begin? Each teacher can change it by the preview's box \"Keep to the margins\"."_s,
          state) {
    Margins = Add_Choice(
        u"Margins"_s, u"&Within the margins (recommended)"_s,
        u"All that is drawn stands inside the paper's margins, so that it is centred and no printer cuts it off."_s);
    Corner = Add_Choice(u"Corner"_s, u"At the &paper's corner"_s,
                        u"Sheets begin at the paper's corner, as earlier versions printed them."_s);
    Margins->setChecked(true);
    Finish_Layout();
}

bool Sheets_Page::validatePage() {
    state.order.sheets = Margins->isChecked() ? Sheets::Within_The_Margins : Sheets::At_The_Papers_Corner;
    return true;
}

Check_Page::Check_Page(Wizard_State& state)
    : Set_Up_Page(
          u"Check_Page"_s, u"Check"_s,
          u"Whether the folder is fit for a database that computers share, and what to do where it isn't."_s,
          state) {
    Findings = Add_Text(
        u"Findings"_s, u"What was found"_s,
        u"Each line says whether a point is good, doubtful or bad. What is bad should be mended before pupils are tested."_s);
    Again = new QPushButton(u"Chec&k again"_s, this);
    Again->setObjectName(u"Again"_s);
    Again->setAutoDefault(false);
    column->addWidget(Again, 0, Qt::AlignLeft);
    help->Tell(Again, u"Tries the folder once more, after something was mended."_s);
    connect(Again, &QPushButton::clicked, this, [this] { Check(); });
    setCommitPage(true);
    setButtonText(QWizard::CommitButton, u"&Set up"_s);
    Finish_Layout();
}

void Check_Page::initializePage() {
    Notice({});
    Check();
}

void Check_Page::Check() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QList<Finding> findings = Check_Folder(state.order.folder, state.around.own_program);
    QApplication::restoreOverrideCursor();
    QStringList lines;
    for (const Finding& finding : findings) {
        QString word = Word_For(finding.mark);
        word[0] = word[0].toUpper();
        lines.append(u"%1: %2"_s.arg(word, finding.what));
        if (!finding.advice.isEmpty()) lines.append(u"      "_s + finding.advice);
    }
    Findings->setPlainText(lines.join(u'\n'));
}

bool Check_Page::validatePage() {
    return Trying([this] { state.done = Carry_Out(state.order, state.around); });
}

Done_Page::Done_Page(Wizard_State& state)
    : Set_Up_Page(u"Done_Page"_s, u"Done"_s, u"This is how it stands now."_s, state) {
    Result = Add_Text(u"Result"_s, u"What was done"_s,
                      u"What lies in the folder, and what Mevo was told of it."_s);
    Start_Now = new QCheckBox(u"&Open it when this window closes"_s, this);
    Start_Now->setObjectName(u"Start_Now"_s);
    Start_Now->setChecked(true);
    column->addWidget(Start_Now);
    help->Tell(Start_Now, u"Starts Mevo, or the practice school, as soon as this window is closed."_s);
    Finish_Layout();
}

QString Done_Page::Told() const {
    if (state.where == Where::Just_Trying)
        return u"A practice school of made-up pupils will be opened. Its norms are made up too: no score in "
               u"it means anything.\n"
               "Nothing was set up on this computer."_s;
    const Told_Program& program = state.done.program;
    const QString lies = u"In %1:\n%2\n\n"_s.arg(state.order.folder, state.done.lines.join(u'\n'));
    if (program.told) return lies + u"Mevo was told in %1:\n%2"_s.arg(program.file, program.line);
    return lies + u"Mevo isn't told of it yet, as this account may not write %1.\nIt must hold the line\n\n  "
                  u"  %2\n\n"
                  "below [SETTINGS]. An administrator's command for it:\n\n    %3"_s.arg(
                      program.file, program.line, program.command);
}

void Done_Page::initializePage() {
    Result->setPlainText(Told());
    Start_Now->setChecked(state.where == Where::Just_Trying || state.done.program.told);
}

bool Done_Page::validatePage() {
    if (!Start_Now->isChecked()) return true;
    const QString program = state.where == Where::Just_Trying ? u"mevo-practice"_s : u"mevo"_s;
    const bool started = state.start(program);
    Notice(started ? QString() : u"%1 couldn't be started. Does it lie beside this program?"_s.arg(program));
    Start_Now->setChecked(started); // the next press closes the window all the same
    return started;
}

} // namespace set_up
