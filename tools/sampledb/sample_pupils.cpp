#include "sampledb/sample_pupils.h"

#include "foundation/schema.h"
#include "sampledb/random.h"
#include "sampledb/sample_answers.h"
#include "sampledb/sample_texts.h"

#include <QDate>
#include <QSet>

using namespace Qt::StringLiterals;

namespace sample_data {

namespace {

constexpr int Tolvens = 0; // places in the order of tests
constexpr int Friends = 1;
constexpr int Karrel = 2;

enum class Date_Form { Full_Year, Short_Year, Iso };
enum class Remark { None, Short, Long };

// What is settled about a pupil before names and answers are written out.
struct Plan {
    QString surname = {};
    Forename forename = {};
    QString tests = {}; // a letter a test, see Status_Of
    int months = 72;    // completed at the first sitting
    int days_over = 15; // and days beyond them
    QDate first_day = QDate(2026, 1, 14);
    int days_between = 2; // from one sitting to the next
    Date_Form dates = Date_Form::Full_Year;
    Remark remark = Remark::None;
    int show_name = 1;
    int pindo_tries = 6;
    int tolvens_stop = 0; // the first item that wasn't reached
    int friends_stop = 0;
    int tolvens_left = 0; // an item that was shown and not answered
    int hopeless = -1;    // a test in which nothing is right
};

// The dozen: each row is there for the state that its comment names.
QList<Plan> Cases() {
    return {
        // registered and never tested
        {.surname = u"O'Brien"_s, .forename = {u"Élodie"_s, u"F"_s}, .tests = u"---------"_s, .months = 62},
        // only the test without norms
        {.surname = u"Núñez"_s, .forename = {u"Mateo"_s, u"M"_s}, .tests = u"--------d"_s, .months = 57},
        // everything done, below the change of items; one answer missing; a comment that fills a page
        {.surname = u"Smith-Jones"_s,
         .forename = {u"Oliver"_s, u"M"_s},
         .tests = u"ddddddddd"_s,
         .months = 71,
         .days_over = 5,
         .remark = Remark::Long,
         .tolvens_left = 5},
        // everything done, above it; too many tries at the colours
        {.surname = u"Łukasik"_s,
         .forename = {u"Zofia"_s, u"F"_s},
         .tests = u"ddddddddd"_s,
         .months = 95,
         .days_over = 2,
         .dates = Date_Form::Short_Year,
         .remark = Remark::Short,
         .pindo_tries = 8},
        // some done, over months: the first at 83, the later ones at 84 and above; colours broken off
        {.surname = u"Žižek"_s,
         .forename = {u"Luka"_s, u"M"_s},
         .tests = u"d-d--d--d"_s,
         .months = 83,
         .days_between = 14,
         .remark = Remark::Short,
         .pindo_tries = 5},
        // opened again for a retest: the answers stay
        {.surname = u"Öz"_s,
         .forename = {u"Bo"_s, u"F"_s},
         .tests = u"ddrdddddd"_s,
         .months = 76,
         .dates = Date_Form::Iso},
        // a status that is neither 0 nor 1
        {.surname = u"Patel"_s,
         .forename = {u"Aarav"_s, u"M"_s},
         .tests = u"dddddd2dd"_s,
         .months = 88,
         .show_name = 0},
        // Tolvens stopped early
        {.surname = u"Okafor"_s,
         .forename = {u"Chidi"_s, u"M"_s},
         .tests = u"dddd-d-d-"_s,
         .months = 68,
         .tolvens_stop = 7},
        // Bliks friends stopped early
        {.surname = u"Le Fay"_s,
         .forename = {u"Morgan"_s, u"F"_s},
         .tests = u"dddddddd-"_s,
         .months = 90,
         .friends_stop = 9},
        // both stopped
        {.surname = u"Khan"_s,
         .forename = {u"Aisha"_s, u"F"_s},
         .tests = u"dd-dddddd"_s,
         .months = 97,
         .tolvens_stop = 6,
         .friends_stop = 6},
        // a NULL among the statuses
        {.surname = u"Whitfield"_s, .forename = {u"George"_s, u"M"_s}, .tests = u"dddddddnd"_s, .months = 80},
        // a raw score that the youngest norms leave empty
        {.surname = u"D'Souza"_s,
         .forename = {u"Mia"_s, u"F"_s},
         .tests = u"dddddddd-"_s,
         .months = 53,
         .hopeless = Karrel},
    };
}

QString Draw_Tests(Random& random) {
    const double habit = random.Real();
    const double done = habit < 0.08 ? 0.0 : habit < 0.55 ? 1.0 : 0.2 + 0.7 * random.Real();
    QString tests;
    for (qsizetype t = 0; t < foundation::Tests_In_Order().size(); ++t) {
        const bool reopened = random.Chance(0.02);
        tests += !random.Chance(done) ? u'-' : reopened ? u'r' : u'd';
    }
    return tests;
}

int Draw_Pindo_Tries(Random& random) {
    static const QList<int> tries = {6, 6, 6, 6, 6, 6, 6, 7, 8, 10, 5};
    return random.Pick(tries);
}

int Draw_Stop(int lowest, int highest, Random& random) {
    return random.Chance(0.04) ? random.Between(lowest, highest) : 0;
}

Plan Draw_Plan(Random& random) {
    static const QList<Date_Form> forms = {Date_Form::Full_Year,  Date_Form::Full_Year, Date_Form::Full_Year,
                                           Date_Form::Full_Year,  Date_Form::Full_Year, Date_Form::Full_Year,
                                           Date_Form::Short_Year, Date_Form::Iso};
    static const QDate school_year(2025, 9, 8);
    Plan plan;
    plan.surname = random.Pick(Surnames());
    plan.forename = random.Pick(Forenames());
    plan.tests = Draw_Tests(random);
    plan.months = random.Between(48, 103);
    plan.days_over = random.Below(28);
    plan.first_day = school_year.addDays(random.Below(260));
    plan.days_between = random.Below(6);
    plan.dates = random.Pick(forms);
    plan.remark = random.Chance(0.15) ? Remark::Short : Remark::None;
    plan.show_name = random.Chance(0.9) ? 1 : 0;
    plan.pindo_tries = Draw_Pindo_Tries(random);
    plan.tolvens_stop = Draw_Stop(4, 10, random);
    plan.friends_stop = Draw_Stop(4, 14, random);
    return plan;
}

QVariant Status_Of(QChar letter) {
    switch (letter.unicode()) {
    case u'd': // done
        return 1;
    case u'2':
        return 2;
    case u'n':
        return {};
    default: // '-' not attempted, 'r' done and opened again for a retest
        return 0;
    }
}

bool Was_Sat(QChar letter) {
    return letter != u'-' && letter != u'n';
}

QString Date_Text(QDate date, Date_Form form) {
    switch (form) {
    case Date_Form::Short_Year:
        return date.toString(u"dd/MM/yy"_s);
    case Date_Form::Iso:
        return date.toString(u"yyyy-MM-dd"_s);
    case Date_Form::Full_Year:
        break;
    }
    return date.toString(u"dd/MM/yyyy"_s);
}

QDate School_Day(QDate day) {
    const int past_friday = day.dayOfWeek() - Qt::Friday;
    return past_friday > 0 ? day.addDays(3 - past_friday) : day;
}

// Three letters of a name, a short one filled up.
QString Name_Group(const QString& name, Random& random) {
    QString group = name.left(3).toUpper();
    while (group.size() < 3)
        group += QChar(u'A' + random.Below(26));
    return group;
}

QString Draw_Code(const Plan& plan, Random& random) {
    QString code = Name_Group(plan.surname, random);
    code += Name_Group(plan.forename.name, random);
    for (int i = 0; i < 3; ++i)
        code += QChar(u'0' + random.Below(9)); // registration never makes a 9
    for (int i = 0; i < 3; ++i)
        code += QChar(u'A' + random.Below(26));
    return code.replace(u'\'', u'O');
}

QString Draw_Unused_Code(const Plan& plan, QSet<QString>& used, Random& random) {
    QString code = Draw_Code(plan, random);
    while (used.contains(code))
        code = Draw_Code(plan, random);
    used.insert(code);
    return code;
}

QVariant Comment_Text(Remark remark, int place) {
    if (remark == Remark::None) return {};
    if (remark == Remark::Long) return Long_Comment();
    return Short_Comments()[place % Short_Comments().size()];
}

struct Login {
    QVariant password;
    int dob_as_pw;
};

// As an upgraded database leaves it, as registration does, and with a password of the pupil's own.
Login Login_Of(int place) {
    if (place % 3 == 0) return {{}, 1};
    if (place % 3 == 1) return {u""_s, 1};
    return {Passwords()[place % Passwords().size()], 0};
}

class Pupil_Writer {
public:
    Pupil_Writer(Memory_Database& database, const QStringList& groups, Random& random)
        : database(database), groups(groups), random(random) {}

