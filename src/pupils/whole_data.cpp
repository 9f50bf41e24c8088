#include "pupils/whole_data.h"

#include "foundation/quiet_reading.h"
#include "platform/basics/number_text.h"
#include "pupils/pupil_records.h"
#include "scoring/earlier/earlier_results.h"
#include "scoring/list_items.h"
#include "scoring/norm_check.h"
#include "scoring/passing_over_errors.h"
#include "scoring/pindo.h"
#include "scoring/score_all_tests.h"
#include "scoring/sequence_totals.h"
#include "scoring/test_pass.h"

#include <QSet>
#include <memory>

using namespace Qt::StringLiterals;

namespace pupils {

namespace {

using scoring::All_Tests;
using scoring::Item_Field;
using scoring::Test_At;
using scoring::Why_Section;
namespace test_index = scoring::test_index;

constexpr int The_Place = 1; // in lists of one pupil

QString Age_Words(int months) {
    return u"%1 y %2 m"_s.arg(months / 12).arg(months % 12);
}

QString Heading_Of(Item_Field field) {
    switch (field) {
    case Item_Field::Requested:
        return u"Asked"_s;
    case Item_Field::Chosen:
        return u"Answered"_s;
    case Item_Field::Time:
        return u"Time (sec)"_s;
    case Item_Field::Shown:
        return u"Shown"_s;
    case Item_Field::Choices:
        return u"On offer"_s;
    case Item_Field::Target_Alien:
        return u"Target alien"_s;
    case Item_Field::Distracter:
        return u"Distracter"_s;
    case Item_Field::Rhyming_With:
        return u"Rhyming with"_s;
    case Item_Field::Distractor:
        return u"Distractor"_s;
    }
    return {};
}

QString Answer_Words(const basics::Value& value) {
    if (value.Reads(scoring::Not_Reached)) return u"not reached"_s;
    if (value.Reads(scoring::No_Answer)) return u"no answer"_s;
    return value.Text_Or_Empty().replace(u","_s, u", "_s);
}

// Empty for an item that wasn't timed.
QString Time_Words(const basics::Value& milliseconds) {
    QString words;
    scoring::Passing_Over_Errors([&] {
        if (!milliseconds.Is_Empty() && scoring::Is_Valid_Time(milliseconds))
            words = basics::Plain_Number(milliseconds.As_Double() / 1000);
    });
    return words;
}

QString Sex_Words(const QString& sex) {
    return sex == "M"_L1 ? u"male"_s : sex == "F"_L1 ? u"female"_s : sex;
}

// A paragraph that fills no sheet by itself.
QStringList Stretches_Of(QString line) {
    constexpr qsizetype longest = 1500;
    QStringList stretches;
    while (line.size() > longest) {
        const qsizetype blank = line.lastIndexOf(u' ', longest);
        stretches.append(line.left(blank > 0 ? blank : longest));
        line = line.sliced(stretches.last().size()).trimmed();
    }
    return stretches << line;
}

class Collector {
public:
    Collector(const QString& code, const foundation::Installation& installation, desktop::Platform& platform)
        : code(code),
          installation(installation),
          reading(platform),
          own(std::make_unique<scoring::Scoring_Data>()),
          pass(scoring::Pass_Over(*own, installation, reading.Holder())) {
        pass.trace = &trace;
    }

    Whole_Data Collected() {
        const auto act = reading.Holder().Begin_Act();
        const Why_Section details = Part(u"Details"_s, [this](Why_Section& part) { Take_Details(part); });
        Why_Section scores = Part(u"Scores"_s, [this](Why_Section&) { Load_Norms(); });
        for (int t = 1; t <= All_Tests; ++t)
            present.append(
                Part(u"Answers: "_s + Test_At(t).Test_Name, [&](Why_Section& part) { Take_Test(t, part); }));
        Take_Scores(scores);
        const Why_Section earlier =
            Part(u"Earlier results"_s, [this](Why_Section& part) { Take_Earlier_Results(part); });
        Take_Earlier_Answers();
        const QString name = own->pupils.Pupil_Name_List[The_Place];
        Whole_Data data{{u"All data of a pupil"_s, name + u" ("_s + code + u')', {}}, norms};
        data.words.sections << details << scores << Comment_Part() << earlier;
        data.words.sections += present;
        data.words.sections.removeIf(
            [](const Why_Section& part) { return part.lines.isEmpty() && part.rows.isEmpty(); });
        return data;
    }

private:
    // What fails is told in the part itself, and the other parts go on.
    template<class Step>
    Why_Section Part(const QString& heading, Step step) {
        Why_Section part{heading, {}, {}, {}};
        try {
            step(part);
        } catch (const std::exception& error) { // without its rows a step may stumble over anything
            part.lines.append(u"Not all can be read: "_s + reading.Why(error));
        }
        reading.Holder().ado_Close();
        return part;
    }

