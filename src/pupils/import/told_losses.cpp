#include "pupils/import/told_losses.h"

#include "platform/basics/code_page.h"
#include "pupils/import/pupil_fields.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pupils {

QString Field_Name(qsizetype place) {
    static const QString names[] = {u"surname"_s,       u"forename"_s, u"gender"_s,
                                    u"date of birth"_s, u"class"_s,    u"password"_s};
    return names[place];
}

namespace {

constexpr qsizetype Longest_Text = 50; // what the columns of groups and passwords take

// ---- commas

bool Has_Comma(const QString& field, qsizetype) {
    return field.contains(u',');
}

QString Without_Commas(const QString& field) {
    QString text = field;
    return text.replace(u',', u' ').simplified();
}

// ---- characters of the code page

QByteArray In_Code_Page(char32_t character) {
    return basics::To_Code_Page_1252(character);
}

bool Is_Carried(char32_t character) {
    return character < 0x80 ||
           basics::From_Code_Page_1252(In_Code_Page(character)) == QString::fromUcs4(&character, 1);
}

bool Leaves_Code_Page(const QString& field, qsizetype) {
    const auto characters = field.toUcs4();
    return !std::all_of(characters.begin(), characters.end(), Is_Carried);
}

QString Into_Code_Page(const QString& field) {
    QByteArray bytes;
    for (const char32_t character : field.toUcs4())
        bytes += In_Code_Page(character);
    return basics::From_Code_Page_1252(bytes).simplified();
}

// ---- what breaks a statement

bool Ends_Its_Statement(const QString& field, qsizetype) {
    return QString(field).remove(u"''"_s).contains(u'\'');
}

bool Has_Apostrophe(const QString& field, qsizetype) {
    return field.contains(u'\'');
}

QString Without_Apostrophes(const QString& field) {
    return QString(field).remove(u'\'');
}

QString With_Printers_Apostrophes(const QString& field) {
    return QString(field).replace(u'\'', u'’');
}

// The fields go into their statement one after another, so that a place holder of a later one is filled
// wherever it stands.
bool Has_Place_Holder(const QString& field, qsizetype place) {
    static const QStringList holders{u"?surname"_s,       u"?forename"_s,    u"?sex"_s,
                                     u"?date_of_birth"_s, u"?group_class"_s, u"?password"_s};
    if (!field.contains(u'?')) return false;
    const QStringList later = holders.mid(place + 1);
    return std::any_of(later.begin(), later.end(),
                       [&](const QString& holder) { return field.contains(holder); });
}

QString Without_Question_Marks(const QString& field) {
    return QString(field).remove(u'?');
}

bool Is_Too_Long(const QString& field, qsizetype) {
    return field.size() > Longest_Text;
}

QString Cut(const QString& field) {
    return field.left(Longest_Text).trimmed();
}

} // namespace

// The cut comes last, as the others may shorten a field.
const QList<Field_Rule>& Field_Rules() {
    using namespace place;
    static const QList<qsizetype> texts{Surname, Forename, Group, Password};
    static const QList<Field_Rule> rules{
        {texts, Has_Comma, u" holds a comma, which parts the fields of the import"_s, false, Without_Commas},
        {texts, Leaves_Code_Page, u" holds a character that the import's code page lacks"_s, false,
         Into_Code_Page},
        {{Password},
         Ends_Its_Statement,
         u" holds an apostrophe: the pupil would not be stored"_s,
         true,
         Without_Apostrophes},
        {{Group},
         Has_Apostrophe,
         u" holds an apostrophe: it would not come into the lists of groups"_s,
         true,
         With_Printers_Apostrophes},
        {texts, Has_Place_Holder,
         u" is spelt like a part of the import's statement, which would fill it in"_s, true,
         Without_Question_Marks},
        {{Group, Password},
         Is_Too_Long,
         u" has more than 50 characters: the pupil would not be stored"_s,
         true,
         Cut},
    };
    return rules;
}

QStringList Broken_Rules(const QStringList& fields, bool of_preview) {
    QStringList words;
    for (const Field_Rule& rule : Field_Rules())
        for (const qsizetype place : rule.places)
            if ((rule.in_preview || !of_preview) && rule.broken(fields.value(place), place))
                words.append(u"the "_s + Field_Name(place) + rule.words);
    return words;
}

QStringList Cured(QStringList fields) {
    for (const Field_Rule& rule : Field_Rules())
        for (const qsizetype place : rule.places)
            if (rule.broken(fields[place], place)) fields[place] = rule.cured(fields[place]);
    return fields;
}

} // namespace pupils
