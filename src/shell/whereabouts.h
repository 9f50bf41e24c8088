#pragma once

#include "foundation/installation.h"
#include "platform/desktop/ports.h"
#include "shell/conventions/menu_counts.h"

#include <QDate>
#include <QStringList>

namespace shell {

// Where the user is: whose database is open, what it lies in, and what may go wrong with it. Nothing is known
// where the database can't be read.
struct Whereabouts {
    QStringList warnings;
    QString school;
    QString folder;  // as the system writes it; of an archive in view, its full name
    QString archive; // when the working database was last archived, in words

    bool Are_Known() const { return !archive.isEmpty(); }
};

// Reads little, writes nothing, waits a second at most, and throws nothing.
Whereabouts Find_Whereabouts(const foundation::Installation& installation, const Menu_Counts& counts,
                             desktop::Platform& platform);

// An archive may be saved to any place, where no later look would find it. So the account remembers the day.
void Remember_Archive(const foundation::Installation& installation, desktop::Platform& platform);

// "last archived 3 weeks ago"; an invalid day stands for never.
QString Age_In_Words(const QDate& archived, const QDate& today);

} // namespace shell
