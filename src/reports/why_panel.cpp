#include "reports/why_panel.h"

#include "scoring/test_catalogue.h"
#include "shell/conventions/guard.h"
#include "shell/conventions/theme.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace reports {

using scoring::Why_Section;
using scoring::Why_Words;

// ---- the words as the text control takes them

static QString Row_As_Html(const QStringList& cells, const QString& tag) {
    QString html = u"<tr>"_s;
    for (const QString& cell : cells)
        html += u"<%1>%2&nbsp;</%1>"_s.arg(tag, cell.toHtmlEscaped());
    return html + u"</tr>"_s;
}

static QString Section_As_Html(const Why_Section& section) {
    QString html = u"<h3>%1</h3>"_s.arg(section.heading.toHtmlEscaped());
    for (const QString& line : section.lines)
        html += u"<p>%1</p>"_s.arg(line.toHtmlEscaped());
    if (section.rows.isEmpty()) return html;
    html += u"<table cellspacing=\"0\" cellpadding=\"3\">"_s;
    if (!section.headings.isEmpty()) html += Row_As_Html(section.headings, u"th"_s);
    for (const QStringList& row : section.rows)
        html += Row_As_Html(row, u"td"_s);
    return html + u"</table>"_s;
}

static QString As_Html(const Why_Words& words) {
    QString html;
    for (const Why_Section& section : words.sections)
        html += Section_As_Html(section);
    return html;
}

// ---- the panel

constexpr int Rim = 12;
constexpr int Row_Height = 32;

Why_Panel::Why_Panel(const QRect& place, desktop::Platform& platform, QWidget* frame)
    : QFrame(frame), platform(platform) {
    setObjectName(u"Why"_s);
    setProperty("card", true);
    setGeometry(place);
    setAccessibleName(u"Why this score"_s);
    Lay_Out();
    hide();
}

QPushButton* Why_Panel::Make_Button(const QString& name, const QString& caption, int left) {
    constexpr int button_width = 94;
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setGeometry(left, Rim, button_width, Row_Height);
    return button;
}

void Why_Panel::Lay_Out() {
    constexpr int list_left = 296;
    constexpr int list_width = 152;
    constexpr int step = 100;
    title = shell::Make_Label(u"WhyTitle"_s, {}, shell::Text_Role::Heading, this);
    title->setGeometry(Rim, 8, list_left - 2 * Rim, 20);
    pupil = shell::Make_Label(u"WhyPupil"_s, {}, shell::Text_Role::Quiet, this);
    pupil->setGeometry(Rim, 28, list_left - 2 * Rim, 18);
    tests = new shell::Click_Combo(u"WhyTest"_s, this);
    tests->setGeometry(list_left, Rim, list_width, Row_Height);
    tests->setAccessibleName(u"Test"_s);
    for (int t = 1; t <= scoring::All_Tests; ++t)
        tests->AddItem(scoring::Test_At(t).Test_Name);
    const int buttons = width() - Rim - 3 * step + 6;
    copy = Make_Button(u"WhyCopy"_s, u"Copy"_s, buttons);
    print = Make_Button(u"WhyPrint"_s, u"Print"_s, buttons + step);
    close = Make_Button(u"WhyClose"_s, u"Close"_s, buttons + 2 * step);
    text = new QTextBrowser(this);
    text->setObjectName(u"WhyText"_s);
    text->setAccessibleName(u"Why this score"_s);
    const int top = 2 * Rim + Row_Height - 2;
    text->setGeometry(Rim, top, width() - 2 * Rim, height() - top - Rim);
    shell::On(tests, &shell::Click_Combo::Click, this, platform, [this] { Q_EMIT Chosen(Test()); });
    shell::On(copy, &QPushButton::clicked, this, platform,
              [this] { platform.clipboard.Put_Text(scoring::As_Text(words)); });
    shell::On(print, &QPushButton::clicked, this, platform, [this] { Q_EMIT Print(); });
    shell::On(close, &QPushButton::clicked, this, platform, [this] { Q_EMIT Close(); });
}

void Why_Panel::Tell_Helps(shell::Help_Line& help) const {
    help.Tell(text, u"How the score came about; the arrow keys move the text."_s);
    help.Tell(tests, u"The test whose score is explained"_s);
    help.Tell(copy, u"Copy the explanation as text, for a letter or a report"_s);
    help.Tell(print, u"Show the Print Preview page for this explanation"_s);
    help.Tell(close, u"Back to the bar chart; the Escape key does the same"_s);
}

void Why_Panel::Tell(int t, const Why_Words& told) {
    words = told;
    title->setText(words.title);
    pupil->setText(pupil->fontMetrics().elidedText(words.pupil, Qt::ElideRight, pupil->width()));
    {
        const QSignalBlocker quiet(tests);
        tests->setCurrentIndex(t - 1);
    }
    text->setHtml(As_Html(words));
    raise();
    if (!isHidden()) return;
    show();
    text->setFocus(); // the keys move the text at once
}

} // namespace reports
