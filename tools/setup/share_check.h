#pragma once

#include <QList>
#include <QString>

namespace set_up {

// One thing that a folder for databases must be good for.
struct Finding {
    enum class Mark { Good, Doubtful, Bad };
    Mark mark = Mark::Good;
    QString what;   // a sentence
    QString advice; // what to do about it; empty where nothing is
};

// By words, so that a finding isn't told by a colour alone: "good", "doubtful", "bad".
QString Word_For(Finding::Mark mark);
bool Is_All_Good(const QList<Finding>& findings);

// Tries a folder by a database of its own, which is gone afterwards. `own_program` is mevo-setup, which holds
// a lock in a process of its own. The first that is bad may end the list: the rest can't be tried then.
QList<Finding> Check_Folder(const QString& folder, const QString& own_program);

// Holds a lock on a database from the line that it writes until its input ends; gives the exit status.
int Hold_Lock(const QString& file);

} // namespace set_up
