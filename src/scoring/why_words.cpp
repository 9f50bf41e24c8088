#include "scoring/why_words.h"

#include "platform/basics/number_text.h"
#include "scoring/list_items.h"
#include "scoring/sequence_totals.h"

using namespace Qt::StringLiterals;

namespace scoring {

namespace {

QString Seconds(double milliseconds) {
    return basics::Plain_Number(milliseconds / 1000);
}

QString Counted(int number, const QString& of) {
    return QString::number(number) + u' ' + of + (number == 1 ? QString() : u"s"_s);
}

QString Years_And_Months(int months) {
    return Counted(months / Months_A_Year, u"year"_s) + u' ' + Counted(months % Months_A_Year, u"month"_s);
}

QString Months_Of(const Norm_Band& band) {
    if (band.Is_Youngest()) return u"up to %1 months"_s.arg(band.last_month);
    if (band.Is_Oldest()) return u"%1 months and more"_s.arg(band.first_month);
    return u"%1 to %2 months"_s.arg(band.first_month).arg(band.last_month);
}

QString Or_Unknown(const QString& text) {
    return text.isEmpty() ? u"unknown"_s : text;
}

// ---- the result, under the names that the summary gives it

Why_Section Result_Of(const Explanation& told) {
    static const QString names[] = {u"Raw score"_s,  u"Centile"_s,      u"Standard score"_s, u"Z-score"_s,
                                    u"Time (sec)"_s, u"Time centile"_s, u"Time z-score"_s};
    constexpr int first_of_times = 4;
    Why_Section section{u"Result"_s, {}, {}, {}};
    if (!told.failure.isEmpty()) section.lines.append(u"Not all could be worked out: "_s + told.failure);
    if (told.t == test_index::Pindo) {
        if (told.standing == Standing::Scored)
            section.rows = {{u"Attempts"_s, QString::number(told.attempts)},
                            {u"Verdict"_s, told.cells.value(0).isEmpty()
                                               ? u"none, with fewer than 6 attempts"_s
                                               : told.cells.first()}};
        else
            section.lines.append(u"This test has not been taken."_s);
        return section;
    }
    if (told.standing != Standing::Scored && (told.used.band || told.failure.isEmpty()))
        section.lines.append(u"No score: "_s + In_Words(told.standing) + u'.');
    if (told.standing != Standing::Scored && told.used.band)
        section.rows.append({names[0], QString::number(told.used.raw_total)});
    for (int at = 0; at < told.cells.size(); ++at)
        if ((at < first_of_times || told.has_times) && !told.cells[at].isEmpty())
            section.rows.append({names[at], told.cells[at]});
    return section;
}

// ---- the age, and the norms that it leads to

void Tell_Age(const Explanation& told, QStringList& lines) {
    lines.append(
        u"Stored with the test: %1 completed months, which are %2. A month is completed on the day of "
        "the month on which the pupil was born."_s.arg(told.months)
            .arg(Years_And_Months(told.months)));
    if (!told.by_dates) {
        lines.append(u"Birthday and date of test give no age."_s);
        return;
    }
    lines.append(u"By birthday and date of test: %1 %2, which are %3 completed months%4."_s.arg(
        Years_And_Months(told.by_dates->completed_months), Counted(told.by_dates->days, u"day"_s),
        QString::number(told.by_dates->completed_months),
        told.by_dates->completed_months == told.months ? QString()
                                                       : u": not those that are stored with the test"_s));
}

Why_Section Age_Of(const Explanation& told) {
    Why_Section section{u"Age at test"_s, {}, {}, {}};
    section.lines.append(u"Born %1, tested %2."_s.arg(Or_Unknown(told.born), Or_Unknown(told.tested)));
    Tell_Age(told, section.lines);
    if (told.used.band)
        section.lines.append(
            u"Norms of age %1 hold for it: %2."_s.arg(told.used.band->column, Months_Of(*told.used.band)));
    return section;
}

// ---- the items

QString Rule(Counting rule) {
    switch (rule) {
    case Counting::Elements_In_Place:
        return u"Each element that stands where it was asked counts 1, in every item."_s;
    case Counting::Equal_Answer:
        return u"An answer that equals what was asked counts 1; an item that asked nothing counts 0."_s;
    case Counting::Equal_Or_Empty:
        return u"An answer that equals what was asked counts 1, also where both are empty."_s;
    case Counting::Timed_Try:
        return u"Each try with a time of more than 0 and less than 1000 seconds counts as an attempt."_s;
    }
    return {};
}

QString Because(const Traced_Item& item) {
    if (item.asked.Reads(Not_Reached)) return u"not reached"_s;
    if (item.answered.Reads(No_Answer)) return u"no answer"_s;
    switch (item.rule) {
    case Counting::Elements_In_Place:
        return u"in place"_s;
    case Counting::Equal_Answer:
        if (item.asked.Reads(u"")) return u"nothing asked"_s;
        [[fallthrough]];
    case Counting::Equal_Or_Empty:
        return item.points > 0 ? u"equal"_s : u"differs"_s;
    case Counting::Timed_Try:
        return item.points > 0 ? u"timed"_s : u"no valid time"_s;
    }
    return {};
}

QString Shown(const basics::Value& value) {
    return value.Reads(Not_Reached) || value.Reads(No_Answer)
               ? QString()
               : value.Text_Or_Empty().replace(u","_s, u", "_s);
}

QString Time_Of(int item, const Traced_Test& used) {
    for (const Traced_Time& time : used.times)
        if (time.number == item) {
            if (time.counts) return Seconds(time.time.As_Double());
            return time.time.Is_Empty() ? u"none"_s : u"left out"_s;
        }
    return {};
}

QString Ordinal(int place) {
    static const QString ends[] = {u"th"_s, u"st"_s, u"nd"_s, u"rd"_s};
    const bool teen = place / 10 % 10 == 1;
    return QString::number(place) + ends[teen || place % 10 > 3 ? 0 : place % 10];
}

// "cat asked 1st, chosen 3rd"
QString Pairs_Of(const Traced_Item& item) {
    const QStringList asked = item.asked.Text_Or_Empty().split(u',');
    QStringList pairs;
    for (const Sequence_Pair& pair : item.sequence_pairs)
        pairs.append(u"%1 asked %2, chosen %3"_s.arg(asked.value(pair.asked - 1), Ordinal(pair.asked),
                                                     Ordinal(pair.chosen)));
    return pairs.join(u"; "_s);
}

Why_Section Items_Of(const Explanation& told) {
    const bool sequence = told.sequence_errors.has_value();
    Why_Section section{
        u"Items"_s, {}, {u"Item"_s, u"Asked"_s, u"Answered"_s, u"Counts"_s, u"Time (sec)"_s}, {}};
    if (sequence) section.headings.append(u"Sequence errors"_s);
    if (told.used.items.empty()) return section;
    section.lines.append(Rule(told.used.items.front().rule));
    int sum = 0;
    for (const Traced_Item& item : told.used.items) {
        sum += item.points;
        QStringList row{QString::number(item.number), Shown(item.asked), Shown(item.answered),
                        Points_In_Words(item), Time_Of(item.number, told.used)};
        if (sequence)
            row.append(item.sequence_errors == 0
                           ? QString()
                           : QString::number(item.sequence_errors) + u": "_s + Pairs_Of(item));
        section.rows.append(row);
    }
    QStringList total{u"Sum"_s, {}, {}, QString::number(sum), {}};
    if (sequence) total.append(QString::number(*told.sequence_errors));
    section.rows.append(total);
    if (told.t == test_index::Tolvens && sequence && Tolvens_Rows_Shown(told.months) < Test_At(told.t).Items)
        section.lines.append(
            u"Sequence errors are those of the first %1 items, as in the table of answers."_s.arg(
                Tolvens_Rows_Shown(told.months)));
    return section;
}

// ---- the two look-ups

QString Cell_Or_None(int number) {
    return number == 0 ? u"none"_s : QString::number(number);
}

Why_Section Norms_Of(const Explanation& told) {
    const Traced_Test& used = told.used;
    Why_Section section{u"From raw score to centile"_s, {}, {}, {}};
    if (!used.band) return section;
    section.lines.append(
        u"Looked up in %1, column \"Age %2 Centile\", which has rows for raw scores 0 to %3."_s.arg(
            Test_At(told.t).Norm_Table, used.band->column, QString::number(told.last_raw_score)));
    section.headings = {u"Raw score"_s, u"Centile"_s, u""_s};
    if (used.norm.raw > 0)
        section.rows.append({QString::number(used.norm.raw - 1), Cell_Or_None(used.norm.below), u""_s});
    section.rows.append({QString::number(used.norm.raw), Cell_Or_None(used.norm.centile), u"this score"_s});
    section.rows.append({QString::number(used.norm.raw + 1), Cell_Or_None(used.norm.above), u""_s});
    if (used.norm.centile != 0)
        section.lines.append(
            u"Standard score and z-score belong to centile %1 at every age."_s.arg(used.norm.centile));
    return section;
}

QString How(Time_Match match) {
    switch (match) {
    case Time_Match::Exact:
        return u"The mean stands in the table; of equal times the lowest centile holds."_s;
    case Time_Match::Faster_Than_All:
        return u"The mean is faster than all times in the table."_s;
    case Time_Match::Slower_Than_All:
        return u"The mean is slower than all times in the table."_s;
    case Time_Match::Nearest:
        return u"The mean lies between two times in the table; the nearer one holds, and in the middle the slower."_s;
    case Time_Match::No_Time:
        return u"A mean of 0 gives centile 1."_s;
    case Time_Match::None:
        return u"The table has no centile for this mean."_s;
    }
    return {};
}

Why_Section Times_Of(const Explanation& told) {
    Why_Section section{u"From times to time centile"_s, {}, {}, {}};
    if (!told.used.time || !told.used.band) return section;
    const Time_Row& time = *told.used.time;
    int count = 0;
    for (const Traced_Time& each : told.used.times)
        count += each.counts ? 1 : 0;
    section.lines = {u"Times of more than 0 and less than 1000 seconds count, whether the answer was right "
                     u"or not: %1 seconds "
                     "in %2 make a mean of %3 seconds."_s.arg(Seconds(told.used.time_sum),
                                                              Counted(count, u"item"_s), Seconds(time.time)),
                     u"Looked up in %1, column \"Raw score %2\". "_s.arg(Test_At(told.t).Time_Norm_Table,
                                                                         told.used.band->column) +
                         How(time.match)};
    section.headings = {u"Time centile"_s, u"Time (sec)"_s, u""_s};
    const auto row = [&section](int centile, qint32 milliseconds, const QString& mark) {
        if (centile >= 1 && centile <= 99)
            section.rows.append({QString::number(centile), Seconds(milliseconds), mark});
    };
    row(time.centile + 1, time.faster, {});
    row(time.centile, time.at_centile, u"this mean"_s);
    row(time.centile - 1, time.slower, {});
    return section;
}

Why_Section Care_With(int t, const QList<Notice>& notices) {
    Why_Section section{u"To be careful about"_s, {}, {}, {}};
    for (const Notice& notice : notices)
        if (notice.t == t || notice.t == 0) section.lines.append(notice.text + u'.');
    return section;
}

} // namespace

QString Points_In_Words(const Traced_Item& item) {
    return QString::number(item.points) + u", "_s + Because(item);
}

Why_Words Put_In_Words(const Explanation& told, const QList<Notice>& notices) {
    Why_Words words{u"Why this score: "_s + Test_At(told.t).Test_Name, told.pupil, {}};
    const bool scored_once = told.used.band || !told.used.items.empty();
    words.sections.append(Result_Of(told));
    words.sections.append(Care_With(told.t, notices));
    if (scored_once) words.sections += {Age_Of(told), Norms_Of(told), Times_Of(told), Items_Of(told)};
    words.sections.removeIf(
        [](const Why_Section& section) { return section.lines.isEmpty() && section.rows.isEmpty(); });
    return words;
}

QString As_Text(const Why_Words& words) {
    QString text = words.title + u'\n' + words.pupil + u'\n';
    for (const Why_Section& section : words.sections) {
        text += u'\n' + section.heading + u'\n';
        for (const QString& line : section.lines)
            text += line + u'\n';
        if (!section.headings.isEmpty() && !section.rows.isEmpty())
            text += section.headings.join(u'\t') + u'\n';
        for (const QStringList& row : section.rows)
            text += row.join(u'\t') + u'\n';
    }
    return text;
}

} // namespace scoring
