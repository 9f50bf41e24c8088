#include "shell/conventions/theme.h"

#include "shell/conventions/look.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPalette>

using namespace Qt::StringLiterals;

static void Load_Theme_Resource() {
    Q_INIT_RESOURCE(theme);
}

namespace shell {

static QString Role_Name(Text_Role role) {
    switch (role) {
    case Text_Role::Title:
        return u"title"_s;
    case Text_Role::Subtitle:
        return u"subtitle"_s;
    case Text_Role::Quiet:
        return u"quiet"_s;
    case Text_Role::Help:
        return u"help"_s;
    case Text_Role::Notice:
        return u"notice"_s;
    case Text_Role::Badge:
        return u"badge"_s;
    case Text_Role::Heading:
        return u"heading"_s;
    case Text_Role::Fact:
        return u"fact"_s;
    case Text_Role::Foot:
        return u"foot"_s;
    case Text_Role::Waiting:
        return u"waiting"_s;
    case Text_Role::Body:
        break;
    }
    return u"body"_s;
}

static QString Style_Sheet() {
    Load_Theme_Resource();
    QFile file(u":/theme/mevo.qss"_s);
    QString sheet = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    const std::pair<QString, QColor> names[] = {
        {u"@ground"_s, colours::Ground},
        {u"@card"_s, colours::Card},
        {u"@text"_s, colours::Text},
        {u"@quiet"_s, colours::Quiet_Text},
        {u"@edge"_s, colours::Edge},
        {u"@faint"_s, colours::Faint_Edge},
        {u"@accent"_s, colours::Accent},
        {u"@hover"_s, colours::Hover_Ground},
        {u"@pressed"_s, colours::Pressed_Ground},
        {u"@heading"_s, colours::Heading_Ground},
        {u"@disabled-ground"_s, colours::Disabled_Ground},
        {u"@disabled-text"_s, colours::Disabled_Text},
        {u"@focus"_s, colours::Focus},
        {u"@notice-ground"_s, colours::Notice_Ground},
        {u"@notice-text"_s, colours::Notice_Text},
    };
    for (const auto& [name, colour] : names)
        sheet.replace(name + u';', colour.name() + u';'); // whole names only, as one may begin another
    return sheet;
}

void Apply_Theme(QApplication& application) {
    application.setStyle(new Look);
    QFont font = application.font();
    font.setFamilies({u"Segoe UI"_s, u"Liberation Sans"_s, u"Arial"_s});
    font.setPixelSize(14);

    QPalette palette = application.palette();
    palette.setColor(QPalette::Window, colours::Ground);
    palette.setColor(QPalette::Base, colours::Card);
    palette.setColor(QPalette::WindowText, colours::Text);
    palette.setColor(QPalette::Text, colours::Text);
    palette.setColor(QPalette::Button, colours::Card);
    palette.setColor(QPalette::ButtonText, colours::Text);
    palette.setColor(QPalette::Highlight, colours::Accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, colours::Quiet_Text);
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, text, colours::Disabled_Text);
    palette.setColor(QPalette::Disabled, QPalette::Base, colours::Disabled_Ground);
    application.setPalette(palette);
    application.setStyleSheet(Style_Sheet());
    application.setFont(
        font); // last: a sheet brings back the fonts that some systems have for lists and tables
}

void Set_Role(QLabel& label, Text_Role role) {
    label.setTextFormat(Qt::PlainText); // a pupil's name is never mark-up
    label.setProperty("role", Role_Name(role));
}

QLabel* Make_Label(const QString& name, const QString& text, Text_Role role, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    Set_Role(*label, role);
    return label;
}

} // namespace shell
