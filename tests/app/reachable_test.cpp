// What each page must offer to those who can't use a mouse, don't see the screen, or see it poorly.

#include "app/page_states.h"
#include "shell/conventions/theme.h"
#include "support/controls.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

QString Name_Of(const QObject* object) {
    return object->objectName().isEmpty() ? QString::fromLatin1(object->metaObject()->className())
                                          : object->objectName();
}

QList<QWidget*> Stops(QWidget& surface) {
    QList<QWidget*> stops;
    for (auto* control : surface.findChildren<QWidget*>())
        if ((control->focusPolicy() & Qt::TabFocus) && control->isVisible() && control->isEnabled() &&
            control->window() == surface.window() && !control->focusProxy())
            stops.append(control);
    return stops;
}

// ---- what a screen reader finds

void Expect_Told(QAccessibleInterface& found, int depth = 0) {
    static const QSet<QAccessible::Role> drawings{
        QAccessible::Client,    QAccessible::Border,   QAccessible::Grouping, QAccessible::StaticText,
        QAccessible::Graphic,   QAccessible::Window,   QAccessible::Dialog,   QAccessible::ScrollBar,
        QAccessible::Separator, QAccessible::ListItem, QAccessible::Cell,     QAccessible::TreeItem};
    ASSERT_LT(depth, 20);
    if (found.state().invisible) return;
    const QString name = found.text(QAccessible::Name);
    const auto* control = qobject_cast<QWidget*>(found.object());
    const bool used = control && (control->focusPolicy() != Qt::NoFocus || !drawings.contains(found.role()));
    if (used) {
        SCOPED_TRACE(Name_Of(control).toStdString());
        EXPECT_NE(found.role(), QAccessible::NoRole);
        EXPECT_NE(found.role(), QAccessible::Client);
        EXPECT_FALSE(name.trimmed().isEmpty()) << "no name";
        EXPECT_FALSE(control->focusPolicy() != Qt::NoFocus && found.text(QAccessible::Description).isEmpty())
            << "no help";
    }
    // What lies inside a list, a table or a drop-down list is the toolkit's own.
    if (control &&
        (qobject_cast<const QAbstractScrollArea*>(control) || qobject_cast<const QComboBox*>(control)))
        return;
    for (int i = 0; i < found.childCount(); ++i)
        if (QAccessibleInterface* child = found.child(i)) Expect_Told(*child, depth + 1);
}

// ---- what the keys reach

