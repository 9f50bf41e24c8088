#pragma once

#include <QString>

namespace foundation {

// What a file that the user has chosen turns out to be.
struct Known_File {
    enum class Kind {
        Of_The_Suite,
        Damaged,      // a database; nothing more is known for certain
        Older_Format, // as Access saved it, to be converted
        Foreign,      // no database of the suite
        Unreadable    // at this moment, or for this account
    };
    Kind kind = Kind::Foreign;
    QString school;
    int pupils = 0;
    int with_results = 0; // of at least one of the tests with norms
    bool is_of_version_51 = false;
    QString why; // a sentence, for what is damaged or can't be read
};

// Looks into a file, read only, and waits a second at most for one that is in use. Changes nothing, neither
// in it nor beside it. `file` is a native, absolute path that no connection of the process has open.
Known_File Know(const QString& file);

// One or two sentences for the user.
QString In_Words(const Known_File& file);

} // namespace foundation
