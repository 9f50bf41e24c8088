#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>

namespace pupils {

// The import file: comma-separated text, one pupil a line, neither header nor quoting nor trimming. Nothing
// here knows of a page or a database.

// The whole file. Error 52, 53, 57, 70 or 75 if it can't be read, 7 if it can't be held.
QByteArray Read_Import_File(const QString& file_name);

// UTF-8 where a byte-order mark or the bytes themselves say so; otherwise the system's single-byte code page.
QString Decoded_Import_Text(const QByteArray& bytes);

// Gives a text line by line; a line ends in CR LF, LF or CR. The text must outlive it.
class Line_Reader {
public:
    explicit Line_Reader(QStringView text) : rest(text) {}
    bool At_End() const { return rest.isEmpty(); }
    QStringView Next_Line();

private:
    QStringView rest;
};

// A line split at every comma. What follows the seventh comma stays in one piece: such a record is refused
// whatever it holds, and a line can be very long.
QStringList Import_Fields(QStringView line);

// A date in the usual British forms, day first, or ISO, put as dd/mm/yy; a text that is no date stays.
QString Format_Import_Date(const QString& text);
bool Is_Import_Date(const QString& text);

int Month_Number(const QString& word); // of an English name, whole or its first letters; 0 for any other word
int Full_Year(const QString& digits);  // two digits from 30 on are of the last century

// "OK", or the message of the first failure. Gender and date are overwritten with the form that is kept.
QString Validate_Import_Record(QStringList& fields, qint16 line_number);

// What one walk through a file has found. The counts are the 16 bits that they have always been: more lines
// than that are error 6.
struct Import_Pass {
    qint16 line_count = 0; // physical lines, the empty ones too
    qint16 error_count = 0;
    QString error_text; // a line for each bad record, in file order
};

struct Import_Steps {
    std::function<void(QStringList& fields, qint16 line_number)> good_record;
    std::function<void()> record_done; // good or bad; not after an empty line
};

// Validates each record. The pass is filled as the walk goes, so that it tells how far one got that failed.
void Walk_Import_Text(QStringView text, Import_Pass& pass, const Import_Steps& steps);

QString Erroneous_Records_Text(const Import_Pass& pass);

} // namespace pupils
