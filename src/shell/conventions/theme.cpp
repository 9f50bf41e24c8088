#include "shell/conventions/theme.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPalette>
#include <QStyleFactory>

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
        {u"@focus"_s, colours::Focus},
        {u"@notice-ground"_s, colours::Notice_Ground},
        {u"@notice-text"_s, colours::Notice_Text},
    };
    // The longer names first, since one may begin another.
    for (auto name = std::rbegin(names); name != std::rend(names); ++name)
        sheet.replace(name->first, name->second.name());
    return sheet;
}

void Apply_Theme(QApplication& application) {
    application.setStyle(QStyleFactory::create(u"Fusion"_s)); // the same on every system
    QFont font = application.font();
    font.setFamilies({u"Segoe UI"_s, u"Liberation Sans"_s, u"Arial"_s});
    font.setPixelSize(14);
    application.setFont(font);

    QPalette palette = application.palette();
    palette.setColor(QPalette::Window, colours::Ground);
    palette.setColor(QPalette::Base, colours::Card);
    palette.setColor(QPalette::WindowText, colours::Text);
    palette.setColor(QPalette::Text, colours::Text);
    palette.setColor(QPalette::Button, colours::Card);
    palette.setColor(QPalette::ButtonText, colours::Text);
    palette.setColor(QPalette::Highlight, colours::Accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    application.setPalette(palette);
    application.setStyleSheet(Style_Sheet());
}

QLabel* Make_Label(const QString& name, const QString& text, Text_Role role, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText); // a pupil's name is never mark-up
    label->setProperty("role", Role_Name(role));
    return label;
}

} // namespace shell
