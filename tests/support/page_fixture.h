#pragma once

#include "support/controls.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace test_support {

// For a page over a database of its own, with a double for all that lies outside.
class Page_Fixture : public testing::Test {
protected:
    ~Page_Fixture() override {
        outside.boxes.Expect_All_Asked();
        EXPECT_TRUE(outside.dialogs.acts.isEmpty());
    }
    static void Show_On_Screen(shell::Page& page) {
        page.resize(1366, 768);
        page.show();
    }

    Sample_File sample;
    Scripted_Platform outside;
    Recording_Navigator navigator;
    foundation::Installation installation = sample.Installed();
};

template<class Grid>
QStringList Grid_Row(const Grid& grid, int row) {
    QStringList texts;
    for (int column = 1; column <= grid.columnCount(); ++column)
        texts.append(grid.Text(column, row));
    return texts;
}

} // namespace test_support