    QString Text(const QString& field) { return reading.Holder().Field(field).Text_Or_Empty(); }

    void Take_Details(Why_Section& part) {
        scoring::Pupil_Lists& lists = own->pupils;
        lists.Student_Code[The_Place] = code;
        reading.Holder().ado_Open(installation.Connection_String, Row_Of_Pupil(code), u"ReadOnly"_s);
        lists.Pupil_Name_List[The_Place] = Text(u"Surname"_s) + u' ' + Text(u"Forename"_s);
        for (int t = 1; t <= All_Tests; ++t) {
            const auto number = [&](const QString& name) {
                return Number_Or_Zero(reading.Holder().Field(name));
            };
            lists.Test_Status[t][The_Place] = number(Test_At(t).Status_Column);
            lists.Test_Age[t][The_Place] = number(Test_At(t).Age_Column);
            lists.Test_Date[t][The_Place] = Text(Test_At(t).Date_Column);
        }
        comment = Text(u"Comment"_s);
        const auto is_set = [this](const QString& name) { return Text(name) == "1"_L1; };
        part.rows = {{u"User ID"_s, code},
                     {u"Surname"_s, Text(u"Surname"_s)},
                     {u"Forename(s)"_s, Text(u"Forename"_s)},
                     {u"Date of birth"_s, Text(u"DOB"_s)},
                     {u"Gender"_s, Sex_Words(Text(u"Sex"_s))},
                     {u"Group/Class"_s, Text(u"Group_Class"_s)},
                     {u"On the Login List"_s, is_set(u"Show_Name"_s) ? u"yes"_s : u"no"_s},
                     {u"Password"_s, is_set(u"Dob_as_pw"_s) ? u"the date of birth"_s
                                                            : u"one of their own, not shown here"_s}};
    }

    void Load_Norms() {
        scoring::Load_All_Norms(reading.Holder(), installation, own->norms);
        norms = scoring::Norms_Digest(own->norms);
    }

    // ---- one test

    void Take_Test(int t, Why_Section& part) {
        not_worked_out.insert(t); // until it has been
        reading.Holder().ado_Open(
            installation.Connection_String,
            u"SELECT * FROM %1 WHERE StudentCode = '%2'"_s.arg(Test_At(t).Data_Table, code), u"ReadOnly"_s);
        Take_Answers(t, reading.Holder().Rows(), part);
        reading.Holder().ado_Close();
        const bool normed = t <= scoring::Normed_Tests;
        if (own->pupils.Test_Status[t][The_Place] == 1) {
            part.lines.prepend(u"Taken %1 at the age of %2."_s.arg(
                own->pupils.Test_Date[t][The_Place], Age_Words(own->pupils.Test_Age[t][The_Place])));
            if (normed) scoring::Passing_Over_Errors([&] { scoring::Time_One_Test(t, The_Place, pass); });
        } else {
            if (normed) own->scores.Raw_Centile[t] = 0; // none that holds
            if (part.rows.isEmpty())
                part = {};
            else
                part.lines.prepend(
                    u"The test counts as not taken; the database still holds these answers."_s);
        }
    }

