#include "shell/conventions/hot_label.h"

#include "shell/conventions/look.h"
#include "shell/conventions/theme.h"

#include <QFile>
#include <QHash>
#include <QKeyEvent>
#include <QPainter>
#include <QSet>
#include <QSvgRenderer>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

constexpr int Side_Margin = 16;
constexpr int Icon_Side = 24;
constexpr int Entry_Font = 16; // pixels
constexpr qreal Corner = 6;

HotLabel::HotLabel(const QString& name, const QString& caption, QWidget* parent, Look look)
    : QAbstractButton(parent), look(look) {
    setObjectName(name);
    Set_Caption(caption);
    setFocusPolicy(look == Look::Strip ? Qt::NoFocus : Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
}

void HotLabel::Set_Caption(const QString& caption) {
    setText(caption); // takes the shortcut away
    Set_Mnemonic(mnemonic);
}

void HotLabel::Set_Icon(const QString& name) {
    QFile file(u":/theme/icons/"_s + name + u".svg"_s);
    icon = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    update();
}

static bool Begins_A_Word(const QString& caption, qsizetype place) {
    return place == 0 || caption[place - 1] == u' ';
}

qsizetype HotLabel::Mnemonic_Place() const {
    if (mnemonic.isNull()) return -1;
    const QString caption = text();
    const qsizetype first = caption.indexOf(mnemonic, 0, Qt::CaseInsensitive);
    for (qsizetype place = first; place >= 0;
         place = caption.indexOf(mnemonic, place + 1, Qt::CaseInsensitive))
        if (Begins_A_Word(caption, place)) return place;
    return first;
}

void HotLabel::Set_Mnemonic(QChar letter) {
    mnemonic = letter;
    const int key = letter.toUpper().unicode();
    setShortcut(Mnemonic_Place() < 0 ? QKeySequence() : QKeySequence(Qt::ALT | static_cast<Qt::Key>(key)));
    update();
}

QSize HotLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * Side_Margin, fontMetrics().height() + Side_Margin};
}

namespace {

struct Paints {
    QColor ground;
    QColor edge;
    QColor text;
};

Paints Paints_Of(const HotLabel& label, HotLabel::Weight weight) {
    const Colours& colours = Colours_In_Force();
    const bool pointed_at = label.underMouse();
    if (!label.isEnabled()) return {colours.Disabled_Ground, colours.Edge, colours.Disabled_Text};
    if (label.isDown() || label.isChecked())
        return {colours.Pressed_Ground, colours.Accent, colours.Accent_Text};
    if (weight == HotLabel::Weight::Primary) {
        const QColor ground = pointed_at ? colours.Accent_Hover : colours.Accent;
        return {ground, ground, Qt::white};
    }
    if (weight == HotLabel::Weight::Destructive)
        return {pointed_at ? colours.Danger_Ground : colours.Card, colours.Danger_Text, colours.Danger_Text};
    if (pointed_at) return {colours.Hover_Ground, colours.Accent, colours.Accent_Text};
    return {colours.Card, colours.Edge, colours.Text};
}

} // namespace

void HotLabel::Set_Weight(Weight given) {
    weight = given;
    update();
}

