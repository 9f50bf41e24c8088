#include "platform/preview/running_text.h"

#include "platform/preview/text_metrics.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

namespace preview {
namespace {

constexpr qsizetype Left = 0;
constexpr qsizetype Middle = 1;
constexpr qsizetype Right = 2;
constexpr int Gap_Between_Parts = 180;
constexpr int Clear_At_Sides = 60;

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

double Length(const Span& span) {
    return span.to - span.from;
}

// What the reader sees of a line: from the top of its capitals down to the foot of a "g".
Extent Ink_Of(const Text_Operation& line) {
    const double width = Text_Width(line.style, line.text) * line.squeeze;
    const double baseline = Ascent(line.style);
    const Span ink{baseline - Cap_Height(line.style), baseline + Descent(line.style)};
    if (line.angle == 0) return {{double(line.x), line.x + width}, {line.y + ink.from, line.y + ink.to}};
    return {{line.x + ink.from, line.x + ink.to}, {line.y - width, double(line.y)}};
}

std::vector<Extent> Texts_In(const Drawing& page, const Span& heights) {
    std::vector<Extent> texts;
    for (const Operation& operation : page.operations) {
        const auto* line = std::get_if<Text_Operation>(&operation);
        if (!line) continue;
        const Extent ink = Ink_Of(*line);
        if (Meet(ink.down, heights)) texts.push_back(ink);
    }
    std::sort(texts.begin(), texts.end(),
              [](const Extent& a, const Extent& b) { return a.down.from < b.down.from; });
    return texts;
}

// What the part in the middle may take: it keeps clear of the outer ones, and stays in the middle.
double Room_In_The_Middle(const Running_Text& running, const QStringList& texts, double room) {
    const double outer =
        std::max(Text_Width(running.style, texts.value(Left)), Text_Width(running.style, texts.value(Right)));
    return outer > 0 ? std::max(0.0, room - 2 * (outer + Gap_Between_Parts)) : room;
}

// The parts with their places across the page; none is at a height yet.
std::vector<Text_Operation> Parts_Across(const Running_Text& running, const Band& band) {
    const double room = band.right - band.left;
    const QStringList texts = Printable(running.text).split(u'|');
    std::vector<Text_Operation> parts;
    for (qsizetype part = Left; part <= Right; ++part) {
        const QString text = texts.value(part).trimmed();
        if (text.isEmpty()) continue;
        const double own_room = part == Middle ? Room_In_The_Middle(running, texts, room) : room;
        const double squeeze = Squeeze_To_Fit(running.style, text, own_room);
        const double spare = room - Text_Width(running.style, text) * squeeze;
        const int x = band.left + int(std::lround(spare * double(part) / Right));
        parts.push_back({x, 0, text, running.style, running.colour, 0, squeeze});
    }
    return parts;
}

// The highest strip that no text takes which stands above or below one of the parts.
Span Free_Strip(const std::vector<Extent>& texts, const std::vector<Span>& parts, const Span& whole) {
    Span highest{whole.from, whole.from};
    double free_from = whole.from;
    const auto consider = [&](double free_to) {
        if (free_to - free_from > Length(highest)) highest = {free_from, free_to};
    };
    for (const Extent& text : texts) {
        const auto meets = [&text](const Span& part) { return Meet(part, text.across); };
        if (std::none_of(parts.begin(), parts.end(), meets)) continue;
        consider(text.down.from);
        free_from = std::max(free_from, text.down.to);
    }
    consider(whole.to);
    return Length(highest) > 0 ? highest : whole;
}

struct Placing {
    Span strip;
    int aside = 0; // how far a line of one part moves to the right
};

// A line that no strip holds in its own place moves aside, as little as it can.
Placing Best_Placing(const std::vector<Extent>& texts, const std::vector<Span>& parts, const Band& band,
                     double ink_height) {
    constexpr int step = 30;
    const Span whole{double(band.top), double(band.bottom)};
    const Placing unmoved{Free_Strip(texts, parts, whole), 0};
    if (Length(unmoved.strip) >= ink_height || parts.size() != 1) return unmoved;
    for (int distance = step; distance < band.right - band.left; distance += step) {
        for (const int aside : {distance, -distance}) {
            const Span moved{parts[0].from + aside, parts[0].to + aside};
            if (moved.from < band.left || moved.to > band.right) continue;
            const Span strip = Free_Strip(texts, {moved}, whole);
            if (Length(strip) >= ink_height) return {strip, aside};
        }
    }
    return unmoved;
}

} // namespace

void Add_Running_Text(const Running_Text& running, const Band& band, Drawing& page) {
    std::vector<Text_Operation> parts = Parts_Across(running, band);
    std::vector<Span> across;
    for (const Text_Operation& part : parts) {
        const Span ink = Ink_Of(part).across;
        across.push_back({ink.from - Clear_At_Sides, ink.to + Clear_At_Sides});
    }
    const double cap_height = Cap_Height(running.style);
    const double ink_height = cap_height + Descent(running.style);
    const std::vector<Extent> texts = Texts_In(page, {double(band.top), double(band.bottom)});
    const Placing placing = Best_Placing(texts, across, band, ink_height);
    const double baseline = (placing.strip.from + placing.strip.to - ink_height) / 2 + cap_height;
    for (Text_Operation& part : parts) {
        part.x += placing.aside;
        part.y = int(std::lround(baseline - Ascent(running.style)));
        page.operations.push_back(part);
    }
}

} // namespace preview
