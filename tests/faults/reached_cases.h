// Joins the tests' main where faults are planted: tells planted::Note which case runs.
#pragma once

#include "planted.h"

#include <gtest/gtest.h>

namespace planted {

struct Case_Listener : ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo& test) override {
        ++Running_Case();
        Note(std::string("case ") + test.test_suite_name() + "." + test.name());
    }
    Case_Listener() { ::testing::UnitTest::GetInstance()->listeners().Append(this); }
};

inline Case_Listener* const listener = new Case_Listener; // GoogleTest deletes it

} // namespace planted
