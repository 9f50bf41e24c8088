#pragma once

#include <QString>
#include <algorithm>
#include <functional>

namespace shell {

// How much of its place on the individual report a comment takes, in printed lines. A longer one is printed
// all the same: over the sheet's foot, and beyond `paper` lines off the paper.
struct Comment_Lines {
    int used = 0;
    int room = 0;
    int paper = 0;

    int Over() const { return std::max(0, used - room); }
};

using Count_Comment_Lines = std::function<Comment_Lines(const QString& comment)>;

// "On the report: 19 of 16 lines used. It runs over the sheet's foot."
QString In_Words(const Comment_Lines& lines);

} // namespace shell
