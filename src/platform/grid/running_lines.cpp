#include "platform/grid/running_lines.h"

#include "platform/basics/twips.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace grid {
namespace {

constexpr QChar Break_Place(0x200B); // a blank without a width

using Runs = std::vector<Text_Run>;

QFontMetricsF Metrics_Of(const Print_Font& font) {
    return QFontMetricsF(Font_For(font));
}

double Width_Of(const Runs& runs) {
    double width = 0;
    for (const Text_Run& run : runs)
        width += Text_Width(run.font, run.text);
    return width;
}

// Where the lines of a text begin and end when it is broken to the width.
struct Piece {
    int from;
    int length;
};

std::vector<Piece> Break(const Runs& runs, double width) {
    QString text;
    QList<QTextLayout::FormatRange> formats;
    for (const Text_Run& run : runs) {
        QTextCharFormat format;
        format.setFont(Font_For(run.font));
        formats.append({static_cast<int>(text.size()), static_cast<int>(run.text.size()), format});
        text += run.text;
    }
    QTextLayout layout(text, Font_For(runs.front().font));
    layout.setFormats(formats);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    std::vector<Piece> pieces;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        pieces.push_back({line.textStart(), line.textLength()});
    }
    layout.endLayout();
    return pieces;
}

// The part of the runs that a piece covers, without the blanks where the line was broken.
Runs Runs_In(const Runs& runs, const Piece& piece) {
    Runs part;
    int run_start = 0;
    for (const Text_Run& run : runs) {
        const int run_end = run_start + static_cast<int>(run.text.size());
        const int from = std::max(piece.from, run_start);
        const int to = std::min(piece.from + piece.length, run_end);
        if (from < to) part.push_back({run.text.sliced(from - run_start, to - from), run.font, run.side});
        run_start = run_end;
    }
    while (!part.empty() && part.back().text.endsWith(u' '))
        part.back().text.chop(1);
    return part;
}

class Line_Setter {
public:
    explicit Line_Setter(double width) : width(width) {}

    void Add(const Text_Line& line) {
        const Zones zones = Zones_Of(line.runs);
        if (Stand_Clear(zones))
            Set(zones, line.font);
        else
            for (const Runs& zone : zones)
                if (!zone.empty()) Add_Broken(zone);
    }

    Text_Block Block() { return std::move(block); }

private:
    using Zones = std::array<Runs, 3>; // by side

    static Zones Zones_Of(const Runs& runs) {
        Zones zones;
        for (const Text_Run& run : runs)
            zones[static_cast<std::size_t>(run.side)].push_back(run);
        return zones;
    }

    double Start_Of(Side side, double zone_width) const {
        if (side == Side::Left) return 0;
        const double rest = width - zone_width;
        return side == Side::Centre ? rest / 2 : rest;
    }

    bool Stand_Clear(const Zones& zones) const {
        double taken = 0;
        for (std::size_t i = 0; i < zones.size(); ++i) {
            if (zones[i].empty()) continue;
            const double zone_width = Width_Of(zones[i]);
            const double start = Start_Of(static_cast<Side>(i), zone_width);
            if (start < taken) return false;
            taken = start + zone_width;
        }
        return taken <= width;
    }

    void Add_Broken(const Runs& zone) {
        for (const Piece& piece : Break(zone, width)) {
            const Runs part = Runs_In(zone, piece);
            Set(Zones_Of(part), zone.front().font);
        }
    }

    void Set(const Zones& zones, const Print_Font& font_of_an_empty_line) {
        double height = 0;
        double ascent = 0;
        for (const Runs& zone : zones)
            for (const Text_Run& run : zone) {
                height = std::max(height, Line_Height(run.font));
                ascent = std::max(ascent, Ascent(run.font));
            }
        if (height == 0) height = Line_Height(font_of_an_empty_line);
        for (std::size_t i = 0; i < zones.size(); ++i) {
            double x = Start_Of(static_cast<Side>(i), Width_Of(zones[i]));
            for (const Text_Run& run : zones[i]) {
                block.texts.push_back({x, block.height + ascent, run.text, run.font});
                x += Text_Width(run.font, run.text);
            }
        }
        block.height += height;
    }

    double width;
    Text_Block block;
};

QString Without_Controls(QString text) {
    for (QChar& character : text)
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u' ';
    return text;
}

} // namespace

// Without kerning and hinting a text is as wide as its characters together, at any resolution.
QFont Font_For(const Print_Font& font) {
    QFont made;
    made.setFamilies({font.name, u"Liberation Sans"_s});
    made.setStyleHint(QFont::SansSerif);
    made.setPixelSize(std::max(1, qRound(font.size * basics::Twips_Per_Point)));
    made.setBold(font.bold);
    made.setKerning(false);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

double Text_Width(const Print_Font& font, const QString& text) {
    return Metrics_Of(font).horizontalAdvance(text);
}

double Line_Height(const Print_Font& font) {
    return Metrics_Of(font).lineSpacing();
}

double Ascent(const Print_Font& font) {
    return Metrics_Of(font).ascent();
}

Text_Block Set_Lines(const std::vector<Text_Line>& lines, double width) {
    Line_Setter setter(width);
    for (const Text_Line& line : lines)
        setter.Add(line);
    return setter.Block();
}

QString With_Breaks_At_Commas(QString text) {
    return text.replace(u',', u","_s + Break_Place);
}

QStringList Broken_Text(const Print_Font& font, const QString& text, double width, int most_lines) {
    const QString line = Without_Controls(text).trimmed();
    if (line.isEmpty()) return {};
    const QFontMetricsF metrics = Metrics_Of(font);
    if (metrics.horizontalAdvance(line) <= width) return {line};
    const QString breakable = With_Breaks_At_Commas(line);
    const auto printed = [](QString part) { return part.remove(Break_Place).trimmed(); };
    QStringList lines;
    for (const Piece& piece : Break({{breakable, font, Side::Left}}, width)) {
        if (lines.size() + 1 == most_lines) {
            lines.append(metrics.elidedText(printed(breakable.sliced(piece.from)), Qt::ElideRight, width));
            break;
        }
        lines.append(printed(breakable.sliced(piece.from, piece.length)));
    }
    return lines;
}

} // namespace grid
