#include "platform/preview/text_metrics.h"

#include "platform/basics/twips.h"

#include <QFontMetricsF>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace preview {
namespace {

constexpr int Largest_Font = 1000;

QFontMetricsF Metrics_Of(const Text_Style& style) {
    return QFontMetricsF(Font_Of(style));
}

// Walks over a text character by character as a reader sees them, an accent with its letter.
void For_Each_Character(const QString& text, const std::function<bool(const QString& character)>& visit) {
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    qsizetype from = 0;
    for (qsizetype to = characters.toNextBoundary(); to > 0; to = characters.toNextBoundary()) {
        if (!visit(text.sliced(from, to - from))) return;
        from = to;
    }
}

// Fills lines word by word. The blanks between two words stand in front of the second, and are dropped
// where the line breaks.
class Line_Filler {
public:
    Line_Filler(const QFontMetricsF& metrics, double width) : metrics(metrics), width(width) {}

    void Add(const QString& blanks, const QString& word) {
        const double blanks_width = metrics.horizontalAdvance(blanks);
        const double word_width = metrics.horizontalAdvance(word);
        if (!started || used + blanks_width + word_width <= width) {
            line += blanks + word;
            used += blanks_width + word_width;
        } else {
            Break();
            line = word;
            used = word_width;
        }
        started = true;
        if (used > width) Break_Inside();
    }

    QStringList Finish() {
        Break();
        return lines;
    }

private:
    void Break() {
        lines.append(line);
        line.clear();
        used = 0;
    }

    void Break_Inside() {
        const QString too_long = line;
        line.clear();
        used = 0;
        For_Each_Character(too_long, [this](const QString& character) {
            const double character_width = metrics.horizontalAdvance(character);
            if (!line.isEmpty() && used + character_width > width) Break();
            line += character;
            used += character_width;
            return true;
        });
    }

    const QFontMetricsF& metrics;
    double width;
    QStringList lines;
    QString line;
    double used = 0;
    bool started = false;
};

QStringList Wrapped_Line(const QFontMetricsF& metrics, const QString& text, double width) {
    Line_Filler filler(metrics, width);
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype blanks_from = at;
        while (at < text.size() && text[at] == u' ')
            ++at;
        const qsizetype word_from = at;
        while (at < text.size() && text[at] != u' ')
            ++at;
        if (at > word_from)
            filler.Add(text.sliced(blanks_from, word_from - blanks_from),
                       text.sliced(word_from, at - word_from));
    }
    return filler.Finish();
}

} // namespace

// Without kerning and hinting a width is the plain sum of its characters' widths at any size, which a
// metafile's reader comes to as well.
QFont Font_Of(const Text_Style& style) {
    QFont font;
    // Each of the fixed ones has a stroke or a dot in its nought, if it is there.
    font.setFamilies(style.fixed_pitch ? QStringList{u"Consolas"_s, u"Liberation Mono"_s,
                                                     u"DejaVu Sans Mono"_s, u"Courier New"_s}
                                       : QStringList{u"Arial"_s, u"Liberation Sans"_s});
    font.setStyleHint(style.fixed_pitch ? QFont::Monospace : QFont::SansSerif);
    font.setPixelSize(std::clamp(style.font_size, 1, Largest_Font) * basics::Twips_Per_Point);
    font.setBold(style.bold);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double Text_Width(const Text_Style& style, const QString& text) {
    return Metrics_Of(style).horizontalAdvance(text);
}

double Line_Height(const Text_Style& style) {
    return Metrics_Of(style).lineSpacing();
}

double Ascent(const Text_Style& style) {
    return Metrics_Of(style).ascent();
}

double Cap_Height(const Text_Style& style) {
    return Metrics_Of(style).capHeight();
}

double Descent(const Text_Style& style) {
    return Metrics_Of(style).descent();
}

QRectF Ink_Of(const Text_Operation& line) {
    const double width = Text_Width(line.style, line.text) * line.squeeze;
    const double top = Ascent(line.style) - Cap_Height(line.style);
    const double height = Cap_Height(line.style) + Descent(line.style);
    if (line.angle == 0) return {double(line.x), line.y + top, width, height};
    return {line.x + top, line.y - width, height, width};
}

double Squeeze_To_Fit(const Text_Style& style, const QString& text, double width) {
    const double natural = Text_Width(style, text);
    return natural > width && width > 0 ? width / natural : 1.0;
}

bool Fits_On_One_Line(const Text_Style& style, const QString& text, double width, double tightest) {
    return Text_Width(style, text) * tightest <= width;
}

QString Printable(const QString& text) {
    QString printable = text;
    for (QChar& character : printable) {
        const bool breaks_lines = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (breaks_lines || character.category() == QChar::Other_Control) character = u' ';
    }
    return printable;
}

QStringList Wrapped(const Text_Style& style, const QString& text, double width) {
    QString unified = text;
    unified.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(QChar::LineSeparator, u'\n');
    unified.replace(QChar::ParagraphSeparator, u'\n');
    const QFontMetricsF metrics = Metrics_Of(style);
    QStringList lines;
    for (const QString& line : unified.split(u'\n'))
        lines.append(Wrapped_Line(metrics, Printable(line), width));
    return lines;
}

QString Elided(const Text_Style& style, const QString& text, double width) {
    const QFontMetricsF metrics = Metrics_Of(style);
    if (metrics.horizontalAdvance(text) <= width) return text;
    const QString ellipsis(QChar(0x2026));
    double room = width - metrics.horizontalAdvance(ellipsis);
    QString shown;
    For_Each_Character(text, [&](const QString& character) {
        room -= metrics.horizontalAdvance(character);
        if (room >= 0) shown += character;
        return room >= 0;
    });
    return shown.trimmed() + ellipsis;
}

} // namespace preview
