#pragma once

#include "reports/state/report_state.h"
#include "support/printing.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace test_support {

using namespace Qt::StringLiterals;

// All that sheets tell of a pupil, by heart instead of from a database.
class Pupil_On_Paper : public testing::Test {
protected:
    Pupil_On_Paper() {
        installation.Institution = u"Hillside Primary School"_s;
        installation.Archive_Folder = u"/archives"_s;
        state.Current_Student_Code = u"SMIOLI633THJ"_s;
        state.Pupil_Name = u"Smith Oliver"_s;
        state.Pupil_DOB = u"09/02/2020"_s;
        state.Pupil_Age_Text = u" 6y 3m"_s;
        state.comment.Pupil_Comment = u"Works with care."_s;
    }
    ~Pupil_On_Paper() override { outside.boxes.Expect_All_Asked(); }

    Scripted_Platform outside;
    foundation::Installation installation;
    reports::Report_State state;
    scoring::Score_Store scores;
};

} // namespace test_support
