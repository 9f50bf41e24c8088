#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

namespace paper_output {

// A failure in one line for the user.
class Print_Fault : public std::runtime_error {
public:
    explicit Print_Fault(const QString& line) : std::runtime_error(line.toStdString()) {}
    QString Line() const { return QString::fromUtf8(what()); }
};

enum class Report_Kind { Individual, Batch, Each };

// What the command line asks for.
struct Print_Request {
    QString database;
    Report_Kind kind = Report_Kind::Individual;
    QStringList codes; // of an individual report, one page each
    QString group;     // of a batch or of each; empty for all
    QString out;       // a file, or the folder for a file each
    QString scale;     // "P": centiles, "Z": z-scores
    QString ground;    // "GREY" or "WHITE"
    bool time_bars = false;
    bool keep_to_margins = false;
    bool label_by_name = true; // of a batch's pupils
};

// Reads the arguments, of which the first is the program's name. Nothing is returned when help was asked for;
// `help` then holds it. Whatever is wrong is a Print_Fault.
std::optional<Print_Request> Read_Arguments(const QStringList& arguments, QString& help);

} // namespace paper_output
