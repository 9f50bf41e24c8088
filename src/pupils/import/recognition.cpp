#include "pupils/import/recognition.h"

#include "pupils/import/pupil_fields.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

bool Has_Whole_Names(const Column_Mapping& mapping) {
    return mapping[place::Surname] != No_Column && mapping[place::Surname] == mapping[place::Forename];
}

QString Gender_Letter(const QString& word) {
    static const QSet<QString> male{u"m"_s, u"male"_s, u"boy"_s, u"b"_s, u"man"_s};
    static const QSet<QString> female{u"f"_s, u"female"_s, u"girl"_s, u"g"_s, u"w"_s, u"woman"_s};
    QString lower = word.toLower();
    if (lower.endsWith(u'.')) lower.chop(1);
    if (male.contains(lower)) return u"M"_s;
    return female.contains(lower) ? u"F"_s : QString();
}

namespace {

constexpr qsizetype Whole_Name = place::Count; // a kind of column beside those of the fields

// ---- by headings

// The letters of a heading alone: "Date of Birth" and "date_of_birth" are one.
QString Plain(const QString& heading) {
    QString plain;
    for (const QChar character : heading)
        if (character.isLetter()) plain += character.toLower();
    return plain;
}

struct Known_Heading {
    qsizetype kind;
    int weight; // the heaviest one that a list has is taken
    QStringList words;
};

const QList<Known_Heading>& Known_Headings() {
    static const QList<Known_Heading> known{
        {place::Surname, 3, {u"surname"_s, u"lastname"_s, u"familyname"_s, u"secondname"_s, u"nachname"_s}},
        {place::Surname,
         2,
         {u"legalsurname"_s, u"legallastname"_s, u"pupilsurname"_s, u"studentsurname"_s, u"studentlastname"_s,
          u"pupillastname"_s, u"childsurname"_s, u"lname"_s, u"last"_s}},
        {place::Surname, 1, {u"preferredsurname"_s, u"preferredlastname"_s, u"sname"_s}},
        {place::Forename,
         3,
         {u"forename"_s, u"forenames"_s, u"firstname"_s, u"firstnames"_s, u"givenname"_s, u"givennames"_s,
          u"christianname"_s, u"vorname"_s}},
        {place::Forename,
         2,
         {u"legalforename"_s, u"legalforenames"_s, u"legalfirstname"_s, u"pupilforename"_s,
          u"studentforename"_s, u"studentfirstname"_s, u"pupilfirstname"_s, u"childforename"_s, u"fname"_s,
          u"first"_s}},
        {place::Forename,
         1,
         {u"preferredforename"_s, u"preferredfirstname"_s, u"chosenname"_s, u"preferredname"_s}},
        {place::Sex,
         3,
         {u"gender"_s, u"sex"_s, u"mf"_s, u"legalsex"_s, u"legalgender"_s, u"boygirl"_s, u"girlboy"_s,
          u"gen"_s, u"pupilgender"_s, u"studentgender"_s}},
        {place::Date_Of_Birth,
         3,
         {u"dateofbirth"_s, u"dob"_s, u"birthdate"_s, u"birthday"_s, u"dofb"_s, u"born"_s, u"pupildob"_s,
          u"studentdob"_s, u"birth"_s, u"dateofbirthddmmyyyy"_s, u"dateofbirthmmddyyyy"_s, u"dobddmmyyyy"_s,
          u"dobmmddyyyy"_s}},
        {place::Group,
         4,
         {u"class"_s, u"classgroup"_s, u"groupclass"_s, u"classname"_s, u"classcode"_s, u"currentclass"_s}},
        {place::Group,
         3,
         {u"reggroup"_s, u"registrationgroup"_s, u"registration"_s, u"regclass"_s, u"reg"_s, u"form"_s,
          u"tutorgroup"_s, u"homeroom"_s, u"formgroup"_s, u"teachinggroup"_s}},
        {place::Group, 2, {u"group"_s, u"groupname"_s, u"room"_s, u"section"_s}},
        {place::Group,
         1,
         {u"yeargroup"_s, u"year"_s, u"grade"_s, u"gradelevel"_s, u"ncyear"_s, u"yeartaughtin"_s}},
        {place::Password,
         3,
         {u"password"_s, u"passcode"_s, u"pin"_s, u"pw"_s, u"loginpassword"_s, u"pupilpassword"_s}},
        {Whole_Name,
         3,
         {u"name"_s, u"fullname"_s, u"pupilname"_s, u"studentname"_s, u"childname"_s, u"childsname"_s,
          u"pupilsname"_s, u"learnername"_s, u"surnameforename"_s, u"lastnamefirstname"_s, u"lastfirst"_s,
          u"namesurnameforename"_s, u"namelastfirst"_s, u"displayname"_s}},
        {Whole_Name, 2, {u"pupil"_s, u"student"_s, u"child"_s, u"learner"_s}},
    };
    return known;
}

struct Found_Kind {
    qsizetype kind = -1;
    int weight = 0;
};

Found_Kind Kind_Of(const QString& heading) {
    const QString plain = Plain(heading);
    for (const Known_Heading& known : Known_Headings())
        if (known.words.contains(plain)) return {known.kind, known.weight};
    return {};
}

// How many kinds of columns a row's cells name; a whole name is as good as two.
int Kinds_Named(const QStringList& cells) {
    QSet<qsizetype> kinds;
    for (const QString& cell : cells)
        if (const Found_Kind found = Kind_Of(cell); found.kind >= 0) kinds.insert(found.kind);
    return int(kinds.size()) + (kinds.contains(Whole_Name) ? 1 : 0);
}

// Notes may stand above it: the name of the school, the day.
int Heading_Row(const QList<Source_Row>& rows) {
    constexpr int looked_at = 40;
    int best = No_Column;
    int most = 1;
    for (int row = 0; row < std::min<qsizetype>(rows.size(), looked_at); ++row)
        if (const int named = Kinds_Named(rows[row].cells); named > most) {
            best = row;
            most = named;
        }
    return best;
}

void Map_By_Headings(const QStringList& headings, Column_Mapping& mapping) {
    std::array<int, Whole_Name + 1> weights{};
    int whole = No_Column;
    for (int column = 0; column < headings.size(); ++column) {
        const Found_Kind found = Kind_Of(headings[column]);
        if (found.kind < 0 || found.weight <= weights[std::size_t(found.kind)]) continue;
        weights[std::size_t(found.kind)] = found.weight;
        (found.kind == Whole_Name ? whole : mapping[std::size_t(found.kind)]) = column;
    }
    if (mapping[place::Surname] != No_Column && mapping[place::Forename] != No_Column) return;
    // "Name" beside "Surname" is the forename, and beside "Forename" the surname.
    for (const qsizetype name : {place::Surname, place::Forename})
        if (mapping[std::size_t(name)] == No_Column) mapping[std::size_t(name)] = whole;
}

// ---- by what stands in the columns

struct Column_Look {
    int filled = 0;
    int genders = 0;
    int birthdays = 0;
    int whole_names = 0;
    int words = 0; // letters without figures
    QSet<QString> texts;

