#pragma once

#include "reports/reports_page.h"
#include "reports/scored_page.h"

namespace test_support {

class Reports_Page : public Scored_Page {
protected:
    Reports_Page() { installation.App_Path = QStringLiteral(MEVO_ASSETS); }

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
    void Open_On(const QString& code) {
        Open();
        Choose(code);
    }
    shell::Click_Combo& Combo() { return Control<shell::Click_Combo>(*page, u"Combo1"_s); }
    void Choose(const QString& code) {
        const int index = Combo().findText(u'(' + code + u')', Qt::MatchContains);
        ASSERT_GE(index, 0) << code.toStdString();
        Combo().Set_ListIndex(index);
    }
    QRect Place(const QString& name) { return Control(*page, name).geometry(); }
    QString Cell(int column, int row, const QString& grid = u"fpSpread1"_s) {
        return Control<grid::fpSpread>(*page, grid).Text(column, row);
    }

    std::unique_ptr<reports::Form30> page;
};

} // namespace test_support
