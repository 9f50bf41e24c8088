#pragma once

#include "reports/reports_page.h"
#include "support/controls.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace test_support {

using namespace Qt::StringLiterals;

inline const QString All_Normed =
    u"Tolvens = 1 AND BliksFriends = 1 AND Karrel = 1 AND BliksLetters = 1 AND BliksLetterNames = 1 AND "
    u"Drell = 1 AND Mirvel = 1 AND Yoon = 1 "
    "AND Karrel_age >= 60 AND BliksLetters_age >= 60"_s; // a younger pupil can score below the norms

class Reports_Page : public testing::Test {
protected:
    Reports_Page() : installation(sample.Installed()) { installation.App_Path = QStringLiteral(MEVO_ASSETS); }
    ~Reports_Page() override { outside.boxes.Expect_All_Asked(); }

    void Load() {
        page = std::make_unique<reports::Form30>(outside.platform, navigator,
                                                 reports::Report_Data{installation, scores, scoring, state});
        page->resize(1366, 768);
        page->Load();
    }
    void Open() {
        Load();
        page->Timer2_Timer();
    }
    shell::Click_Combo& Combo() { return Control<shell::Click_Combo>(*page, u"Combo1"_s); }
    void Choose(const QString& code) {
        const int index = Combo().findText(u'(' + code + u')', Qt::MatchContains);
        ASSERT_GE(index, 0) << code.toStdString();
        Combo().Set_ListIndex(index);
    }
    QString Code_Where(const QString& condition) {
        return sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE "_s + condition +
                            u" ORDER BY StudentCode LIMIT 1"_s);
    }
    void End_Tolvens_Early(const QString& code) {
        sample.Run(u"UPDATE Mevo_Tolvens_data SET Level_52_holes_req = '-1', Level_52_holes_chosen = '-2' "
                   "WHERE StudentCode = '"_s +
                   code + u'\'');
    }
    QRect Place(const QString& name) { return Control(*page, name).geometry(); }
    QString Cell(int column, int row) {
        return Control<grid::fpSpread>(*page, u"fpSpread1"_s).Text(column, row);
    }

    Sample_File sample;
    Scripted_Platform outside;
    Recording_Navigator navigator;
    foundation::Installation installation;
    scoring::Scoring_Data scores;
    foundation::Access_Holder scoring_holder{outside.platform};
    scoring::Scoring scoring = scoring::Pass_Over(scores, installation, scoring_holder);
    reports::Report_State state;
    std::unique_ptr<reports::Form30> page;
};

} // namespace test_support
