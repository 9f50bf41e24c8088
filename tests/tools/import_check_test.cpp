#include "importcheck/command_line.h"
#include "support/command_line.h"
#include "support/files.h"
#include "support/sample_file.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

Outcome Checked(const QStringList& arguments) {
    const QDateTime now(QDate(2026, 6, 15), QTime(10, 30));
    return Outcome_Of([&](QIODevice& output, QTextStream& errors) {
        return import_check::Run_Command(QStringList{u"mevo-import-check"_s} + arguments, output, errors,
                                         now);
    });
}

} // namespace

TEST(Import_Check, WritesTheRehearsalOfAList) {
    const Sample_File sample;
    const QString file = sample.Folder() + u"/list.csv"_s;
    const QString own =
        sample.Value(u"SELECT Surname || ';' || Forename || ';M;' || DOB FROM Mevo_Pupils WHERE rowid = 1"_s);
    Write_Bytes(file, "Last;First;Sex;DOB\nKane;\"Mo, A\";M;3/4/2018\n" + own.toUtf8() + "\n");
    const Outcome open = Checked({file});
    EXPECT_EQ(open.status, 0);
    const Outcome settled = Checked({file, u"--dates"_s, u"month"_s, u"--class"_s, u"Oak"_s});
    EXPECT_EQ(settled.output.section(u"\r\n"_s, 0, 1),
              u"line,kind,surname,forename,gender,date_of_birth,class,password,age_months,has_norms,words,"
              u"can_be_cured\r\n"
              u"2,would be spoilt,Kane,\"Mo, A\",M,04/03/2018,Oak,,99,1,\"the forename holds a comma, which "
              u"parts the "
              u"fields of the import\",1"_s);
    const Outcome compared = Checked({file, u"--dates"_s, u"day"_s, u"--database"_s, sample.Path()});
    EXPECT_TRUE(compared.output.contains(u"3,already there,"_s)) << compared.output.toStdString();
    const std::pair<QStringList, QString> wrong[] = {
        {{}, u"Usage"_s},
        {{file, u"--dates"_s, u"first"_s}, u"day, month, year"_s},
        {{file, u"--sheet"_s, u"no"_s}, u"--sheet"_s},
        {{file, u"--database"_s, file}, u"The database"_s},
        {{sample.Folder() + u"/nowhere"_s}, u"can't be read"_s},
        {{sample.Path()}, u"no text"_s},
    };
    for (const auto& [arguments, told] : wrong)
        Checked(arguments).Expect_Refusal(u"mevo-import-check"_s, told);
}
