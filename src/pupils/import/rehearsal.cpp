#include "pupils/import/rehearsal.h"

#include "platform/basics/age.h"
#include "platform/basics/dates.h"
#include "pupils/import/import_file.h"
#include "pupils/import/pupil_fields.h"
#include "pupils/import/told_losses.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

QString Words_Of(Row_Kind kind) {
    static const QString words[] = {
        u"new"_s,   u"unlikely age"_s,    u"other birthday"_s,  u"already there"_s,
        u"twice"_s, u"would be spoilt"_s, u"would be refused"_s};
    return words[int(kind)];
}

namespace {

constexpr int First_With_Norms = 4 * 12; // months
constexpr int Behind_Norms = 9 * 12;

QString Shown_Date(const QDate& date) {
    return date.toString(u"dd/MM/yyyy"_s);
}

} // namespace

bool Has_Norms(int months) {
    return months >= First_With_Norms && months < Behind_Norms;
}

QString Age_Words(int months) {
    if (months < 0) return u"not born yet"_s;
    return u"%1 y %2 m"_s.arg(months / 12).arg(months % 12);
}

namespace {

// One row on its way through the checks; each adds what it finds.
class Row_Check {
public:
    Row_Check(const Draft_Row& draft, const Rehearsal_Setting& setting, const Registered& registered)
        : draft(draft), setting(setting), registered(registered) {
        row.line = draft.line;
        row.fields = draft.fields;
    }

    Rehearsed_Row Checked() {
        Take_Fields();
        Check_Names();
        Check_Gender();
        Check_Date();
        for (const QString& words : Broken_Rules(row.fields, false))
            Find(Row_Kind::Spoilt, words, true);
        if (row.birthday.isValid()) Compare_With_Register();
        return row;
    }

private:
    void Find(Row_Kind kind, const QString& words, bool curable = false) {
        row.kind = std::max(row.kind, kind);
        row.words.append(words);
        row.curable = row.curable || curable;
    }
    void Take_Fields() {
        QString& surname = row.fields[place::Surname];
        surname = Normalise_Hyphen(surname);
        if (row.fields[place::Group].isEmpty()) row.fields[place::Group] = setting.class_for_all;
    }
    void Check_Names() {
        for (const qsizetype name : {place::Surname, place::Forename}) {
            if (!row.fields[name].isEmpty()) continue;
            const QString other = row.fields[place::Surname + place::Forename - name];
            const bool one_name = setting.whole_names && name == place::Forename && other.contains(u' ');
            Find(Row_Kind::Refused,
                 one_name ? u"no comma parts the surname from the forename"_s
                          : u"there is no "_s + Field_Name(name),
                 one_name);
        }
    }
    void Check_Gender() {
        QString& gender = row.fields[place::Sex];
        const QString letter = Gender_Letter(gender);
        if (letter.isEmpty())
            Find(Row_Kind::Refused, gender.isEmpty() ? u"there is no gender"_s
                                                     : u"“%1” is neither male nor female"_s.arg(gender));
        else
            gender = letter;
    }
    void Check_Date() {
        QString& text = row.fields[place::Date_Of_Birth];
        const Date_Order order = draft.date_is_corrected ? Date_Order::Day_First : setting.order;
        const auto read = Read_Source_Date(text, order);
        if (!read) {
            Find(Row_Kind::Refused, Why_No_Date(text));
            return;
        }
        row.birthday = read->date;
        text = Shown_Date(read->date);
        row.age_months = basics::Age_In_Months(read->date.startOfDay(), setting.now);
        if (!Has_Norms(row.age_months)) row.words.append(u"the tests have no norms for this age"_s);
        if (Full_Year(read->date.toString(u"yy"_s)) != read->date.year())
            Find(Row_Kind::Spoilt,
                 u"the import writes years with two digits, and would read %1 as another century"_s.arg(
                     read->date.year()));
        else if (!Is_Likely_Age(read->date, setting.now.date()))
            Find(Row_Kind::Unlikely_Age,
                 read->two_digit_year ? u"the year has two digits; is it right?"_s : u"is the date right?"_s);
    }
    QString Why_No_Date(const QString& text) const {
        if (text.isEmpty()) return u"there is no date of birth"_s;
        const bool unsettled =
            setting.order == Date_Order::Unsettled && (Read_Source_Date(text, Date_Order::Day_First) ||
                                                       Read_Source_Date(text, Date_Order::Month_First));
        if (unsettled) return u"day and month aren't settled"_s;
        return u"“%1” is no date"_s.arg(text) +
               (setting.order == Date_Order::Unsettled ? QString() : u", "_s + Words_Of(setting.order));
    }
    void Compare_With_Register() {
        const auto same_name = registered.Of_Name(row.fields[place::Surname], row.fields[place::Forename]);
        for (const Registered_Pupil& pupil : same_name) {
            const QString group = pupil.group.isEmpty() ? QString() : u" in "_s + pupil.group;
            if (pupil.birthday == row.birthday)
                Find(Row_Kind::Already_There, u"registered"_s + group);
            else
                Find(Row_Kind::Other_Birthday,
                     u"one of that name%1 was born %2"_s.arg(group, pupil.birthday.isValid()
                                                                        ? Shown_Date(pupil.birthday)
                                                                        : u"on a day not known"_s));
        }
    }

    const Draft_Row& draft;
    const Rehearsal_Setting& setting;
    const Registered& registered;
    Rehearsed_Row row;
};

// Who stands there twice is told at the second row.
void Find_Twice(QList<Rehearsed_Row>& rows) {
    QHash<QString, int> lines;
    for (Rehearsed_Row& row : rows) {
        if (!row.birthday.isValid()) continue;
        const QString key = Registered::Key(row.fields[place::Surname], row.fields[place::Forename]) +
                            row.birthday.toString(Qt::ISODate);
        if (!lines.contains(key)) {
            lines[key] = row.line;
            continue;
        }
        row.kind = std::max(row.kind, Row_Kind::Twice);
        row.words.append(u"the same as line %1"_s.arg(lines[key]));
    }
}

} // namespace

QList<Rehearsed_Row> Rehearse(const QList<Draft_Row>& drafts, const Rehearsal_Setting& setting,
                              const Registered& registered) {
    QList<Rehearsed_Row> rows;
    rows.reserve(drafts.size());
    for (const Draft_Row& draft : drafts)
        rows.append(Row_Check(draft, setting, registered).Checked());
    Find_Twice(rows);
    for (Rehearsed_Row& row : rows)
        row.goes = row.kind != Row_Kind::Already_There && row.kind != Row_Kind::Twice;
    return rows;
}

QStringList Cured_Draft(const Draft_Row& draft, const Rehearsal_Setting& setting) {
    QStringList fields = draft.fields;
    QString& surname = fields[place::Surname];
    if (setting.whole_names && fields[place::Forename].isEmpty() && surname.contains(u' ')) {
        fields[place::Forename] = surname.section(u' ', 0, -2);
        surname = surname.section(u' ', -1);
    }
    return Cured(fields);
}

} // namespace pupils
