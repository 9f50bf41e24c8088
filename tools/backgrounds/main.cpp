#include "band_fractions.h"

#include <QDir>
#include <QImage>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <span>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace backgrounds {

namespace {

constexpr int Width = 680;
constexpr int Height = 400; // four pixels a centile
constexpr int Wrong_Use = 2;

struct Ground {
    QString file;
    std::span<const Band> bands;
    std::span<const double> lines;
    Shade line_shade;
};

const Ground Grounds[] = {
    {u"p_grey.bmp"_s, Centile_Bands, {}, Black},
    {u"p_white.bmp"_s, {}, Centile_Lines, Light},
    {u"z_grey.bmp"_s, ZScore_Bands, {}, Black},
    {u"z_white.bmp"_s, {}, ZScore_Lines, Light},
};

// One palette for all, in which a colour's place is its rank among the shades.
const Shade Palette[] = {Black, Dark, Light, Paper};

uint Palette_Index(Shade shade) {
    uint index = 0;
    while (Palette[index].level != shade.level)
        ++index;
    return index;
}

int Row_Of(double fraction) {
    return int(std::lround(fraction * Height));
}

void Fill_Rows(QImage& image, int first, int beyond, Shade shade) {
    for (int y = first; y < beyond; ++y)
        std::fill_n(image.scanLine(y), Width, uchar(Palette_Index(shade)));
}

void Draw_Line(QImage& image, double fraction, Shade shade) {
    Fill_Rows(image, Row_Of(fraction), Row_Of(fraction) + 1, shade);
}

QImage Draw(const Ground& ground) {
    QImage image(Width, Height, QImage::Format_Indexed8);
    for (const Shade& shade : Palette)
        image.setColor(int(Palette_Index(shade)), qRgb(shade.level, shade.level, shade.level));
    image.fill(Palette_Index(Paper));
    for (const Band& band : ground.bands)
        Fill_Rows(image, Row_Of(band.top), Row_Of(band.top + band.height), band.shade);
    for (const double line : ground.lines)
        Draw_Line(image, line, ground.line_shade);
    Draw_Line(image, Middle_Line, ground.line_shade);
    return image;
}

void Write_All(const QString& folder_name) {
    const QDir folder(folder_name);
    if (!folder.mkpath(u"."_s))
        throw std::runtime_error(u"Can't make the folder %1"_s.arg(folder_name).toStdString());
    for (const Ground& ground : Grounds) {
        const QString file = folder.filePath(ground.file);
        if (!Draw(ground).save(file, "BMP"))
            throw std::runtime_error(u"Can't write %1"_s.arg(QDir::toNativeSeparators(file)).toStdString());
        QTextStream(stdout) << QDir::toNativeSeparators(file) << '\n';
    }
}

} // namespace

} // namespace backgrounds

int main(int argc, char** argv) {
    try {
        if (argc != 2) throw std::runtime_error("Usage: mevo-backgrounds DIR");
        backgrounds::Write_All(QString::fromLocal8Bit(argv[1]));
        return 0;
    } catch (const std::runtime_error& error) {
        QTextStream(stderr) << "mevo-backgrounds: " << QString::fromUtf8(error.what()) << '\n';
        return backgrounds::Wrong_Use;
    }
}