    // The words of the items are those that the scoring puts in the place of codes.
    void Take_Answers(int t, database::Recordset& row, Why_Section& part) {
        own->items[t] = scoring::Test_Items(Test_At(t).Highest_Item);
        trace.Of(t) = {};
        try {
            scoring::Score_One_Test(t, The_Place, row, pass);
            not_worked_out.remove(t);
        } catch (const basics::Run_Time_Error& error) {
            part.lines.append(u"Not all can be worked out: "_s + error.Description);
        }
        part.headings = {t == test_index::Pindo ? u"Body part"_s : u"Item"_s};
        for (const Item_Field field : Test_At(t).Fields)
            part.headings.append(Heading_Of(field));
        part.headings.append(u"Counts"_s);
        scoring::Item_Places places;
        places.Find(row, Test_At(t).Columns);
        for (int i = 1; i <= Test_At(t).Items; ++i)
            Take_Item(t, i, places, row, part);
        if (!part.rows.isEmpty()) Take_Counts(t, row, part);
    }

    void Take_Item(int t, int i, const scoring::Item_Places& places, const database::Recordset& row,
                   Why_Section& part) {
        QStringList cells;
        for (const Item_Field field : Test_At(t).Fields) {
            basics::Value time;
            if (field == Item_Field::Time)
                row.Read(places.Columns(field).at(static_cast<std::size_t>(i) - 1), time);
            cells.append(field == Item_Field::Time ? Time_Words(time)
                                                   : Answer_Words(own->items[t].Of(field)[i]));
        }
        if (cells.join(QString()).isEmpty()) return;
        cells.prepend(t == test_index::Pindo ? scoring::Pindo_Try(i) : QString::number(i));
        cells.append(QString());
        for (const scoring::Traced_Item& item : trace.Of(t).items)
            if (item.number == i) cells.last() = scoring::Points_In_Words(item);
        part.rows.append(cells);
    }

    void Take_Counts(int t, database::Recordset& row, Why_Section& part) {
        if (scoring::Has_Sequence_Total(t))
            part.lines.append(u"Sequence errors: %1."_s.arg(scoring::Sequence_Total(t, The_Place, pass)));
        if (Test_At(t).Counts_Repeats)
            part.lines.append(
                u"Repeated: %1. Paused: %2."_s.arg(row.Fields(u"RepeatCount"_s).Value().Text_Or_Empty(),
                                                   row.Fields(u"PauseCount"_s).Value().Text_Or_Empty()));
    }

    // ---- the scores, once all tests have been

    QString State_Of(int t) const {
        const bool taken = own->pupils.Test_Status[t][The_Place] == 1;
        if (taken && not_worked_out.contains(t)) return u"can't be scored"_s;
        if (t == test_index::Pindo) return taken ? u"taken"_s : u"not taken"_s;
        const QString state =
            scoring::In_Words(scoring::Standing_Of(t, The_Place, own->pupils, own->scores, own->norms));
        const bool ended = (t == test_index::Tolvens && own->scores.Tolvens_Terminated) ||
                           (t == test_index::Bliks_Friends && own->scores.Friends_Terminated);
        return (state.isEmpty() ? u"taken"_s : state) + (taken && ended ? u", ended early"_s : QString());
    }

    void Take_Scores(Why_Section& part) {
        using namespace scoring::summary_column;
        scoring::Fill_SummaryTable_With_Scores(The_Place, own->pupils, own->scores, cells);
        scoring::Fill_SummaryTable_With_Ages(The_Place, own->pupils, cells);
        part.headings = {u"Test"_s, u"State"_s, cells(1, Test_Date), cells(1, Test_Age)};
        for (int column = Score; column <= Time_ZScore; ++column)
            part.headings.append(cells(1, column));
        for (int t = 1; t <= All_Tests; ++t) {
            const int row = scoring::Summary_Row(t);
            QStringList texts{Test_At(t).Test_Name, State_Of(t), cells(row, Test_Date),
                              cells(row, Test_Age).simplified()};
            for (int column = Score; column <= Time_ZScore; ++column)
                texts.append(column >= Time && !trace.Of(t).time ? QString() : cells(row, column));
            // A raw score that the norms don't know.
            if (texts[4].isEmpty() && trace.Of(t).band && own->pupils.Test_Status[t][The_Place] == 1)
                texts[4] = QString::number(trace.Of(t).raw_total);
            part.rows.append(texts);
        }
        const int pindo = test_index::Pindo;
        if (own->pupils.Test_Status[pindo][The_Place] == 1) {
            QString& score = part.rows.last()[4];
            score = u"%1 attempts %2"_s.arg(own->scores.Pindo_Attempts).arg(score).trimmed();
        }
    }