    void Write(const Plan& plan, int place) {
        const QString code = Draw_Unused_Code(plan, used_codes, random);
        const QDate dob = plan.first_day.addMonths(-plan.months).addDays(-plan.days_over);
        const Abilities abilities = Draw_Abilities();
        QVariantList ages;
        QVariantList dates;
        QDate day = plan.first_day;
        for (int t = 0; t < plan.tests.size(); ++t) {
            if (!Was_Sat(plan.tests[t])) {
                ages.append(0);
                dates.append(QVariant());
                Write_Answers(code, t, No_Answers(t));
                continue;
            }
            const QDate sat_on = School_Day(day);
            day = day.addDays(plan.days_between);
            ages.append(Completed_Months(dob, sat_on));
            dates.append(Date_Text(sat_on, plan.dates));
            Write_Answers(code, t, Answers(Sitting_Of(plan, t, ages.last().toInt(), abilities), random));
        }
        Write_Pupil(code, plan, place, dob, ages, dates);
    }

private:
    struct Abilities {
        double general;
        double speed;
    };

    Abilities Draw_Abilities() {
        const double general = random.Normal();
        const double speed = random.Normal();
        return {general, speed};
    }

    Sitting Sitting_Of(const Plan& plan, int test, int months, const Abilities& abilities) {
        Sitting sitting;
        sitting.test = test;
        sitting.months = months;
        sitting.ability = 0.8 * abilities.general + 0.6 * random.Normal();
        sitting.speed = 0.8 * abilities.speed + 0.6 * random.Normal();
        if (test == Tolvens) sitting.stopped_at = plan.tolvens_stop;
        if (test == Tolvens) sitting.unanswered = plan.tolvens_left;
        if (test == Friends) sitting.stopped_at = plan.friends_stop;
        sitting.nothing_right = test == plan.hopeless;
        sitting.tries = plan.pindo_tries;
        return sitting;
    }

