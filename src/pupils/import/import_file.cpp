#include "pupils/import/import_file.h"

#include "platform/basics/code_page.h"
#include "platform/basics/native_path.h"
#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "pupils/import/pupil_fields.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace pupils {

namespace {

// Far more than the lines of one pass can fill with names.
constexpr qint64 Longest_File = 256 * 1024 * 1024;

int Why_It_Did_Not_Open(const QFileInfo& file) {
    if (!file.exists()) return basics::errors::File_Not_Found;
    return file.isFile() ? basics::errors::Permission_Denied : basics::errors::File_Access_Error;
}

} // namespace

QByteArray Read_Import_File(const QString& file_name) {
    // The dialog gives full names. Its pattern, which a cancelled one leaves behind, names no file.
    if (QDir::isRelativePath(file_name)) basics::Raise(basics::errors::Bad_File_Name);
    const QFileInfo info(basics::Native_Path(file_name));
    QFile file(info.filePath());
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) basics::Raise(Why_It_Did_Not_Open(info));
    if (file.size() > Longest_File) basics::Raise(basics::errors::Out_Of_Memory);
    const QByteArray bytes = file.read(Longest_File);
    if (file.error() != QFileDevice::NoError) basics::Raise(basics::errors::Device_Error);
    return bytes;
}

QString Decoded_Import_Text(const QByteArray& bytes) {
    const QByteArray mark = "\xEF\xBB\xBF";
    if (bytes.startsWith(mark)) return QString::fromUtf8(bytes.sliced(mark.size()));
    // Plain ASCII reads the same either way.
    return bytes.isValidUtf8() ? QString::fromUtf8(bytes) : basics::From_Code_Page(bytes);
}

QStringView Line_Reader::Next_Line() {
    qsizetype end = 0;
    while (end < rest.size() && rest[end] != u'\r' && rest[end] != u'\n')
        ++end;
    const QStringView line = rest.first(end);
    const bool is_pair = rest.sliced(end).startsWith(u"\r\n");
    rest = rest.sliced(std::min(end + (is_pair ? 2 : 1), rest.size()));
    return line;
}

QStringList Import_Fields(QStringView line) {
    constexpr qsizetype most_commas = 7;
    QStringList fields;
    qsizetype comma;
    while (fields.size() < most_commas && (comma = line.indexOf(u',')) >= 0) {
        fields.append(line.first(comma).toString());
        line = line.sliced(comma + 1);
    }
    fields.append(line.toString());
    return fields;
}

namespace {

constexpr int Two_Digit_Year_Pivot = 30;
constexpr qsizetype Longest_Date = 40; // characters; a longer text is no date
constexpr int First_Year = 100;        // of the calendar that dates are kept in

} // namespace

int Month_Number(const QString& word) {
    static const QStringList names{u"january"_s,   u"february"_s, u"march"_s,    u"april"_s,
                                   u"may"_s,       u"june"_s,     u"july"_s,     u"august"_s,
                                   u"september"_s, u"october"_s,  u"november"_s, u"december"_s};
    constexpr qsizetype short_name = 3;
    const QString lower = word.toLower();
    for (int month = 1; month <= names.size(); ++month) {
        const QString& name = names[month - 1];
        if (lower == name || lower == name.left(short_name)) return month;
    }
    return lower == "sept"_L1 ? 9 : 0;
}

int Full_Year(const QString& digits) {
    const int year = digits.toInt();
    if (digits.size() > 2) return year;
    return year < Two_Digit_Year_Pivot ? 2000 + year : 1900 + year;
}

