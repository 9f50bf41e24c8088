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

Extent Extent_Of(const Text_Operation& line) {
    const QRectF ink = Ink_Of(line);
    return {{ink.left(), ink.right()}, {ink.top(), ink.bottom()}};
}

std::vector<Extent> Texts_In(const Drawing& page, const Span& heights) {
    std::vector<Extent> texts;
    for (const Operation& operation : page.operations) {
        const auto* line = std::get_if<Text_Operation>(&operation);
        if (!line) continue;
        const Extent ink = Extent_Of(*line);
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

// The highest strip that is free of every text above or below one of the parts.
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
    double squeeze = 1; // of the parts' own width
    int aside = 0;      // how far they move to the right
};

// The part with the clearance at both sides, which stays as wide as it is.
Span Placed(const Span& part, double squeeze, int aside) {
    const double middle = (part.from + part.to) / 2 + aside;
    const double half = (Length(part) / 2 - Clear_At_Sides) * squeeze + Clear_At_Sides;
    return {middle - half, middle + half};
}

class Placer {
public:
    Placer(std::vector<Extent> texts, std::vector<Span> parts, const Band& band, double ink_height)
        : texts(std::move(texts)),
          parts(std::move(parts)),
          room{double(band.left), double(band.right)},
          whole{double(band.top), double(band.bottom)},
          ink_height(ink_height) {}

    // A line of one part that no strip holds is set narrower at its place. Where even the tightest letters
    // don't fit it is moved aside as well, and set narrower still: it never lies on another text while there
    // is a way.
    Placing Best() const {
        const Placing as_it_is = At(1, 0);
        if (Fits(as_it_is) || parts.size() != 1) return as_it_is;
        for (double squeeze = 1 - Step; squeeze > Tightest_Letters - Step / 2; squeeze -= Step)
            if (const Placing there = At(squeeze, 0); Fits(there)) return there;
        for (double squeeze = Tightest_Letters; squeeze > Last_Resort; squeeze -= Step)
            if (const Placing there = Aside(squeeze); Fits(there)) return there;
        return At(Tightest_Letters, 0);
    }

private:
    static constexpr double Step = 0.02;
    static constexpr double Last_Resort = 0.4; // narrower letters can't be read
    static constexpr int Step_Aside = 30;

    Placing At(double squeeze, int aside) const {
        std::vector<Span> placed;
        for (const Span& part : parts)
            placed.push_back(Placed(part, squeeze, aside));
        return {Free_Strip(texts, placed, whole), squeeze, aside};
    }

    bool Fits(const Placing& placing) const { return Length(placing.strip) >= ink_height; }

    // As little aside as it can; where nothing is free the result doesn't fit.
    Placing Aside(double squeeze) const {
        for (int distance = Step_Aside; distance < Length(room); distance += Step_Aside) {
            for (const int aside : {distance, -distance}) {
                const Span moved = Placed(parts[0], squeeze, aside);
                if (moved.from < room.from || moved.to > room.to) continue;
                if (const Placing there = At(squeeze, aside); Fits(there)) return there;
            }
        }
        return {};
    }

    std::vector<Extent> texts;
    std::vector<Span> parts;
    Span room;
    Span whole;
    double ink_height;
};

// The middle of the strip, but never beyond the band: its outer edge is the paper's.
double Baseline_In(const Span& strip, const Band& band, double cap_height, double descent) {
    const double middle = (strip.from + strip.to + cap_height - descent) / 2;
    return std::clamp(middle, band.top + cap_height, std::max(band.top + cap_height, band.bottom - descent));
}

} // namespace

void Add_Running_Text(const Running_Text& running, const Band& band, Drawing& page) {
    std::vector<Text_Operation> parts = Parts_Across(running, band);
    std::vector<Span> across;
    for (const Text_Operation& part : parts) {
        const Span ink = Extent_Of(part).across;
        across.push_back({ink.from - Clear_At_Sides, ink.to + Clear_At_Sides});
    }
    const double cap_height = Cap_Height(running.style);
    const double descent = Descent(running.style);
    const Placer placer(Texts_In(page, {double(band.top), double(band.bottom)}), across, band,
                        cap_height + descent);
    const Placing placing = placer.Best();
    const double baseline = Baseline_In(placing.strip, band, cap_height, descent);
    for (size_t i = 0; i < parts.size(); ++i) {
        Text_Operation& part = parts[i];
        part.x = int(std::lround(Placed(across[i], placing.squeeze, placing.aside).from)) + Clear_At_Sides;
        part.squeeze *= placing.squeeze;
        part.y = int(std::lround(baseline - Ascent(running.style)));
        page.operations.push_back(part);
    }
}

} // namespace preview
