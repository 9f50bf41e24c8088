#pragma once

#include "platform/desktop/ports.h"
#include "scoring/norm_check.h"
#include "scoring/score_all_tests.h"

#include <QString>
#include <stdexcept>

namespace score_export {

// A failure in one line of UTF-8 for the user.
class Export_Fault : public std::runtime_error {
public:
    explicit Export_Fault(const QString& line) : std::runtime_error(line.toStdString()) {}
};

// The scores of every pupil on the Reports page's list, in its order and as if each was chosen there in
// turn, so that what one pupil leaves for the next is in them.
enum class Header_Comment { None, Norms }; // a line before the names of the columns
QString Score_Lines(const QString& database, scoring::Passes_Wanted wanted, desktop::Platform& platform,
                    Header_Comment comment = Header_Comment::None);

// What the norm tables of a database are worth: a line for each, and the digest of them all.
scoring::Norm_Check Check_Of(const QString& database, desktop::Platform& platform);
QString Norm_Lines(const scoring::Norm_Check& check);

} // namespace score_export
