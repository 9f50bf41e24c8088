#include "scoring/scoring_bench.h"

using namespace Qt::StringLiterals;
using namespace scoring;

Scoring_Bench::Scoring_Bench() {
    const QStringList codes = sample.Column(u"SELECT StudentCode FROM Mevo_Pupils ORDER BY StudentCode"_s);
    for (int p = 1; p <= codes.size(); ++p)
        data.pupils.Student_Code[p] = codes[p - 1];
    data.pupils.Pupils_Listed = static_cast<int>(codes.size());
}

void Scoring_Bench::Put_Field(int t, int p, int item, Item_Field field, const QString& sql_value) {
    const Test_Entry& test = Test_At(t);
    QStringList settings;
    for (int i = item ? item : 1; i <= (item ? item : test.Items); ++i)
        settings.append(u'"' + test.Columns.Names(field).at(i - 1) + u"\" = "_s + sql_value);
    sample.Run(u"UPDATE %1 SET %2 WHERE StudentCode = '%3'"_s.arg(test.Data_Table, settings.join(u", "_s),
                                                                  data.pupils.Student_Code[p]));
}

void Scoring_Bench::Put(int t, int p, int item, const Answers& answers) {
    Put_Field(t, p, item, Item_Field::Requested, answers.requested);
    Put_Field(t, p, item, Item_Field::Chosen, answers.chosen);
    Put_Field(t, p, item, Item_Field::Time, answers.time);
}

void Scoring_Bench::List(int t, int p, int months, int status) {
    data.pupils.Test_Status[t][p] = static_cast<qint16>(status);
    data.pupils.Test_Age[t][p] = static_cast<qint16>(months);
}

void Scoring_Bench::Use_Plain_Norms() {
    for (int t = 1; t <= Normed_Tests; ++t)
        for (int age = 4; age <= 8; ++age) {
            for (int raw = 0; raw <= 70; ++raw)
                data.norms.Centile_Norms[t][age + 1][raw] = static_cast<qint16>(raw);
            for (int c = 1; c <= 99; ++c)
                data.norms.Time_Norms[t][age][c] = Plain_Time(c);
        }
}
