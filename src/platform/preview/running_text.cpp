#include "platform/preview/running_text.h"

#include "platform/preview/text_metrics.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

namespace preview {
namespace {

struct Span {
    double from = 0;
    double to = 0;
};

struct Extent {
    Span across;
    Span down;
};

bool Meet(const Span& one, const Span& other) {
    return one.from < other.to && other.from < one.to;
}

// What the reader sees of a line: from the top of its capitals down to the foot of a "g".
Extent Ink_Of(const Text_Operation& line) {
    const double width = Text_Width(line.style, line.text) * line.squeeze;
    const double baseline = Ascent(line.style);
    const Span ink{baseline - Cap_Height(line.style), baseline + Descent(line.style)};
    if (line.angle == 0) return {{double(line.x), line.x + width}, {line.y + ink.from, line.y + ink.to}};
    return {{line.x + ink.from, line.x + ink.to}, {line.y - width, double(line.y)}};
}

// The parts with their places across the page; none is at a height yet.
std::vector<Text_Operation> Parts_Across(const Running_Text& running, const Band& band) {
    const double room = band.right - band.left;
    std::vector<Text_Operation> parts;
    const QStringList texts = running.text.split(u'|');
    for (qsizetype part = 0; part < std::min<qsizetype>(texts.size(), 3); ++part) {
        const QString text = Printable(texts[part]);
        if (text.trimmed().isEmpty()) continue;
        const double squeeze = Squeeze_To_Fit(running.style, text, room);
        const double spare = room - Text_Width(running.style, text) * squeeze;
        const int x = band.left + int(std::lround(spare * part / 2));
        parts.push_back({x, 0, text, running.style, running.colour, 0, squeeze});
    }
    return parts;
}

std::vector<Span> Taken_Heights(const Drawing& page, const std::vector<Text_Operation>& parts) {
    std::vector<Span> taken;
    for (const Operation& operation : page.operations) {
        const auto* line = std::get_if<Text_Operation>(&operation);
        if (!line) continue;
        const Extent ink = Ink_Of(*line);
        const bool in_the_way = std::any_of(parts.begin(), parts.end(), [&](const Text_Operation& part) {
            return Meet(Ink_Of(part).across, ink.across);
        });
        if (in_the_way) taken.push_back(ink.down);
    }
    std::sort(taken.begin(), taken.end(), [](const Span& a, const Span& b) { return a.from < b.from; });
    return taken;
}

Span Widest_Free_Strip(const std::vector<Span>& taken, const Span& whole) {
    Span widest{whole.from, whole.from};
    double free_from = whole.from;
    const auto consider = [&](double free_to) {
        if (free_to - free_from > widest.to - widest.from) widest = {free_from, free_to};
    };
    for (const Span& span : taken) {
        consider(std::min(span.from, whole.to));
        free_from = std::max(free_from, span.to);
    }
    consider(whole.to);
    return widest.to > widest.from ? widest : whole;
}

} // namespace

void Add_Running_Text(const Running_Text& running, const Band& band, Drawing& page) {
    std::vector<Text_Operation> parts = Parts_Across(running, band);
    const Span strip = Widest_Free_Strip(Taken_Heights(page, parts), {double(band.top), double(band.bottom)});
    const double cap_height = Cap_Height(running.style);
    const double ink_height = cap_height + Descent(running.style);
    const double baseline = (strip.from + strip.to - ink_height) / 2 + cap_height;
    for (Text_Operation& part : parts) {
        part.y = int(std::lround(baseline - Ascent(running.style)));
        page.operations.push_back(part);
    }
}

} // namespace preview