    bool Mostly(int count) const { return filled > 0 && count * 10 >= filled * 8; }
};

bool Is_Whole_Name(const QString& text) {
    static const QRegularExpression form(uR"(\A[^,\d]{2,}, *[^,\d]{2,}\z)"_s);
    return form.match(text).hasMatch();
}

bool Is_Birthday(const QString& text, const QDate& today) {
    constexpr int oldest_grown_up = 30;
    for (const Date_Order order : {Date_Order::Day_First, Date_Order::Month_First, Date_Order::Year_First})
        if (const auto read = Read_Source_Date(text, order))
            return read->date <= today && read->date.addYears(oldest_grown_up) > today;
    return false;
}

void Look_At(const QString& text, const QDate& today, Column_Look& look) {
    ++look.filled;
    look.texts.insert(text);
    look.genders += Gender_Letter(text).isEmpty() ? 0 : 1;
    look.whole_names += Is_Whole_Name(text) ? 1 : 0;
    const bool has_figure = std::any_of(text.begin(), text.end(), [](QChar each) { return each.isDigit(); });
    look.words += !has_figure && text.size() > 1 ? 1 : 0;
    if (has_figure) look.birthdays += Is_Birthday(text, today) ? 1 : 0;
}

QList<Column_Look> Looks(const Source_Table& table, const Recognition& recognition, const QDate& today) {
    constexpr qsizetype looked_at = 200; // rows
    QList<Column_Look> looks(recognition.headings.size());
    const QList<int> rows = Pupil_Rows(table, recognition);
    for (const int row : rows.first(std::min(looked_at, rows.size()))) {
        const QStringList& cells = table.rows[row].cells;
        for (qsizetype column = 0; column < cells.size(); ++column)
            if (!cells[column].isEmpty()) Look_At(cells[column], today, looks[column]);
    }
    return looks;
}

class Content_Mapper {
public:
    Content_Mapper(QList<Column_Look> looks, bool has_headings, Column_Mapping& mapping)
        : looks(std::move(looks)), has_headings(has_headings), mapping(mapping) {}

