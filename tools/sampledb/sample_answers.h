#pragma once

#include "sampledb/random.h"

#include <QVariantList>

namespace sample_data {

// How one pupil sits one test.
struct Sitting {
    int test = 0; // place in the order of tests, from 0
    int months = 0;
    double ability = 0.0; // 0 is the average pupil, 1 a deviation above
    double speed = 0.0;
    int stopped_at = 0; // first item not reached; 0 where the test was played to its end
    int unanswered = 0; // an item that the pupil was shown and left; 0 for none
    bool nothing_right = false;
    int tries = 6; // of the colour test alone
};

// The values of a data table's row behind its key, in the table's order.
QVariantList Answers(const Sitting& sitting, Random& random);
QVariantList No_Answers(int test);

} // namespace sample_data
