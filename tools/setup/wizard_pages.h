#pragma once

#include "setup/wizard.h"
#include "shell/conventions/help_line.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <QWizardPage>

namespace set_up {

enum Page_Number { Where_Number, What_Number, Sheets_Number, Check_Number, Done_Number };

// A column of controls above a notice, for what can't be done, and a line of help.
class Set_Up_Page : public QWizardPage {
protected:
    Set_Up_Page(const QString& name, const QString& title, const QString& subtitle, Wizard_State& state);

    QRadioButton* Add_Choice(const QString& name, const QString& caption, const QString& help_text);
    // A caption with its control, and a button behind it where a text tells what it is to choose.
    struct Field {
        QLabel* caption;
        QLineEdit* edit;
        QPushButton* browse = nullptr;
        void Set_Enabled(bool enabled) const;
        void Set_Visible(bool visible) const;
    };
    Field Add_Field(const QString& name, const QString& caption, const QString& help_text,
                    const std::function<QString(const QString&)>& choose = {}, const QString& title = {});
    QPlainTextEdit* Add_Text(const QString& name, const QString& spoken_name, const QString& help_text);
    void Add_Row(QLabel* caption, const std::vector<QWidget*>& controls, const QString& help_text);
    // Behind all controls: the notice, the help, and what the keys tell.
    void Finish_Layout();
    // What refuses is told in the notice; whether nothing did.
    bool Trying(const std::function<void()>& work);
    void Notice(const QString& text);

    Wizard_State& state;
    QVBoxLayout* column;
    shell::Help_Line* help;

private:
    QLabel* notice;
    QLabel* help_label;
};

class Where_Page final : public Set_Up_Page {
public:
    explicit Where_Page(Wizard_State& state);
    bool isComplete() const override;
    bool validatePage() override;
    int nextId() const override;

private:
    void Show_State();

    QRadioButton* Here;
    QRadioButton* Shared;
    QRadioButton* Trying_It;
    QLabel* Group_Caption;
    QComboBox* Group;
    Field Folder;
};

class What_Page final : public Set_Up_Page {
public:
    explicit What_Page(Wizard_State& state);
    void initializePage() override;
    bool isComplete() const override;
    bool validatePage() override;

private:
    void Show_State();
    void Take_Choice();

    QPlainTextEdit* Found;
    QRadioButton* Use_Found;
    QRadioButton* Bring;
    QRadioButton* Make_New;
    Field From;
    Field Name;
    Field Classes;
    Field Password;
    Field Password_Again;
    Field Template;
    bool has_template = false;
};

class Sheets_Page final : public Set_Up_Page {
public:
    explicit Sheets_Page(Wizard_State& state);
    bool validatePage() override;

private:
    QRadioButton* Margins;
    QRadioButton* Corner;
};

class Check_Page final : public Set_Up_Page {
public:
    explicit Check_Page(Wizard_State& state);
    void initializePage() override;
    bool validatePage() override;

private:
    void Check();
    QPlainTextEdit* Findings;
    QPushButton* Again;
};

class Done_Page final : public Set_Up_Page {
public:
    explicit Done_Page(Wizard_State& state);
    void initializePage() override;
    bool validatePage() override;

private:
    QString Told() const;

    QPlainTextEdit* Result;
    QCheckBox* Start_Now;
};

} // namespace set_up