// Of a strip nothing is seen while it has nothing to tell.
void HotLabel::paintEvent(QPaintEvent*) {
    if (look == Look::Strip && text().isEmpty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Paints chosen = Paints_Of(*this, weight);
    if (look == Look::Strip && !isDown()) {
        chosen.ground = chosen.edge = Colours_In_Force().Hover_Ground;
        chosen.text = Colours_In_Force().Text;
    }
    const int inset = hasFocus() ? 4 : 0; // the mark of the focus stands around it
    const qreal corner = hasFocus() ? Corner - 3 : Corner;
    // What can't be used, and what is chosen, is told apart by its edge as well as by its colour.
    const QPen edge(chosen.edge, isChecked() ? 2 : 1, isEnabled() ? Qt::SolidLine : Qt::DashLine);
    shell::Look::Draw_Plate(painter, rect().adjusted(inset, inset, -inset, -inset), corner, edge,
                            chosen.ground);
    if (hasFocus()) shell::Look::Draw_Focus(painter, rect(), Corner);
    Draw_Caption(painter, chosen.text);
}

// `place` is the letter to underline, -1 for none. An ampersand of the caption itself stays one.
static QString With_Mnemonic(QString caption, qsizetype place) {
    const qsizetype before = place < 0 ? 0 : caption.left(place).count(u'&');
    caption.replace(u"&"_s, u"&&"_s);
    if (place >= 0) caption.insert(place + before, u'&');
    return caption;
}

void HotLabel::Draw_Caption(QPainter& painter, const QColor& ink) const {
    const bool centred = look == Look::Command;
    QFont font = this->font();
    if (look == Look::Entry) font.setPixelSize(Entry_Font);
    font.setBold(isChecked() || weight == Weight::Primary); // told apart without colours as well
    painter.setFont(font);
    painter.setPen(ink);
    QRect room = rect().adjusted(centred ? 6 : Side_Margin, 0, centred ? -6 : -Side_Margin, 0);
    if (!icon.isEmpty()) {
        QByteArray drawing = icon;
        QSvgRenderer(drawing.replace("#000000", ink.name().toUtf8()))
            .render(&painter, QRectF(room.left(), (height() - Icon_Side) / 2.0, Icon_Side, Icon_Side));
        room.setLeft(room.left() + Icon_Side + Side_Margin);
    }
    painter.drawText(room,
                     (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter | Qt::TextWordWrap |
                         Qt::TextShowMnemonic,
                     With_Mnemonic(text(), Mnemonic_Place()));
}

void HotLabel::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void HotLabel::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

void HotLabel::keyPressEvent(QKeyEvent* event) {
    // Return acts like the space bar: a page has no default button that it would belong to.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

namespace {

// Whether a caption's letters that reach below the line are offered: their underline runs through them.
enum class Descenders { Left_Out, Offered_Last };

// A caption's letters, those that begin a word first.
QString Letters_To_Offer(const QString& caption, Descenders descenders) {
    QString initials, others, low;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const QChar letter = caption[i].toUpper();
        if (letter < u'A' || letter > u'Z') continue;
        const bool descends = u"gjpqy"_s.contains(caption[i]);
        (descends ? low : Begins_A_Word(caption, i) ? initials : others).append(letter);
    }
    return initials + others + (descenders == Descenders::Left_Out ? QString() : low);
}

// Who has which letter. An entry may take one that another has if that one finds another letter for itself.
class Letters {
public:
    void Give_Initials(const QList<HotLabel*>& labels) {
        for (HotLabel* label : labels)
            if (const QString offered = Letters_To_Offer(label->Caption(), Descenders::Left_Out);
                !offered.isEmpty() && !holders.contains(offered[0]))
                Hold(offered[0], label);
    }
    void Find_For(HotLabel* label) {
        if (holders.values().contains(label)) return;
        for (const Descenders descenders : {Descenders::Left_Out, Descenders::Offered_Last}) {
            tried.clear();
            if (Take(label, descenders)) return;
        }
    }
    QHash<QChar, HotLabel*> holders;

private:
    bool Take(HotLabel* label, Descenders descenders) {
        const QString offered = Letters_To_Offer(label->Caption(), descenders);
        for (const QChar letter : offered)
            if (!holders.contains(letter)) return Hold(letter, label);
        for (const QChar letter : offered) {
            if (tried.contains(letter)) continue;
            tried.insert(letter);
            if (Take(holders[letter], descenders)) return Hold(letter, label);
        }
        return false;
    }
    bool Hold(QChar letter, HotLabel* label) {
        holders[letter] = label;
        return true;
    }

    QSet<QChar> tried;
};

} // namespace

void Give_Mnemonics(QWidget& surface) {
    QList<HotLabel*> labels = surface.findChildren<HotLabel*>();
    labels.removeIf([](const HotLabel* label) { return label->focusPolicy() == Qt::NoFocus; });
    // The shorter a caption, the fewer letters it has to choose from.
    std::stable_sort(labels.begin(), labels.end(), [](const HotLabel* one, const HotLabel* other) {
        return one->Caption().size() < other->Caption().size();
    });
    Letters letters;
    letters.Give_Initials(labels);
    for (HotLabel* label : labels)
        letters.Find_For(label);
    for (auto held = letters.holders.cbegin(); held != letters.holders.cend(); ++held)
        held.value()->Set_Mnemonic(held.key());
}

} // namespace shell
