#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <stdexcept>

namespace pupils {

// A school's list of pupils as it came, whatever wrote it: rows of cells, and what was found out about how
// they were written. Nothing here knows what a cell means.

struct Source_Row {
    int line = 0;      // in the file, or the row's number in the sheet, from 1
    QStringList cells; // without the blanks around them; no empty ones at the end
};

// The order is that of Encoding_Names.
enum class Encoding { Utf_8, Utf_16_LE, Utf_16_BE, Windows_1252 };
const QStringList& Encoding_Names();

struct Source_Table {
    QList<Source_Row> rows;           // empty ones are left out
    std::optional<Encoding> encoding; // none of a workbook, nor of what was pasted
    QStringList sheets;               // of a workbook
    int sheet = 0;
};

// Why a file isn't read, in a sentence or two for the user that doesn't name the file.
class Refused_Source : public std::runtime_error {
public:
    explicit Refused_Source(const QString& why) : std::runtime_error(why.toStdString()) {}
    QString Why() const { return QString::fromUtf8(what()); }
};

// Far more than a school's list has, and little enough for any computer.
namespace source_limit {
inline constexpr qint64 File_Bytes = 20'000'000;
inline constexpr int Rows = 32'767; // as many lines as an import takes
inline constexpr int Columns = 256;
inline constexpr int Cells = 500'000;
inline constexpr qsizetype Characters = 16'000'000;
} // namespace source_limit

// Takes rows until a limit is passed, which is a Refused_Source.
class Table_Builder {
public:
    void Add(int line, QStringList cells);
    QList<Source_Row> Rows() && { return std::move(rows); }

private:
    QList<Source_Row> rows;
    int count = 0;
    qsizetype characters = 0;
};

// Text of any delimiter and quoting. Without an encoding it is found by trial.
Source_Table Read_Text_Source(const QByteArray& bytes, std::optional<Encoding> encoding = {});
// What was copied from a spreadsheet, or from a text.
Source_Table Read_Pasted_Source(QStringView text);
// A text file or a workbook, which of the two its first bytes tell. Refused_Source, also where it can't be
// read.
struct Source_Choice {
    std::optional<Encoding> encoding;
    int sheet = 0; // from 0
};
Source_Table Read_Source_Bytes(const QByteArray& bytes, const Source_Choice& choice = {});
QByteArray Bytes_Of_Source(const QString& file);
Source_Table Read_Source_File(const QString& file, const Source_Choice& choice = {});

} // namespace pupils