// Tab goes through all of them, each once, and comes back to the first.
void Expect_Tab_Goes_Round(QWidget& surface) {
    const QList<QWidget*> stops = Stops(surface);
    if (stops.isEmpty()) return;
    QWidget* const first = stops.first();
    first->setFocus(Qt::TabFocusReason);
    QList<QWidget*> reached;
    do {
        reached.append(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && reached.size() <= stops.size());
    // Of options that exclude one another Tab meets one; the arrow keys lead to the other.
    for (const auto* option : surface.findChildren<QRadioButton*>()) {
        const auto beside =
            option->parent()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_TRUE(
            !option->isVisible() || !option->isEnabled() ||
            std::any_of(beside.begin(), beside.end(), [&](auto* each) { return reached.contains(each); }))
            << Name_Of(option).toStdString() << " isn't on the way of Tab";
    }
    for (const QWidget* stop : stops) {
        if (qobject_cast<const QRadioButton*>(stop)) continue;
        EXPECT_EQ(reached.count(stop), 1) << Name_Of(stop).toStdString() << " isn't on the way of Tab";
    }
}

int Pixels_Of(const QImage& picture, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == colour;
    return count;
}

// A ring two pixels wide shows at least its own length, corners and all.
void Expect_Focus_Shows(QWidget& surface) {
    for (QWidget* stop : Stops(surface)) {
        stop->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        if (QApplication::focusWidget() != stop) continue;
        const QRect place(stop->mapTo(&surface, QPoint(0, 0)), stop->size());
        const QImage seen = surface.grab(place).toImage();
        EXPECT_GE(Pixels_Of(seen, shell::Colours_In_Force().Focus), place.width() + place.height())
            << Name_Of(stop).toStdString() << " doesn't show that it has the focus";
    }
}

// The label that speaks for the pointer.
QWidget* Help_Label(const QWidget& surface) {
    for (auto* label : surface.findChildren<QLabel*>())
        if (label->isVisible() && label->property("role") == u"help"_s) return label;
    return surface.findChild<shell::HotLabel*>(u"Label7"_s);
}

// Whatever the pointer would be told there, the keys are told too.
void Expect_Same_Help(QWidget& surface) {
    QWidget* line = Help_Label(surface);
    if (!line || !line->isVisible()) return;
    const auto told = [&](const std::function<void()>& act) {
        line->setProperty("text", QString());
        act();
        return line->property("text").toString();
    };
    for (QWidget* stop : Stops(surface)) {
        if (stop == line) continue;
        QString described = stop->accessibleDescription();
        const QString to_pointer = told([&] { Point_At(*stop); });
        surface.setFocus();
        const QString to_keys = told([&] { stop->setFocus(Qt::TabFocusReason); });
        EXPECT_LE(line->heightForWidth(line->width()), line->height()) << Name_Of(stop).toStdString();
        if (to_pointer.isEmpty()) continue;
        EXPECT_EQ(described.replace(u'\r', u'\n'), to_pointer) << Name_Of(stop).toStdString();
        EXPECT_EQ(to_keys, to_pointer) << Name_Of(stop).toStdString();
    }
}

// ---- what can be read

// Labels are as wide as their words, and none stands in another's place.
void Expect_Room(QWidget& surface) {
    QList<QLabel*> labels = surface.findChildren<QLabel*>();
    labels.removeIf([](const QLabel* label) { return !label->isVisible() || label->text().isEmpty(); });
    for (const QLabel* label : labels) {
        EXPECT_TRUE(label->wordWrap() || label->width() >= label->sizeHint().width())
            << Name_Of(label).toStdString();
        for (const QLabel* other : labels)
            EXPECT_FALSE(other != label && other->parent() == label->parent() &&
                         other->geometry().intersects(label->geometry()))
                << Name_Of(label).toStdString() << " and " << Name_Of(other).toStdString();
    }
}

// A school's laptop shows 1092 by 535 pixels of a page, so that no more than an empty rim may be lost there.
void Expect_In_Frame(const QWidget& surface) {
    constexpr QSize largest(1080, 560);
    constexpr int rim = 16;
    for (const auto* frame : surface.findChildren<QFrame*>(u"Frame1"_s)) {
        EXPECT_EQ(frame->size().boundedTo(largest), frame->size());
        const QRect inside = frame->rect().adjusted(rim, rim, -rim, -rim);
        for (const auto* control : frame->findChildren<QWidget*>()) {
            if (!control->isVisible() || control->size().isEmpty()) continue;
            const QRect place = control->visibleRegion().boundingRect();
            if (place.isEmpty()) continue; // a panel stands before it
            EXPECT_TRUE(inside.contains(place.translated(control->mapTo(frame, QPoint(0, 0)))))
                << Name_Of(control).toStdString();
        }
    }
}

double Luminance(const QColor& colour) {
    const auto light = [](float part) {
        return part <= 0.03928F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF()) + 0.0722 * light(colour.blueF());
}

// Of two colours, from 1 to 21, by the rule of the accessibility guidelines.
double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

// Between a place's ground, which is its most frequent colour, and what stands out from it most.
double Contrast_Seen(const QImage& picture, const QRect& place) {
    QHash<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto ground = std::max_element(counts.cbegin(), counts.cend());
    double most = 1;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour)
        most = std::max(most, Contrast(QColor(colour.key()), QColor(ground.key())));
    return most;
}

void Expect_Readable(QWidget& surface) {
    constexpr int closer = 3; // so that a letter's lines have their full ink
    QImage seen(surface.size() * closer, QImage::Format_RGB32);
    seen.setDevicePixelRatio(closer);
    surface.render(&seen);
    for (auto* control : surface.findChildren<QWidget*>()) {
        const QVariant text = control->property(qobject_cast<QComboBox*>(control) ? "currentText" : "text");
        if (text.toString().trimmed().isEmpty() || !control->isVisible()) continue;
        if (control->visibleRegion().isEmpty()) continue; // a panel stands before it
        constexpr int edge = 7;
        const QRect inside = QRect(control->mapTo(&surface, QPoint(0, 0)), control->size())
                                 .adjusted(0, edge, 0, -edge)
                                 .intersected(surface.rect());
        if (inside.height() < 4) continue;
        EXPECT_GE(Contrast_Seen(seen, QRect(inside.topLeft() * closer, inside.size() * closer)), 4.5)
            << Name_Of(control).toStdString() << ": " << text.toString().toStdString();
    }
}

} // namespace

TEST(Every_Page, CanBeUsedWithoutAMouseAndWithoutSight) {
    Go_Through_All_Pages([](const QString& state, QWidget& surface) {
        SCOPED_TRACE(state.toStdString());
        surface.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&surface));
        Expect_Told(*QAccessible::queryAccessibleInterface(&surface));
        Expect_Room(surface);
        Expect_In_Frame(surface);
        Expect_Readable(surface);
        Expect_Focus_Shows(surface);
        Expect_Same_Help(surface);
        Expect_Tab_Goes_Round(surface);
    });
}

TEST(Every_Page, CanBeReadOnADarkGround) {
    Go_Through_All_Pages(
        [](const QString& state, QWidget& surface) {
            SCOPED_TRACE(state.toStdString());
            Expect_Readable(surface);
        },
        shell::Scheme::Dark);
}
