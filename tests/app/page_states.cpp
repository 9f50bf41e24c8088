#include "app/page_states.h"

#include "app/running_program.h"
#include "shell/conventions/click_combo.h"
#include "support/files.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace test_support {
namespace {

constexpr char Class_List[] = "Ashdown,Ella,female,14/03/2019,Class 1 Oak,\r\n"
                              "Brook - Lane,Mohammed,M,1 Feb 2019,,robin\r\n\r\n"
                              "O'Connell,Chloe,F,2018-11-30,Nightingales,\r\n";

// What is clicked on a page, and the state that this leads to.
struct Step {
    QStringList clicks;
    QString state;
};

struct Visit {
    QString entry; // of the Main menu
    QString form;
    QString state;
    QList<Step> steps;
};

class Tour {
public:
    Tour(int pupils, const Look_At& look) : school(pupils), look(look) { school.Start(); }

    void Show(const QString& state) {
        Name_One_Folder();
        QApplication::processEvents();
        look(state, school.program.Window());
    }
    // The folder is another one in each run.
    void Name_One_Folder() {
        static const QRegularExpression folder(QRegularExpression::escape(QDir::tempPath()) + u"/[^/]+"_s);
        if (auto* foot = school.Page().findChild<QLabel*>(u"Foot"_s))
            foot->setText(foot->accessibleName().replace(folder, u"/srv/mevo"_s));
        if (auto* place = school.Page().findChild<QLabel*>(u"Place"_s))
            place->setText(place->text().replace(folder, u"/srv/mevo"_s));
    }
    void Click_All(const QStringList& names) {
        for (const QString& name : names)
            Click(school.Page(), name);
    }
    void Go(const QString& entry, const QString& form) {
        Click(school.Page(), entry);
        school.Follow_To(form);
    }
    void Pay(const Visit& visit) {
        Go(visit.entry, visit.form);
        Show(visit.state);
        for (const Step& step : visit.steps) {
            Click_All(step.clicks);
            Show(step.state);
        }
    }
    void See_Preview(const QString& entry, const QString& form, const Visit& from) {
        Go(entry, form);
        Show(from.state + u"_preview"_s);
        Go(u"HotLabel1"_s, from.form);
    }
    void Meet_Dialog(const QString& state) {
        school.outside.dialogs.Will_Do([this, state](QDialog& dialog) {
            dialog.show();
            QApplication::processEvents();
            look(state, dialog);
            dialog.reject();
        });
    }
    // The first pupil of the list one of whose tests was ended early.
    void Choose_A_Pupil_With_Marks() {
        auto& pupils = Control<shell::Click_Combo>(school.Page(), u"Combo1"_s);
        for (int place = 0; place < pupils.count(); ++place) {
            pupils.Set_ListIndex(place);
            if (Shown(school.Page(), u"Image12"_s) || Shown(school.Page(), u"Image13"_s)) return;
        }
        throw std::runtime_error("no pupil has a mark");
    }

