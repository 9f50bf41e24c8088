#pragma once

#include "conversion/jet_source.h"

#include <QTextStream>

namespace convert_command {

// One line of a terminal that tells how far a conversion has got, written over again and again.
class Progress_Line {
public:
    Progress_Line(QTextStream& terminal, bool shown) : terminal(terminal), shown(shown) {}
    ~Progress_Line() { Clear(); }
    Progress_Line(const Progress_Line&) = delete;
    Progress_Line& operator=(const Progress_Line&) = delete;

    void Show(const conversion::Progress& progress);
    void Clear();

private:
    QTextStream& terminal;
    bool shown;
    qsizetype length = 0; // of what stands there
};

} // namespace convert_command