namespace {

// The forms by what they capture: day, month and year under these names, whatever their order.
const QList<QRegularExpression>& Date_Forms() {
    // Some exports have midnight behind each date.
    const QString time = uR"((?:[ T](?:[01]?\d|2[0-3]):[0-5]\d(?::[0-5]\d)?)?)"_s;
    const auto form = [&](const QString& date) {
        return QRegularExpression(u"\\A *"_s + date + time + u" *\\z"_s);
    };
    static const QList<QRegularExpression> forms{
        form(uR"((?<d>\d{1,2})(?<s>[/.\- ])(?<m>\d{1,2})\k<s>(?<y>\d{4}|\d{2}))"_s),
        form(uR"((?<d>\d{1,2})[/.\- ]?(?<m>[A-Za-z]{3,9})[/.\- ]?(?<y>\d{4}|\d{2}))"_s),
        form(uR"((?<y>\d{4})(?<s>[/\-])(?<m>\d{1,2})\k<s>(?<d>\d{1,2}))"_s),
    };
    return forms;
}

std::optional<QDate> Import_Date(const QString& text) {
    if (text.size() > Longest_Date) return std::nullopt;
    for (const QRegularExpression& form : Date_Forms()) {
        const QRegularExpressionMatch match = form.match(text);
        if (!match.hasMatch()) continue;
        const QString month = match.captured(u"m"_s);
        const int month_number = month[0].isDigit() ? month.toInt() : Month_Number(month);
        const QDate date(Full_Year(match.captured(u"y"_s)), month_number, match.captured(u"d"_s).toInt());
        if (date.isValid() && date.year() >= First_Year) return date;
    }
    return std::nullopt;
}

} // namespace

bool Is_Import_Date(const QString& text) {
    return Import_Date(text).has_value();
}

QString Format_Import_Date(const QString& text) {
    const auto date = Import_Date(text);
    return date ? date->toString(u"dd/MM/yy"_s) : text;
}

namespace {

constexpr qsizetype Lowest_Last_Field = 5;
constexpr qsizetype Highest_Last_Field = 6;

// One test after the other; the first that fails gives its message. A test may put a field in its kept form.
struct Record_Test {
    bool (*passes)(QStringList& fields);
    QString message;
};

bool Has_Right_Number(QStringList& fields) {
    const qsizetype last = fields.size() - 1;
    return last >= Lowest_Last_Field && last <= Highest_Last_Field;
}

bool Has_Surname(QStringList& fields) {
    return !fields[place::Surname].isEmpty();
}

bool Has_Forename(QStringList& fields) {
    return !fields[place::Forename].isEmpty();
}

bool Has_Gender(QStringList& fields) {
    const QString letter = fields[place::Sex].left(1).toUpper();
    if (letter != "M"_L1 && letter != "F"_L1) return false;
    fields[place::Sex] = letter;
    return true;
}

bool Has_Date(QStringList& fields) {
    if (!Is_Import_Date(fields[place::Date_Of_Birth])) return false;
    fields[place::Date_Of_Birth] = Format_Import_Date(fields[place::Date_Of_Birth]);
    return true;
}

const QList<Record_Test>& Record_Tests() {
    static const QList<Record_Test> tests{
        {Has_Right_Number, u" has an incorrect number of fields."_s},
        {Has_Surname, u" has a missing surname."_s},
        {Has_Forename, u" has a missing forename."_s},
        {Has_Gender, u" has an invalid or missing gender indicator."_s},
        {Has_Date, u" has an invalid or missing date of birth."_s},
    };
    return tests;
}

const QString Passed = u"OK"_s;

void Add_One(qint16& count) {
    if (count == std::numeric_limits<qint16>::max()) basics::Raise(basics::errors::Overflow);
    ++count;
}

} // namespace

QString Validate_Import_Record(QStringList& fields, qint16 line_number) {
    for (const Record_Test& test : Record_Tests())
        if (!test.passes(fields)) return u"Record "_s + basics::Plain_Number(line_number) + test.message;
    return Passed;
}

void Walk_Import_Text(QStringView text, Import_Pass& pass, const Import_Steps& steps) {
    Line_Reader reader(text);
    while (!reader.At_End()) {
        Add_One(pass.line_count);
        const QStringView line = reader.Next_Line();
        if (line.isEmpty()) continue;
        QStringList fields = Import_Fields(line);
        const QString answer = Validate_Import_Record(fields, pass.line_count);
        if (answer == Passed) {
            steps.good_record(fields, pass.line_count);
        } else {
            pass.error_text += answer + u"\r\n"_s;
            Add_One(pass.error_count);
        }
        if (steps.record_done) steps.record_done();
    }
}

QString Erroneous_Records_Text(const Import_Pass& pass) {
    const QString blank_line = u"\r\r"_s;
    return basics::Plain_Number(pass.error_count) +
           u" record(s) could not be imported because of invalid data."_s + blank_line +
           u"Erroneous records are:"_s + blank_line + pass.error_text;
}

} // namespace pupils