    Running_Program school;

private:
    const Look_At& look;
};

void Reports(Tour& tour) {
    tour.Go(u"HotLabel1"_s, u"Form30"_s);
    tour.Choose_A_Pupil_With_Marks();
    tour.Show(u"reports_centiles"_s);
    const Step steps[] = {{{u"ShowZScores"_s, u"HotLabel2"_s}, u"reports_zscores_times"_s},
                          {{u"ShowWhite"_s}, u"reports_zscores_white"_s},
                          {{u"WhyEntry"_s}, u"reports_why"_s},
                          {{u"BtnEnh11"_s}, u"reports_answers"_s},
                          {{u"BtnEnh18"_s}, u"reports_wide_answers"_s},
                          {{u"HotLabel7"_s}, u"reports_summary"_s}};
    for (const Step& step : steps) {
        tour.Click_All(step.clicks);
        tour.Show(step.state);
    }
    tour.Meet_Dialog(u"comment"_s);
    tour.Click_All({u"HotLabel3"_s, u"HotLabel5"_s});
    tour.Meet_Dialog(u"save_as_csv"_s);
    tour.Click_All({u"SaveScores"_s});
    tour.Click_All({u"WhyEntry"_s});
    tour.Go(u"WhyPrint"_s, u"Why_Report"_s);
    tour.Show(u"why_report"_s);
    tour.Go(u"HotLabel1"_s, u"Form30"_s);
    tour.Go(u"EarlierResults"_s, u"Earlier_Page"_s);
    tour.Show(u"earlier_results"_s);
    tour.Go(u"HotLabel1"_s, u"Form30"_s);
    tour.Go(u"HotLabel4"_s, u"Form94"_s);
    tour.Show(u"individual_report"_s);
    tour.Go(u"HotLabel1"_s, u"Form30"_s);
    tour.Go(u"HotLabel6"_s, u"Form92"_s);
    tour.Click_All({u"HotLabel7"_s, u"HotLabel9"_s});
    tour.Show(u"batch_report"_s);
    tour.Meet_Dialog(u"full_reports"_s);
    tour.Click_All({u"FullReports"_s});
    tour.Go(u"HotLabel1"_s, u"Form30"_s);
    tour.Go(u"HotLabel1"_s, u"Form77"_s);
}

void Other_Pages(Tour& tour) {
    const Visit visits[] = {
        {u"HotLabel7"_s, u"Form14"_s, u"testing_progress"_s, {}},
        {u"HotLabel4"_s, u"Form10"_s, u"register"_s, {}},
        {u"HotLabel5"_s,
         u"Form15"_s,
         u"fine_tuning"_s,
         {{{u"HotLabel4"_s, u"HotLabel5"_s, u"Image1(0)"_s, u"Image1(1)"_s}, u"fine_tuning_editing"_s}}},
        {u"HotLabel3"_s, u"Form9"_s, u"delete"_s, {{{u"HotLabel3"_s}, u"delete_selected"_s}}},
        {u"HotLabel14"_s, u"Form2"_s, u"security"_s, {}},
        {u"HotLabel6"_s, u"Form20"_s, u"settings"_s, {}},
    };
    for (const Visit& visit : visits) {
        tour.Pay(visit);
        if (visit.form == "Form14"_L1) tour.See_Preview(u"TickList"_s, u"Tick_List"_s, visit);
        if (visit.form == "Form2"_L1) tour.See_Preview(u"LoginCards"_s, u"Login_Cards"_s, visit);
        if (visit.form == "Form15"_L1) {
            tour.Go(u"AllData"_s, u"Whole_Data_Page"_s);
            tour.Show(u"all_data"_s);
            tour.Go(u"HotLabel1"_s, u"Form15"_s);
        }
        if (visit.form == "Form20"_L1) {
            tour.school.outside.boxes.Will_Answer(desktop::Answer::Yes);
            tour.Meet_Dialog(u"password"_s);
            tour.Click_All({u"HotLabel2"_s});
            tour.Go(u"NormTables"_s, u"Norms_Page"_s);
            tour.Show(u"norm_tables"_s);
            tour.Go(u"HotLabel1"_s, u"Form20"_s);
            tour.Go(u"ChangesEntry"_s, u"Changes_Page"_s);
            tour.Show(u"changes"_s);
            tour.Click_All({u"HotLabel5"_s});
            tour.Show(u"changes_untested"_s);
            tour.Go(u"HotLabel1"_s, u"Form20"_s);
        }
        tour.Go(u"HotLabel1"_s, u"Form77"_s);
    }
}

void Import(Tour& tour) {
    const QString name = u"class list.txt"_s;
    const QString file = tour.school.sample.Folder() + u'/' + name;
    Write_Bytes(file, Class_List);
    tour.school.outside.file_dialogs.answers = {file};
    tour.Go(u"HotLabel2"_s, u"Form42"_s);
    tour.Show(u"import"_s);
    tour.Click_All({u"PreviewImport"_s});
    if (!Control<QWidget>(tour.school.Page(), u"HotLabel3"_s).isEnabled())
        throw std::runtime_error("the class list wasn't previewed");
    // The folder is another one in each run.
    Control<QLineEdit>(tour.school.Page(), u"Text1"_s).setText(name);
    tour.Show(u"import_previewed"_s);
    tour.Go(u"HotLabel1"_s, u"Form77"_s);
}

constexpr char School_List[] =
    "Pupil name;Sex;Date of birth;Class\n\"Ashdown, Ella\";female;04/03/2019;Oak\n"
    "\"Brook, Mohammed\";male;05/06/2019;St John's\n\"Łaś, Zofia\";girl;07/08/2018;Oak\n"
    "\"Moss, Al\";X;09/10/2011;Oak\n";

void Prepare(Tour& tour) {
    const QString file = tour.school.sample.Folder() + u"/list.csv"_s;
    Write_Bytes(file, School_List);
    tour.school.outside.file_dialogs.answers = {file};
    tour.Go(u"HotLabel2"_s, u"Form42"_s);
    tour.Go(u"HotLabel5"_s, u"Form43"_s);
    tour.Show(u"prepare"_s);
    tour.Click_All({u"HotLabel2"_s});
    auto& name = Control<QLineEdit>(tour.school.Page(), u"Text1"_s);
    name.setText(u"list.csv"_s);
    tour.Show(u"prepare_dates"_s);
    Control<shell::Click_Combo>(tour.school.Page(), u"Combo8"_s).Set_ListIndex(1);
    tour.Show(u"prepare_rehearsed"_s);
    tour.Go(u"HotLabel1"_s, u"Form42"_s);
    tour.Go(u"HotLabel1"_s, u"Form77"_s);
}

// The pages before have left copies, which still hold whoever is deleted now.
void Kept_Copies(Tour& tour) {
    tour.Go(u"HotLabel8"_s, u"Form60"_s);
    tour.Go(u"GoBack"_s, u"Form61"_s);
    tour.Show(u"go_back"_s);
    tour.school.sample.Run(u"DELETE FROM Mevo_Pupils WHERE rowid = 3"_s);
    tour.Go(u"HotLabel5"_s, u"Form62"_s);
    tour.Show(u"remove_pupil"_s);
    tour.Go(u"HotLabel1"_s, u"Form61"_s);
    tour.Go(u"HotLabel1"_s, u"Form60"_s);
    tour.Go(u"HotLabel1"_s, u"Form77"_s);
}

void Archive_In_View(Tour& tour) {
    const Sample_File archive(3);
    tour.Pay({u"HotLabel8"_s, u"Form60"_s, u"archiving"_s, {}});
    tour.school.outside.file_dialogs.answers = {archive.Path()};
    tour.school.outside.boxes.Will_Answer(desktop::Answer::Ok);
    tour.Click_All({u"HotLabel3"_s});
    tour.Show(u"archiving_in_view"_s);
    tour.Go(u"HotLabel1"_s, u"Form77"_s);
    tour.Show(u"main_menu_in_view"_s);
}

} // namespace

void Go_Through_All_Pages(const Look_At& look, shell::Scheme scheme) {
    shell::Apply_Theme(*qApp, scheme);
    {
        Tour empty(0, look);
        empty.Show(u"main_menu_no_pupils"_s);
    }
    Tour tour(12, look);
    tour.Show(u"main_menu"_s);
    Reports(tour);
    Import(tour);
    Prepare(tour);
    Other_Pages(tour);
    Kept_Copies(tour);
    Archive_In_View(tour);
}

} // namespace test_support
