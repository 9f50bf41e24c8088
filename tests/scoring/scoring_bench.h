#pragma once

#include "scoring/scoring.h"
#include "support/error_number.h"
#include "support/printing.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

// A database whose answers a test writes, and pupils whom it lists itself.
class Scoring_Bench : public ::testing::Test {
protected:
    Scoring_Bench();

    // SQL texts of one item: 'Red', 1500, NULL. An item of 0 means every item of the test.
    struct Answers {
        QString requested;
        QString chosen;
        QString time = QStringLiteral("1000");
    };
    void Put(int t, int p, int item, const Answers& answers);
    void Put_Field(int t, int p, int item, scoring::Item_Field field, const QString& sql_value);

    // Lists test t as completed at that age.
    void List(int t, int p, int months = 60, int status = 1);

    // Lists it, and answers every item of it so.
    void Take(int t, int p, const Answers& all, int months = 60) {
        List(t, p, months);
        Put(t, p, 0, all);
    }

    // Norms in which every raw score is its own centile, and centile c of every test takes 100 ms more than
    // the next: 100 ms at 99, 9900 ms at 1.
    void Use_Plain_Norms();

    test_support::Sample_File sample{4};
    foundation::Installation installation = sample.Installed();
    test_support::Scripted_Platform desktop;
    foundation::Access_Holder holder{desktop.platform};
    scoring::Scoring_Data data;
    scoring::Scoring pass = scoring::Pass_Over(data, installation, holder);
};

constexpr int Plain_Time(int centile) {
    return (100 - centile) * 100;
}
