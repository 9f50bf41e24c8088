// Each page looks as the picture that is kept of it, so that a change of look is seen, and meant.

#include "app/page_states.h"
#include "shell/conventions/theme.h"
#include "support/pictures.h"

#include <QApplication>
#include <QDir>
#include <QFontInfo>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

// A letter that is another, an edge that moves by two pixels and a ground that is darker by ten of 255 make
// more.
constexpr double Largest_Mean = 0.3;
constexpr int Largest_Local = 12;

// Read when the application starts, so set before main.
const bool Fonts_Are_Drawn_In_One_Way = qputenv("FONTCONFIG_FILE", MEVO_FONT_SETTINGS);

const QDir Kept(QStringLiteral(MEVO_KEPT_PICTURES));
const QDir Failed(QStringLiteral(MEVO_FAILED_PICTURES));

// How far two pictures of one size are from each other, of 255.
struct Difference {
    double mean = 0; // over all pixels
    int local = 0;   // of the small square where they differ most, by its own mean
};

Difference Compare(const QImage& one, const QImage& other) {
    constexpr int square = 8; // pixels
    Difference found;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            found.mean += Distance(one.pixel(x, y), other.pixel(x, y));
    found.mean /= double(one.width()) * one.height();
    found.local = Largest_Distance(one, other, one.size() / square);
    return found;
}

// What differs, dark on white.
QImage Picture_Of_Difference(const QImage& one, const QImage& other) {
    QImage picture(one.size().expandedTo(other.size()), QImage::Format_Grayscale8);
    picture.fill(Qt::black);
    const QRect both = one.rect() & other.rect();
    for (int y = both.top(); y <= both.bottom(); ++y)
        for (int x = both.left(); x <= both.right(); ++x) {
            constexpr int stronger = 3;
            const int grey = 255 - std::min(255, stronger * Distance(one.pixel(x, y), other.pixel(x, y)));
            picture.setPixel(x, y, qRgb(grey, grey, grey));
        }
    return picture;
}

QImage Seen(QWidget& surface) {
    surface.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&surface));
    QApplication::processEvents();
    return surface.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void Save(const QImage& picture, const QDir& folder, const QString& name) {
    constexpr int smallest_file = 0;
    folder.mkpath(u"."_s);
    ASSERT_TRUE(picture.save(folder.filePath(name), "PNG", smallest_file)) << name.toStdString();
}

void Expect_As_Kept(const QImage& seen, const QString& state) {
    const QString name = state + u".png"_s;
    const QImage kept = QImage(Kept.filePath(name)).convertToFormat(QImage::Format_RGB32);
    Difference found{255, 255};
    if (kept.size() == seen.size()) found = Compare(seen, kept);
    if (found.mean <= Largest_Mean && found.local <= Largest_Local) return;
    const QString difference = state + u"_difference.png"_s;
    Save(seen, Failed, name);
    Save(Picture_Of_Difference(seen, kept), Failed, difference);
    ADD_FAILURE() << state.toStdString() << " looks otherwise: mean difference " << found.mean << ", local "
                  << found.local << "\n  kept:       " << Kept.filePath(name).toStdString()
                  << "\n  seen:       " << Failed.filePath(name).toStdString()
                  << "\n  difference: " << Failed.filePath(difference).toStdString()
                  << "\nIf that is meant: MEVO_RENEW_PICTURES=1 build/bin/screens_tests";
}

} // namespace

TEST(Screens, LookAsInThePicturesKept) {
    ASSERT_TRUE(Fonts_Are_Drawn_In_One_Way);
    shell::Apply_Theme(*qApp);
    const QString font = QFontInfo(QApplication::font()).family();
    if (font != "Liberation Sans"_L1)
        GTEST_SKIP() << "the pictures are set in Liberation Sans, not in " << font.toStdString();
    QApplication::setCursorFlashTime(0);
    const bool renewing = qEnvironmentVariableIsSet("MEVO_RENEW_PICTURES");
    QStringList names;
    Go_Through_All_Pages([&](const QString& state, QWidget& surface) {
        const QImage seen = Seen(surface);
        names.append(state + u".png"_s);
        if (renewing)
            Save(seen, Kept, names.last());
        else
            Expect_As_Kept(seen, state);
    });
    names.sort();
    QStringList kept = Kept.entryList({u"*.png"_s}, QDir::Files);
    kept.sort();
    for (const QString& name : kept)
        if (renewing && !names.contains(name)) QFile::remove(Kept.filePath(name));
    if (renewing) GTEST_SKIP() << "the pictures were renewed, not compared";
    EXPECT_EQ(kept, names) << "pictures and pages don't belong to each other";
}
