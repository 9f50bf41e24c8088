#include "pupils/new_pupil.h"

#include "platform/basics/run_time_error.h"
#include "platform/database/connection.h"
#include "pupils/import/pupil_fields.h"

#include <QList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {
namespace {

constexpr qsizetype Name_Characters = 3; // of either name in a code
constexpr int Code_Digits = 3;
constexpr int Code_Letters = 3;
constexpr int Digits_In_Use = 9; // 0 to 8: a code never holds a 9
constexpr int Alphabet = 26;
const QString Default_Group = u"Universal"_s;
const QString Groups_Table = u"mevo_groups"_s;

// The longest statement that the suite's first engine took. Place holders spelt within fields could make one
// that fills the memory.
constexpr qsizetype Longest_Statement = 64'000;

const QString Pupil_Template =
    u"INSERT INTO mevo_pupils "
    "            (studentcode, "
    "             surname, "
    "             forename, "
    "             sex, "
    "             dob, "
    "             group_class, "
    "             [password], "
    "             show_name, "
    "             dob_as_pw, "
    "             Tolvens,BliksFriends,Karrel,BliksLetters,BliksLetterNames,Drell,Mirvel,Yoon, Pindo, "
    "             "
    "Tolvens_age,BliksFriends_age,Karrel_age,BliksLetters_age,BliksLetterNames_age,Drell_age,Mirvel_age,Yoon_"
    "age, Pindo_age) "
    "VALUES      ('?studentcode', "
    "             '?surname', "
    "             '?forename', "
    "             '?sex', "
    "             '?date_of_birth', "
    "             '?group_class', "
    "             '?password', "
    "             1, "
    "             ?dob_as_password, "
    "             0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0)"_s;

const QStringList& Data_Row_Templates() {
    static const QStringList templates{
        u"INSERT INTO mevo_pindo_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_friends_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_letters_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_tolvens_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_drell_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_mirvel_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_karrel_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_yoon_data (studentcode) VALUES ('?studentcode') "_s,
        u"INSERT INTO mevo_bln_data (studentcode) VALUES ('?studentcode') "_s,
    };
    return templates;
}

struct Substitution {
    QString place_holder;
    QString value;
};

// One after another, all occurrences: a place holder spelt within a value that went in earlier is replaced
// as well.
QString With_Values(QString statement, const QList<Substitution>& substitutions) {
    for (const Substitution& substitution : substitutions) {
        const qsizetype occurrences = statement.count(substitution.place_holder);
        if (statement.size() + occurrences * substitution.value.size() > Longest_Statement)
            basics::Raise(basics::errors::Out_Of_String_Space);
        statement.replace(substitution.place_holder, substitution.value);
    }
    return statement;
}

QString Quotes_Doubled(QString text) {
    return text.replace(u"'"_s, u"''"_s);
}

} // namespace

QString& Replace_Chars(QString& text, const QString& from_chars, QChar to_char) {
    for (QChar& character : text)
        if (from_chars.contains(character)) character = to_char;
    return text;
}

QString New_Pupil_Statement(const QStringList& fields, const QString& student_code) {
    // The order decides what happens to a name that holds a place holder. The password alone goes in with its
    // apostrophes as they are, and fails on a single one.
    return With_Values(Pupil_Template,
                       {{u"?dob_as_password"_s, fields[place::Password].isEmpty() ? u"1"_s : u"0"_s},
                        {u"?studentcode"_s, student_code},
                        {u"?surname"_s, Normalise_Hyphen(Quotes_Doubled(fields[place::Surname]))},
                        {u"?forename"_s, Quotes_Doubled(fields[place::Forename])},
                        {u"?sex"_s, fields[place::Sex]},
                        {u"?date_of_birth"_s, fields[place::Date_Of_Birth]},
                        {u"?group_class"_s, Quotes_Doubled(fields[place::Group])},
                        {u"?password"_s, fields[place::Password]}});
}

QString Group_Test_Statement(const QString& group) {
    return With_Values(u"UPDATE "_s + Groups_Table +
                           u" SET group_name = group_name WHERE group_name = '?group_name'"_s,
                       {{u"?group_name"_s, group}});
}

QString New_Group_Statement(const QString& group) {
    return With_Values(u"INSERT INTO "_s + Groups_Table +
                           u"            (group_name,  "
                           "            show_on_list) "
                           "VALUES      ('?group_name', "
                           "             1) "_s,
                       {{u"?group_name"_s, group}});
}

QString Pupil_Maker::Random_Letter() {
    return QChar(u'A' + static_cast<int>(platform.random.Next() * Alphabet));
}

QString Pupil_Maker::Random_Letters(int count) {
    QString letters;
    while (letters.size() < count)
        letters += Random_Letter();
    return letters;
}

QString Pupil_Maker::Random_Digits(int count) {
    QString digits;
    while (digits.size() < count)
        digits += QString::number(static_cast<int>(platform.random.Next() * Digits_In_Use));
    return digits;
}

// Three characters of a name, filled up with random letters; an empty name has none.
QString Pupil_Maker::Name_Group(const QString& name) {
    if (name.isEmpty()) return u""_s;
    // Character by character, so that none becomes two, as the capital of a German sharp s would.
    QList<char32_t> characters;
    for (const char32_t character : name.left(2 * Name_Characters).toUcs4())
        characters.append(QChar::toUpper(character));
    const qsizetype taken = std::min(Name_Characters, characters.size());
    return QString::fromUcs4(characters.constData(), taken) +
           Random_Letters(static_cast<int>(Name_Characters - taken));
}

void Pupil_Maker::Generate_StudentCode(const QString& surname, const QString& forename) {
    constexpr double ms_in_a_second = 1000;
    platform.random.Seed(platform.clock.Now().time().msecsSinceStartOfDay() / ms_in_a_second);
    // One group a statement: their random numbers are drawn in this order.
    New_StudentCode = Name_Group(surname);
    New_StudentCode += Name_Group(forename);
    New_StudentCode += Random_Digits(Code_Digits);
    New_StudentCode += Random_Letters(Code_Letters);
    Replace_Chars(New_StudentCode, u"'"_s, u'O');
}

void Pupil_Maker::Run_All_Statements(QStringList& fields) {
    if (fields.size() < place::Count) basics::Raise(basics::errors::Subscript_Out_Of_Range);
    database::Connection connection;
    connection.ConnectionString = installation.Connection_String;
    connection.Keep_In(kept);
    connection.Open();
    Generate_StudentCode(fields[place::Surname], fields[place::Forename]);
    if (fields[place::Group].isEmpty()) fields[place::Group] = Default_Group;
    connection.Execute(New_Pupil_Statement(fields, New_StudentCode));
    for (const QString& data_row : Data_Row_Templates())
        connection.Execute(With_Values(data_row, {{u"?studentcode"_s, New_StudentCode}}));
    const QString& group = fields[place::Group];
    if (connection.Execute(Group_Test_Statement(group)) == 0) connection.Execute(New_Group_Statement(group));
}

bool Pupil_Maker::Insert_New_Pupil(QStringList& fields) {
    try {
        Run_All_Statements(fields);
        return true;
    } catch (const std::exception&) {
        return false; // both callers go on as though it had worked
    }
}

} // namespace pupils
