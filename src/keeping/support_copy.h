#pragma once

#include <QString>
#include <functional>

namespace keeping {

// Writes a copy of a school's database in which nobody can be recognised, for those who help with a fault:
// names, codes, groups, passwords and the school are replaced, birthdays moved by some weeks, comments and
// whatever this program doesn't know are emptied, and the file is written anew without what stood there. The
// pupils' order, the answers, statuses, ages and dates of the tests stay, and with them every score.
//
// `random` gives numbers in [0, 1). A failure is a run-time error and leaves what stood at the target.
void Write_Support_Copy(const QString& database, const QString& target,
                        const std::function<double()>& random);

} // namespace keeping