    void Write_Answers(const QString& code, int test, const QVariantList& answers) {
        database.Insert(foundation::Tests_In_Order()[test].data_table, QVariantList{code} + answers);
    }

    void Write_Pupil(const QString& code, const Plan& plan, int place, QDate dob, const QVariantList& ages,
                     const QVariantList& dates) {
        QVariantList row = {code,
                            plan.surname,
                            plan.forename.name,
                            plan.forename.sex,
                            Date_Text(dob, plan.dates),
                            Comment_Text(plan.remark, place)};
        for (const QChar letter : plan.tests)
            row.append(Status_Of(letter));
        const Login login = Login_Of(place);
        const QString& group = groups[place % groups.size()];
        row += ages + dates + QVariantList{plan.show_name, group, login.password, login.dob_as_pw};
        database.Insert(u"Mevo_Pupils"_s, row);
    }

    Memory_Database& database;
    const QStringList& groups;
    Random& random;
    QSet<QString> used_codes;
};

} // namespace

int Completed_Months(QDate from, QDate to) {
    const int boundaries = (to.year() - from.year()) * 12 + to.month() - from.month();
    return to.day() < from.day() ? boundaries - 1 : boundaries;
}

void Fill_Pupils(Memory_Database& database, const QStringList& groups, const Options& options) {
    Random random(options.seed);
    Pupil_Writer writer(database, groups, random);
    const QList<Plan> cases = Cases();
    for (int place = 0; place < options.pupils; ++place) {
        Plan plan = place < cases.size() ? cases[place] : Draw_Plan(random);
        plan.first_day = plan.first_day.addDays(options.days_later);
        writer.Write(plan, place);
    }
}

} // namespace sample_data
