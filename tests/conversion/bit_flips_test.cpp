#include "conversion/jet_samples.h"
#include "conversion/plain_database.h"
#include "support/printing.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

using namespace Qt::StringLiterals;
using namespace test_support;

namespace {

constexpr qsizetype Page = 4096;
constexpr int Files_In_A_Plain_Run = 60;

// Damage as disks and cables do it. Half of it falls on the first bytes of pages, where the format keeps what
// leads from one to the other: in the middle of a page a flip mostly changes a letter.
class Damage {
public:
    explicit Damage(quint32 seed) : random(seed) {}

    QByteArray Done_To(QByteArray file) {
        switch (Below(12)) {
        case 0:
            return file.left(Below(file.size()));
        case 1:
            return file.left(Below(file.size() / Page) * Page);
        case 2: // a page in another's place
            return file.replace(Some_Page(file), Page, file.mid(Some_Page(file), Page));
        case 3:
            return file.replace(Some_Page(file), Page, QByteArray(Page, '\0'));
        default:
            for (qsizetype flips = 1 + Below(8); flips > 0; --flips)
                Flip(file);
            return file;
        }
    }

private:
    qsizetype Below(qsizetype bound) {
        return static_cast<qsizetype>(random() % static_cast<quint32>(bound));
    }
    qsizetype Some_Page(const QByteArray& file) { return Below(file.size() / Page) * Page; }
    void Flip(QByteArray& file) {
        constexpr qsizetype head = 96;
        const qsizetype at = Below(2) == 0 ? Some_Page(file) + Below(head) : Below(file.size());
        file[at] = static_cast<char>(file[at] ^ (1 << Below(8)));
    }
    std::mt19937 random;
};

struct Counts {
    int tried = 0;
    int converted = 0;
    QHash<QString, int> refused; // by the reason's first words
};

bool Is_Sound_And_Equal(const QString& source, const QString& target) {
    if (Plain_Rows(target, u"PRAGMA integrity_check"_s) != QList<QStringList>{{u"ok"_s}}) return false;
    conversion::Comparison comparison(target);
    conversion::Compare_With_Jet_File(source, comparison, conversion::Reader_Beside_This_Program(),
                                      [](const conversion::Progress&) {});
    EXPECT_TRUE(comparison.All_Equal()) << comparison.Examples().join(u'\n').toStdString();
    return comparison.All_Equal();
}

} // namespace

// A flipped letter can't be noticed, and is converted as it stands. Whatever is noticed is refused with
// nothing left behind; what is converted is sound and has each value that can be read. MEVO_FLIP_SECONDS
// makes the run longer, MEVO_FLIP_SEED another one.
TEST(BitFlips, GiveAWholeTargetOrNone) {
    const int seconds = qEnvironmentVariableIntValue("MEVO_FLIP_SECONDS");
    const auto seed = static_cast<quint32>(qEnvironmentVariableIntValue("MEVO_FLIP_SEED"));
    const QByteArray files[] = {Bytes_Of(Test_Data(u"jet4-data.mdb"_s)),
                                Bytes_Of(Test_Data(u"jet4-template.mdb"_s)),
                                Bytes_Of(Test_Data(u"jet4-before-5.1.mdb"_s))};
    Counts counts;
    QElapsedTimer timer;
    qint64 longest = 0;
    timer.start();
    const auto goes_on = [&] {
        return seconds > 0 ? !timer.hasExpired(seconds * 1000LL) : counts.tried < Files_In_A_Plain_Run;
    };
    for (; goes_on() && !testing::Test::HasFailure(); ++counts.tried) {
        SCOPED_TRACE(counts.tried);
        Damage damage(seed + static_cast<quint32>(counts.tried));
        const Conversion_Folder folder;
        const QString source =
            folder.Put(u"source.mdb"_s, damage.Done_To(files[counts.tried % std::size(files)]));
        const QString target = folder.Place(u"target.mdb"_s);
        const qint64 before = timer.elapsed();
        const QString why = Why_Refused(source, target);
        longest = std::max(longest, timer.elapsed() - before);
        if (why.isEmpty()) {
            EXPECT_EQ(folder.Names(), (QStringList{u"source.mdb"_s, u"target.mdb"_s}));
            EXPECT_TRUE(Is_Sound_And_Equal(source, target));
            ++counts.converted;
        } else {
            EXPECT_EQ(folder.Names(), QStringList{u"source.mdb"_s});
            EXPECT_FALSE(why.contains(u'\n'));
            ++counts.refused[why.section(u' ', 0, 3)];
        }
    }
    EXPECT_GT(counts.converted, 0);
    EXPECT_LT(counts.converted, counts.tried);
    std::cout << counts.tried << " files, " << counts.converted << " converted, longest " << longest
              << " ms\n";
    for (auto it = counts.refused.constBegin(); it != counts.refused.constEnd(); ++it)
        std::cout << "  refused " << it.value() << ": " << it.key().toStdString() << " ...\n";
}
