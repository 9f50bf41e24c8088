// Writes a picture anew with few colours and no wider than wanted, so that the manuals stay quick to open.

#include <QCoreApplication>
#include <QHash>
#include <QImage>
#include <QTextStream>
#include <algorithm>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t Most_Colours = 96; // letters keep their soft edges; more would only add to the size

struct Found_Colour {
    QRgb colour;
    qint64 pixels;
    int distance = std::numeric_limits<int>::max(); // from the nearest colour that is kept, squared
    uchar kept_as = 0;

    // What leaving it out would cost.
    qint64 Weight() const { return pixels * distance; }
};

int Distance(QRgb one, QRgb other) {
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return red * red + green * green + blue * blue;
}

std::vector<Found_Colour> Colours_Of(const QImage& picture) {
    QHash<QRgb, qint64> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    std::vector<Found_Colour> colours;
    for (auto found = counts.cbegin(); found != counts.cend(); ++found)
        colours.push_back({found.key(), found.value()});
    // One picture gives one file, in whatever order the colours were met.
    std::sort(colours.begin(), colours.end(),
              [](const Found_Colour& one, const Found_Colour& other) { return one.colour < other.colour; });
    return colours;
}

// One colour after the other, each the one that is missed most: plain grounds stay exact, and rare but
// striking colours aren't lost.
QList<QRgb> Choose_Kept(std::vector<Found_Colour>& colours) {
    QList<QRgb> kept;
    while (std::size_t(kept.size()) < Most_Colours) {
        const auto most = std::max_element(
            colours.begin(), colours.end(),
            [](const Found_Colour& one, const Found_Colour& other) { return one.Weight() < other.Weight(); });
        if (most->distance == 0) break;
        const QRgb chosen = most->colour;
        for (Found_Colour& found : colours)
            if (const int distance = Distance(found.colour, chosen); distance < found.distance) {
                found.distance = distance;
                found.kept_as = uchar(kept.size());
            }
        kept.append(chosen);
    }
    return kept;
}

QImage With_Few_Colours(const QImage& picture) {
    std::vector<Found_Colour> colours = Colours_Of(picture);
    QImage small(picture.size(), QImage::Format_Indexed8);
    small.setColorTable(Choose_Kept(colours));
    QHash<QRgb, uchar> places;
    for (const Found_Colour& found : colours)
        places.insert(found.colour, found.kept_as);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            small.setPixel(x, y, places.value(picture.pixel(x, y)));
    return small;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int width = arguments.size() == 4 ? arguments.at(3).toInt() : 0;
    if (width <= 0) {
        QTextStream(stderr) << "usage: mevo-small-picture SOURCE TARGET.png WIDTH" << Qt::endl;
        return 2;
    }
    QImage picture = QImage(arguments.at(1)).convertToFormat(QImage::Format_RGB32);
    if (picture.width() > width) picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    constexpr int smallest_file = 0;
    if (picture.isNull() || !With_Few_Colours(picture).save(arguments.at(2), "PNG", smallest_file)) {
        QTextStream(stderr) << "mevo-small-picture: can't make " << arguments.at(2) << " of "
                            << arguments.at(1) << Qt::endl;
        return 1;
    }
    return 0;
}
