#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QLabel;
class QWidget;

namespace shell {

// The colours of all pages. Text on its ground has a contrast of at least 4.5 to 1, disabled text included.
struct Colours {
    QColor Ground;
    QColor Card;
    QColor Text;
    QColor Quiet_Text;
    QColor Edge;       // of what can be used: 3 to 1 on every ground
    QColor Faint_Edge; // of what only divides
    QColor Accent;     // white text stands on it
    QColor Accent_Hover;
    QColor Accent_Text;
    QColor Hover_Ground;
    QColor Pressed_Ground;
    QColor Heading_Ground;
    QColor Disabled_Ground;
    QColor Disabled_Text;
    QColor Focus;
    QColor Notice_Ground;
    QColor Notice_Text;
    QColor Danger_Ground;
    QColor Danger_Text;
    QColor Desk; // around a sheet of paper
};

enum class Scheme { Light, Dark };

// Those of the scheme that the theme was applied with, the light one before that.
const Colours& Colours_In_Force();

// Of the chart, which is the same in both schemes.
namespace chart_colours {
inline constexpr QColor Ink{0x1B, 0x29, 0x38};
inline constexpr QColor Accuracy_Bar{0xD0, 0x2B, 0x2B};
inline constexpr QColor Time_Bar{0x1F, 0x5F, 0xD0};
inline constexpr QColor Time_Hatch{0x9C, 0xBE, 0xF2};
} // namespace chart_colours

// Fonts, palette and style sheet for the whole program.
void Apply_Theme(QApplication& application, Scheme scheme = Scheme::Light);

// The values of a label's property "role"; the style sheet has a rule for each but Body.
enum class Text_Role {
    Body,
    Title,
    Subtitle,
    Quiet,
    Help,
    Notice,
    Badge,
    Heading,
    Caption,
    Fact,
    Foot,
    Waiting
};

// Shows its text as it is, never as mark-up.
void Set_Role(QLabel& label, Text_Role role);
QLabel* Make_Label(const QString& name, const QString& text, Text_Role role, QWidget* parent);

} // namespace shell
