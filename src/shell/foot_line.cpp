#include "shell/foot_line.h"

#include "shell/conventions/theme.h"

#include <QFile>
#include <QPainter>
#include <QStyle>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace shell {

constexpr int Mark_Side = 16;
constexpr int Mark_Left = 6;
constexpr int Least_Of_Folder = 120; // pixels, of a path that is cut in its middle

Foot_Line::Foot_Line(const QString& name, const QRect& place, QWidget* parent) : QLabel(parent) {
    setObjectName(name);
    Set_Role(*this, Text_Role::Foot);
    setIndent(0);
    setGeometry(place);
}

// Warnings first, as the end may be cut off.
static QString Joined(const Whereabouts& told, const QString& folder) {
    QStringList parts = told.warnings;
    if (!parts.isEmpty()) parts.first().replace(0, 1, parts.first().first(1).toUpper());
    parts += {told.school, told.archive, folder};
    parts.removeAll(QString());
    return parts.join(u" \u00b7 "_s);
}

void Foot_Line::Tell(const Whereabouts& told) {
    constexpr int edges = 12; // of the frame and its padding
    warns = !told.warnings.isEmpty();
    setProperty("warning", warns);
    style()->unpolish(this);
    style()->polish(this);
    whole = Joined(told, told.folder);
    setIndent(warns ? Mark_Left + Mark_Side : 0); // counted from the padding
    const int room = width() - edges - indent();
    const QFontMetrics metrics = fontMetrics();
    const int left = room - metrics.horizontalAdvance(Joined(told, u"/"_s));
    const QString folder = metrics.elidedText(told.folder, Qt::ElideMiddle, std::max(left, Least_Of_Folder));
    setText(metrics.elidedText(Joined(told, folder), Qt::ElideRight, room));
    setAccessibleName(whole);
    setFocusPolicy(whole.isEmpty() ? Qt::NoFocus : Qt::TabFocus); // so that the keys reach it all
    setToolTip(text() == whole ? QString() : whole);
}

void Foot_Line::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    if (!warns) return;
    QFile file(u":/theme/icons/caution.svg"_s);
    if (!file.open(QIODevice::ReadOnly)) return;
    QPainter painter(this);
    QSvgRenderer(file.readAll().replace("#000000", Colours_In_Force().Notice_Text.name().toUtf8()))
        .render(&painter, QRectF(Mark_Left, (height() - Mark_Side) / 2.0, Mark_Side, Mark_Side));
}

} // namespace shell