    void Map() {
        Take(place::Sex, [](const Column_Look& look) { return look.Mostly(look.genders); });
        Take(place::Date_Of_Birth, [](const Column_Look& look) { return look.Mostly(look.birthdays); });
        if (Is_Free(place::Surname) && Is_Free(place::Forename)) {
            Take(place::Surname, [](const Column_Look& look) { return look.Mostly(look.whole_names); });
            mapping[place::Forename] = mapping[place::Surname];
        }
        // Which of two columns of words is the surname only their order tells, and a heading tells better.
        if (has_headings) return;
        for (const qsizetype name : {place::Surname, place::Forename})
            Take(name, [](const Column_Look& look) { return look.Mostly(look.words); });
        const auto few_texts = [](const Column_Look& look) {
            return look.filled > 1 && look.texts.size() * 2 <= look.filled;
        };
        Take(place::Group, few_texts);
    }

private:
    bool Is_Free(qsizetype kind) const { return mapping[std::size_t(kind)] == No_Column; }
    // The first column that nothing else has taken.
    template<class Fits>
    void Take(qsizetype kind, Fits fits) {
        if (!Is_Free(kind)) return;
        for (int column = 0; column < looks.size(); ++column) {
            const bool taken = std::find(mapping.begin(), mapping.end(), column) != mapping.end();
            if (taken || !fits(looks[column])) continue;
            mapping[std::size_t(kind)] = column;
            return;
        }
    }

    QList<Column_Look> looks;
    bool has_headings;
    Column_Mapping& mapping;
};

// The import's own form has no headings and needs no recognition.
bool Is_Import_Form(const Source_Table& table) {
    const auto has_form = [](const Source_Row& row) {
        return row.cells.size() >= place::Group && row.cells.size() <= place::Count + 1 &&
               !Gender_Letter(row.cells[place::Sex]).isEmpty() &&
               (row.cells.size() <= place::Date_Of_Birth ||
                Read_Source_Date(row.cells[place::Date_Of_Birth], Date_Order::Day_First));
    };
    return !table.rows.isEmpty() && std::all_of(table.rows.begin(), table.rows.end(), has_form);
}

QString Column_Letters(int column) {
    QString letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        letters.prepend(QChar(u'A' + (rest - 1) % 26));
    return letters;
}

QStringList Headings_Of(const Source_Table& table, int heading) {
    qsizetype columns = 0;
    for (const Source_Row& row : table.rows)
        columns = std::max(columns, row.cells.size());
    QStringList headings;
    for (int column = 0; column < columns; ++column) {
        const QString text = heading == No_Column ? QString() : table.rows[heading].cells.value(column);
        headings.append(text.isEmpty() ? Column_Letters(column) : text);
    }
    return headings;
}

// Without a heading line, notes above the table are rows of fewer cells than most have.
int First_Full_Row(const QList<Source_Row>& rows) {
    QHash<qsizetype, int> sizes;
    for (const Source_Row& row : rows)
        ++sizes[row.cells.size()];
    qsizetype usual = 0;
    for (auto size = sizes.cbegin(); size != sizes.cend(); ++size)
        if (size.value() > sizes.value(usual)) usual = size.key();
    int first = 0;
    while (first < rows.size() && rows[first].cells.size() * 2 <= usual)
        ++first;
    return first;
}

} // namespace

QList<int> Pupil_Rows(const Source_Table& table, const Recognition& recognition) {
    QList<int> places;
    for (int row = recognition.first; row < table.rows.size(); ++row)
        if (recognition.heading == No_Column ||
            table.rows[row].cells != table.rows[recognition.heading].cells)
            places.append(row);
    return places;
}

Recognition Recognise(const Source_Table& table, const QDate& today) {
    Recognition found;
    found.heading = Heading_Row(table.rows);
    found.first = found.heading == No_Column ? First_Full_Row(table.rows) : found.heading + 1;
    found.headings = Headings_Of(table, found.heading);
    if (found.heading == No_Column && Is_Import_Form(table)) {
        for (int field = 0; field < place::Count; ++field)
            found.mapping[std::size_t(field)] = field < found.headings.size() ? field : No_Column;
        return found;
    }
    if (found.heading != No_Column) Map_By_Headings(found.headings, found.mapping);
    Content_Mapper(Looks(table, found, today), found.heading != No_Column, found.mapping).Map();
    return found;
}

QString Headings_Name(const Recognition& recognition) {
    if (recognition.heading == No_Column) return {};
    const QByteArray joined = recognition.headings.join(QChar(0x1F)).toLower().toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(joined, QCryptographicHash::Sha256).toHex().left(16));
}

QString Text_Of(const Column_Mapping& mapping) {
    QStringList columns;
    for (const int column : mapping)
        columns.append(QString::number(column));
    return columns.join(u' ');
}

std::optional<Column_Mapping> Mapping_Of(const QString& text, qsizetype columns) {
    const QStringList parts = text.split(u' ');
    Column_Mapping mapping;
    if (parts.size() != qsizetype(mapping.size())) return {};
    for (std::size_t field = 0; field < mapping.size(); ++field) {
        bool is_number = false;
        mapping[field] = parts[qsizetype(field)].toInt(&is_number);
        if (!is_number || mapping[field] < No_Column || mapping[field] >= columns) return {};
    }
    return mapping;
}

} // namespace pupils
