#include "shell/conventions/theme.h"

#include "shell/conventions/look.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPainter>
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
    case Text_Role::Caption:
        return u"caption"_s;
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

static const Colours& Colours_Of(Scheme scheme) {
    static const Colours light{.Ground = QColor(0xE9EEF3),
                               .Card = QColor(0xFFFFFF),
                               .Text = QColor(0x1B2938),
                               .Quiet_Text = QColor(0x4A5A6B),
                               .Edge = QColor(0x7A8896),
                               .Faint_Edge = QColor(0xD3DBE3),
                               .Accent = QColor(0x1D5FA6),
                               .Accent_Hover = QColor(0x12447A),
                               .Accent_Text = QColor(0x12447A),
                               .Hover_Ground = QColor(0xEAF2FB),
                               .Pressed_Ground = QColor(0xD3E4F6),
                               .Heading_Ground = QColor(0xE4EAF1),
                               .Disabled_Ground = QColor(0xF1F4F7),
                               .Disabled_Text = QColor(0x5F6C79),
                               .Focus = QColor(0xC25A00),
                               .Notice_Ground = QColor(0xFFF3D6),
                               .Notice_Text = QColor(0x6B4300),
                               .Danger_Ground = QColor(0xFDECEA),
                               .Danger_Text = QColor(0xA3231B),
                               .Desk = QColor(0xC9CED3)};
    static const Colours dark{.Ground = QColor(0x11171D),
                              .Card = QColor(0x1B232C),
                              .Text = QColor(0xE6ECF2),
                              .Quiet_Text = QColor(0xA9B6C3),
                              .Edge = QColor(0x8795A3),
                              .Faint_Edge = QColor(0x35414D),
                              .Accent = QColor(0x2F74C0),
                              .Accent_Hover = QColor(0x2862A6),
                              .Accent_Text = QColor(0xA9CDF5),
                              .Hover_Ground = QColor(0x22303F),
                              .Pressed_Ground = QColor(0x29405A),
                              .Heading_Ground = QColor(0x28333F),
                              .Disabled_Ground = QColor(0x202932),
                              .Disabled_Text = QColor(0x98A5B2),
                              .Focus = QColor(0xFF9D45),
                              .Notice_Ground = QColor(0x3D3116),
                              .Notice_Text = QColor(0xFFD98A),
                              .Danger_Ground = QColor(0x45211F),
                              .Danger_Text = QColor(0xFF9B92),
                              .Desk = QColor(0x2B343D)};
    return scheme == Scheme::Dark ? dark : light;
}

const Colours& Colours_In_Force() {
    const Colours& dark = Colours_Of(Scheme::Dark);
    return QApplication::palette().color(QPalette::Window) == dark.Ground ? dark : Colours_Of(Scheme::Light);
}

static QString Style_Sheet(const Colours& colours) {
    Load_Theme_Resource();
    QFile file(u":/theme/mevo.qss"_s);
    QString sheet = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    const std::pair<QString, QColor> names[] = {
        {u"@ground"_s, colours.Ground},
        {u"@card"_s, colours.Card},
        {u"@text"_s, colours.Text},
        {u"@quiet"_s, colours.Quiet_Text},
        {u"@edge"_s, colours.Edge},
        {u"@faint"_s, colours.Faint_Edge},
        {u"@accent"_s, colours.Accent},
        {u"@hover"_s, colours.Hover_Ground},
        {u"@pressed"_s, colours.Pressed_Ground},
        {u"@heading"_s, colours.Heading_Ground},
        {u"@disabled-ground"_s, colours.Disabled_Ground},
        {u"@disabled-text"_s, colours.Disabled_Text},
        {u"@focus"_s, colours.Focus},
        {u"@notice-ground"_s, colours.Notice_Ground},
        {u"@notice-text"_s, colours.Notice_Text},
    };
    for (const auto& [name, colour] : names)
        sheet.replace(name + u';', colour.name() + u';'); // whole names only, as one may begin another
    return sheet;
}

static QPalette Palette(const Colours& colours) {
    QPalette palette(colours.Card, colours.Ground);
    palette.setColor(QPalette::Base, colours.Card);
    palette.setColor(QPalette::AlternateBase, colours.Disabled_Ground);
    palette.setColor(QPalette::ToolTipBase, colours.Card);
    for (const QPalette::ColorRole text :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(text, colours.Text);
        palette.setColor(QPalette::Disabled, text, colours.Disabled_Text);
    }
    palette.setColor(QPalette::Highlight, colours.Accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colours.Accent_Text);
    palette.setColor(QPalette::PlaceholderText, colours.Quiet_Text);
    palette.setColor(QPalette::Mid, colours.Desk);
    palette.setColor(QPalette::Disabled, QPalette::Base, colours.Disabled_Ground);
    return palette;
}

void Apply_Theme(QApplication& application, Scheme scheme) {
    const Colours& colours = Colours_Of(scheme);
    application.setStyle(new Look);
    QFont font = application.font();
    font.setFamilies({u"Segoe UI"_s, u"Liberation Sans"_s, u"Arial"_s});
    font.setPixelSize(14);
    application.setPalette(Palette(colours));
    application.setStyleSheet(Style_Sheet(colours));
    application.setFont(
        font); // last: a sheet brings back the fonts that some systems have for lists and tables
}

namespace {

// A help line's ground is there while it has something to tell.
class Help_Label final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override {
        if (!text().isEmpty()) {
            QPainter painter(this);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Colours_In_Force().Hover_Ground);
            const int edge = hasFocus() ? 2 : 0; // the sheet draws it
            painter.drawRoundedRect(rect().adjusted(edge, edge, -edge, -edge), 6, 6);
        }
        QLabel::paintEvent(event);
    }
};

} // namespace

void Set_Role(QLabel& label, Text_Role role) {
    label.setTextFormat(Qt::PlainText); // a pupil's name is never mark-up
    label.setProperty("role", Role_Name(role));
}

QLabel* Make_Label(const QString& name, const QString& text, Text_Role role, QWidget* parent) {
    auto* label = role == Text_Role::Help ? new Help_Label(text, parent) : new QLabel(text, parent);
    label->setObjectName(name);
    Set_Role(*label, role);
    return label;
}

} // namespace shell
