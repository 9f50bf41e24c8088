#include "shell/conventions/theme.h"

#include "support/contrast.h"

#include <gtest/gtest.h>

using namespace shell::colours;
using test_support::Contrast;

// States that no page of the tour is in, as pressed and pointed-at entries, have their colours here.
TEST(Theme, ColoursThatMeetCanBeToldApart) {
    struct Pair {
        const char* what;
        QColor ink, ground;
        double least;
    };
    constexpr double text = 4.5;
    constexpr double shape = 3;
    const Pair pairs[] = {
        {"text on the page", Text, Ground, text},
        {"quiet text on the page", Quiet_Text, Ground, text},
        {"quiet text in a shaded panel", Quiet_Text, Disabled_Ground, text},
        {"entry pointed at", Accent_Dark, Hover_Ground, text},
        {"entry pressed", Accent_Dark, Pressed_Ground, text},
        {"chosen entry and line", Card, Accent, text},
        {"disabled text", Disabled_Text, Disabled_Ground, text},
        {"disabled text on a card", Disabled_Text, Card, text},
        {"progress over its bar", Text, Pressed_Ground, text},
        {"heading of a table", Text, Heading_Ground, text},
        {"notice", Notice_Text, Notice_Ground, text},
        {"edge of an entry", Edge, Card, shape},
        {"edge of an entry on the page", Edge, Ground, shape},
        {"edge of a disabled entry", Edge, Disabled_Ground, shape},
        {"handle of a scroll bar", Edge, Ground, shape},
        {"mark of the focus", Focus, Card, shape},
        {"mark of the focus on the page", Focus, Ground, shape},
        {"mark of the focus beside a chosen line", Card, Accent, shape},
        {"accuracy bar on white", Accuracy_Bar, Card, shape},
        {"hatches of a time bar", Time_Hatch, Time_Bar, 2.5},
    };
    for (const Pair& pair : pairs)
        EXPECT_GE(Contrast(pair.ink, pair.ground), pair.least) << pair.what;
}