    // ---- what was kept beside the database

    QString Database() const { return foundation::Database_Named_In(installation.Connection_String); }

    void Take_Earlier_Results(Why_Section& part) {
        const QString in_the_way = keeping::Look_At_Companion(Database()).words;
        if (!in_the_way.isEmpty()) part.lines.append(in_the_way);
        scoring::Earlier_Results results(installation, reading.Holder(), own->norms);
        const auto takings = results.All_Takings(The_Place, own->pupils, cells);
        part.headings = {u"Test"_s,      u"Taken"_s,   u"Date"_s,
                         u"Age"_s,       u"Score"_s,   u"Centile"_s,
                         u"Std score"_s, u"Z Score"_s, u"Against the one before"_s};
        bool any = false;
        for (const scoring::Scored_Taking& taking : takings) {
            any = any || !taking.is_present;
            part.rows.append({Test_At(taking.test).Test_Name, taking.is_present ? u"now"_s : u"earlier"_s,
                              taking.date, taking.age.simplified(), taking.score, taking.centile,
                              taking.standard_score, taking.z_score,
                              scoring::In_Words(taking.from_the_one_before)});
        }
        if (any) return;
        part.rows.clear();
        part.lines.append(u"Nothing earlier is kept of this pupil."_s);
    }

    void Take_Earlier_Answers() {
        QList<keeping::Taking> takings;
        scoring::Passing_Over_Errors([&] { takings = keeping::Takings_Of(Database(), code); });
        for (const keeping::Taking& taking : takings)
            present.append(Part(u"Earlier answers: "_s + Test_At(taking.test).Test_Name,
                                [&](Why_Section& part) { Take_Earlier(taking, part); }));
    }

    void Take_Earlier(const keeping::Taking& taking, Why_Section& part) {
        own->pupils.Test_Age[taking.test][The_Place] = static_cast<qint16>(taking.age);
        keeping::Kept_Row row(Database(), taking);
        Take_Answers(taking.test, row.Row(), part);
        part.lines.prepend(
            u"Taken %1 at the age of %2, before a retest."_s.arg(taking.date, Age_Words(taking.age)));
    }

    Why_Section Comment_Part() const {
        Why_Section part{u"Comment"_s, {}, {}, {}};
        for (const QString& line :
             QString(comment).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n'))
            part.lines += Stretches_Of(line);
        if (comment.trimmed().isEmpty()) part.lines = {u"None."_s};
        return part;
    }

    const QString code;
    const foundation::Installation& installation;
    foundation::Quiet_Reading reading;
    std::unique_ptr<scoring::Scoring_Data> own;
    scoring::Trace trace;
    scoring::Scoring pass;
    scoring::Summary_Cells cells;
    QSet<int> not_worked_out; // tests of now
    QString comment, norms;
    QList<Why_Section> present; // the answers of now, and then those of before
};

} // namespace

Whole_Data All_Data_Of(const QString& code, const foundation::Installation& installation,
                       desktop::Platform& platform) {
    return Collector(code, installation, platform).Collected();
}

QByteArray As_Csv(const scoring::Why_Words& words, basics::Decimal_Mark mark) {
    constexpr qsizetype texts = 3;
    QString text(basics::Csv_Mark);
    const auto add = [&](const QStringList& fields) {
        text += basics::Spreadsheet_Line(fields, texts, mark);
    };
    add({u"part"_s, u"row"_s, u"name"_s, u"value"_s});
    for (const Why_Section& part : words.sections) {
        for (const QString& line : part.lines)
            add({part.heading, {}, {}, line});
        for (qsizetype row = 0; row < part.rows.size(); ++row) {
            const QStringList& cells = part.rows[row];
            if (part.headings.isEmpty())
                add({part.heading, {}, cells.first(), cells.last()});
            else
                for (qsizetype column = 0; column < cells.size(); ++column)
                    if (!cells[column].isEmpty())
                        add({part.heading, QString::number(row + 1), part.headings[column], cells[column]});
        }
    }
    return text.toUtf8();
}

} // namespace pupils
