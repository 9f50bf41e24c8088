#include "reports/earlier_page.h"

#include "reports/reports_page_fixture.h"
#include "support/database_beside.h"
#include "support/files.h"
#include "support/other_workstation.h"

#include <QFile>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

class Earlier_Results_Page : public Reports_Page {
protected:
    // The first column beside the second, a row each.
    QStringList Listed() {
        reports::Earlier_Page over(outside.platform, navigator,
                                   reports::Report_Data{installation, scores, scoring, state});
        over.Load();
        told = Shown(over, u"Notice"_s) ? Caption(over, u"Notice"_s) : QString();
        const auto& list = Control<grid::fpSpread>(over, u"Spread1"_s);
        QStringList rows;
        for (int row = 1; row <= list.rowCount(); ++row)
            rows.append(list.Text(1, row) + u' ' + list.Text(2, row));
        return rows;
    }
    QString told;
};

TEST_F(Earlier_Results_Page, TellsWhyTheEarlierResultsArentShownAndShowsThePresentOnes) {
    const QString code = Code_Where(u"Karrel = 1 AND Drell = 1"_s);
    Open_On(code);
    const QStringList present = Listed();
    ASSERT_TRUE(present.contains(u"Karrel now"_s));
    EXPECT_TRUE(told.startsWith(u"Nothing earlier is kept"_s));

    const QString companion = keeping::Companion_Of(sample.Path());
    std::unique_ptr<Other_Workstation> other;
    const struct {
        std::function<void()> spoil;
        QString words;
    } cases[] = {
        {[] {}, u""_s},
        {[&] { Write_Bytes(companion, QByteArray(4096, 'x')); }, u"is damaged"_s},
        {[&] { Database_Beside(companion).Run({u"PRAGMA user_version = 9"_s}); }, u"by a later version"_s},
        {[&] {
             other = std::make_unique<Other_Workstation>(companion);
             other->Run(u"BEGIN EXCLUSIVE"_s);
         },
         u"in use by another computer"_s},
    };
    for (const auto& spoilt : cases) {
        SCOPED_TRACE(spoilt.words.toStdString());
        keeping::Keep_Takings(sample.Path(), code, {3}, outside.clock.now);
        spoilt.spoil();
        QStringList expected = present;
        if (spoilt.words.isEmpty()) expected.insert(present.indexOf(u"Karrel now"_s), u"Karrel earlier"_s);
        EXPECT_EQ(Listed(), expected);
        EXPECT_TRUE(told.contains(spoilt.words) && told.isEmpty() == spoilt.words.isEmpty())
            << told.toStdString();
        other.reset();
        QFile::remove(companion);
    }
}

} // namespace
