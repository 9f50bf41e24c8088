#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QLabel;
class QWidget;

namespace shell {

// The colours of all pages. Text on its ground has a contrast of at least 4.5 to 1, disabled text included.
namespace colours {
inline constexpr QColor Ground{0xE9, 0xEE, 0xF3};
inline constexpr QColor Card{0xFF, 0xFF, 0xFF};
inline constexpr QColor Text{0x1B, 0x29, 0x38};
inline constexpr QColor Quiet_Text{0x4A, 0x5A, 0x6B};
inline constexpr QColor Edge{0x7A, 0x88, 0x96};       // of what can be used: 3 to 1 on every ground
inline constexpr QColor Faint_Edge{0xD3, 0xDB, 0xE3}; // of what only divides
inline constexpr QColor Accent{0x1D, 0x5F, 0xA6};
inline constexpr QColor Accent_Dark{0x12, 0x44, 0x7A};
inline constexpr QColor Hover_Ground{0xEA, 0xF2, 0xFB};
inline constexpr QColor Pressed_Ground{0xD3, 0xE4, 0xF6};
inline constexpr QColor Heading_Ground{0xE4, 0xEA, 0xF1};
inline constexpr QColor Disabled_Ground{0xF1, 0xF4, 0xF7};
inline constexpr QColor Disabled_Text{0x5F, 0x6C, 0x79};
inline constexpr QColor Focus{0xC2, 0x5A, 0x00};
inline constexpr QColor Notice_Ground{0xFF, 0xF3, 0xD6};
inline constexpr QColor Notice_Text{0x6B, 0x43, 0x00};
inline constexpr QColor Accuracy_Bar{0xD0, 0x2B, 0x2B};
inline constexpr QColor Time_Bar{0x1F, 0x5F, 0xD0};
inline constexpr QColor Time_Hatch{0x9C, 0xBE, 0xF2};
} // namespace colours

// Fonts, palette and style sheet for the whole program.
void Apply_Theme(QApplication& application);

// The values of a label's property "role"; the style sheet has a rule for each but Body.
enum class Text_Role { Body, Title, Subtitle, Quiet, Help, Notice, Badge, Heading, Fact, Foot, Waiting };

// Shows its text as it is, never as mark-up.
void Set_Role(QLabel& label, Text_Role role);
QLabel* Make_Label(const QString& name, const QString& text, Text_Role role, QWidget* parent);

} // namespace shell
