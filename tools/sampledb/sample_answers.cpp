#include "sampledb/sample_answers.h"

#include "foundation/schema.h"
#include "sampledb/sample_tests.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace sample_data {

namespace {

using foundation::Item_Field;

constexpr QStringView Not_Reached = u"-1";
constexpr QStringView No_Answer = u"-2";

struct Item {
    std::array<QVariant, foundation::Item_Field_Count> cells;
    QVariant& operator[](Item_Field field) { return cells[size_t(field)]; }
};

struct Question {
    int number;      // from 1
    int list_length; // 0 where the item has one answer
    bool right;
};

using Fill_Item = void (*)(Item& item, const Question& question, Random& random);

QString Another(const QStringList& pool, const QString& taken, Random& random) {
    QString other = taken;
    while (other == taken)
        other = random.Pick(pool);
    return other;
}

QStringList Draw_Without_Repeats(QStringList pool, int count, Random& random) {
    QStringList drawn;
    while (drawn.size() < count)
        drawn.append(pool.takeAt(random.Below(int(pool.size()))));
    return drawn;
}

// A hole may come up twice in one item, though never twice running.
QStringList Draw_Holes(const QStringList& pool, int count, Random& random) {
    QStringList drawn = {random.Pick(pool)};
    while (drawn.size() < count)
        drawn.append(Another(pool, drawn.last(), random));
    return drawn;
}

enum class Slip { Swapped, Wrong_Element, Too_Short, Too_Long };

QStringList With_Slip(QStringList list, const QStringList& pool, Random& random) {
    const int place = random.Below(int(list.size()) - 1);
    switch (Slip(random.Below(4))) {
    case Slip::Swapped:
        list.swapItemsAt(place, place + 1);
        break;
    case Slip::Wrong_Element:
        list[place] = Another(pool, list[place], random);
        break;
    case Slip::Too_Short:
        list.removeAt(place);
        break;
    case Slip::Too_Long:
        list.insert(place, random.Pick(pool));
        break;
    }
    return list;
}

void Fill_List(Item& item, const QStringList& requested, const QStringList& pool, bool right,
               Random& random) {
    const QStringList chosen = right ? requested : With_Slip(requested, pool, random);
    const QString tail = random.Chance(0.03) ? u","_s : QString(); // the player's list control leaves one
    item[Item_Field::Requested] = requested.join(u',');
    item[Item_Field::Chosen] = QString(chosen.join(u',') + tail);
}

void Fill_Holes(Item& item, const Question& question, Random& random) {
    static const QStringList holes = {u"1"_s, u"2"_s, u"3"_s, u"4"_s,  u"5"_s,  u"6"_s,
                                      u"7"_s, u"8"_s, u"9"_s, u"10"_s, u"11"_s, u"12"_s};
    Fill_List(item, Draw_Holes(holes, question.list_length, random), holes, question.right, random);
}

void Fill_Friends(Item& item, const Question& question, Random& random) {
    static const QStringList colours = {u"Red"_s,    u"Blue"_s,   u"Green"_s, u"Yellow"_s,
                                        u"Orange"_s, u"Purple"_s, u"Pink"_s,  u"Brown"_s};
    const QStringList requested = Draw_Without_Repeats(colours, question.list_length, random);
    Fill_List(item, requested, colours, question.right, random);
}

const QStringList& Symbols() {
    static const QStringList symbols = {u"Star"_s, u"Moon"_s, u"Key"_s,  u"Leaf"_s, u"Wave"_s,
                                        u"Ring"_s, u"Bell"_s, u"Kite"_s, u"Shell"_s};
    return symbols;
}

void Fill_Letters(Item& item, const Question& question, Random& random) {
    const QStringList requested = Draw_Without_Repeats(Symbols(), question.list_length, random);
    Fill_List(item, requested, Symbols(), question.right, random);
}

void Fill_Drell(Item& item, const Question& question, Random& random) {
    static const QStringList animals = {u"Dog"_s,   u"Cat"_s,  u"Pig"_s,  u"Horse"_s,
                                        u"Sheep"_s, u"Duck"_s, u"Frog"_s, u"Hen"_s};
    const QStringList requested = Draw_Without_Repeats(animals, question.list_length, random);
    Fill_List(item, requested, animals, question.right, random);
}

void Fill_Karrel(Item& item, const Question& question, Random& random) {
    static const QStringList colours = {u"Red"_s, u"Yellow"_s, u"Blue"_s, u"Purple"_s, u"Green"_s, u"Cyan"_s};
    const QString requested = random.Pick(colours);
    item[Item_Field::Requested] = requested;
    item[Item_Field::Chosen] = question.right ? requested : Another(colours, requested, random);
}

void Fill_Letter_Names(Item& item, const Question& question, Random& random) {
    const QStringList shown = Draw_Without_Repeats(Symbols(), 4, random);
    const QString requested = random.Pick(shown);
    item[Item_Field::Shown] = shown.join(u',');
    item[Item_Field::Requested] = requested;
    item[Item_Field::Chosen] = question.right ? requested : Another(shown, requested, random);
}

struct Rhyme {
    QString with;
    QString target;
    QString distractor;
};

// Rhymes first; the later items, which only older pupils meet, ask for the same first sound.
const QList<Rhyme>& Rhymes() {
    static const QList<Rhyme> rhymes = {
        {u"cat"_s, u"hat"_s, u"cup"_s},        {u"bed"_s, u"head"_s, u"bell"_s},
        {u"dog"_s, u"log"_s, u"door"_s},       {u"sun"_s, u"bun"_s, u"sock"_s},
        {u"tree"_s, u"key"_s, u"train"_s},     {u"coat"_s, u"boat"_s, u"comb"_s},
        {u"house"_s, u"mouse"_s, u"horse"_s},  {u"chair"_s, u"pear"_s, u"cheese"_s},
        {u"fish"_s, u"fan"_s, u"dish"_s},      {u"snail"_s, u"snake"_s, u"nail"_s},
        {u"bread"_s, u"brush"_s, u"thread"_s}, {u"clock"_s, u"cloud"_s, u"sock"_s},
        {u"spoon"_s, u"spider"_s, u"moon"_s},  {u"frog"_s, u"frame"_s, u"log"_s},
        {u"plane"_s, u"plate"_s, u"rain"_s},   {u"drum"_s, u"dress"_s, u"thumb"_s},
    };
    return rhymes;
}

void Fill_Mirvel(Item& item, const Question& question, Random& random) {
    const Rhyme& rhyme = Rhymes()[question.number - 1];
    const QString& slip = random.Chance(0.7) ? rhyme.distractor : rhyme.with;
    item[Item_Field::Rhyming_With] = rhyme.with;
    item[Item_Field::Distractor] = rhyme.distractor;
    item[Item_Field::Requested] = rhyme.target;
    item[Item_Field::Chosen] = question.right ? rhyme.target : slip;
}

const QList<std::pair<QString, QString>>& Word_Pairs() {
    static const QList<std::pair<QString, QString>> pairs = {
        {u"pin"_s, u"bin"_s},    {u"coat"_s, u"goat"_s},   {u"tie"_s, u"die"_s},     {u"fan"_s, u"van"_s},
        {u"sip"_s, u"zip"_s},    {u"chin"_s, u"shin"_s},   {u"map"_s, u"nap"_s},     {u"rock"_s, u"lock"_s},
        {u"cap"_s, u"cat"_s},    {u"bug"_s, u"bud"_s},     {u"mouse"_s, u"mouth"_s}, {u"three"_s, u"free"_s},
        {u"wing"_s, u"ring"_s},  {u"jam"_s, u"yam"_s},     {u"pig"_s, u"peg"_s},     {u"ship"_s, u"sheep"_s},
        {u"cot"_s, u"cut"_s},    {u"bat"_s, u"bet"_s},     {u"pull"_s, u"pool"_s},   {u"train"_s, u"drain"_s},
        {u"crab"_s, u"grab"_s},  {u"cloud"_s, u"crowd"_s}, {u"spill"_s, u"still"_s}, {u"badge"_s, u"batch"_s},
        {u"lace"_s, u"lathe"_s},
    };
    return pairs;
}

void Fill_Yoon(Item& item, const Question& question, Random& random) {
    static const QStringList aliens = {u"Zib"_s, u"Mog"_s, u"Tuk"_s, u"Pel"_s};
    auto [target, other] = Word_Pairs()[question.number - 1];
    if (random.Chance(0.5)) std::swap(target, other);
    const QStringList pair = Draw_Without_Repeats(aliens, 2, random);
    item[Item_Field::Choices] =
        random.Chance(0.5) ? QString(target + u',' + other) : QString(other + u',' + target);
    item[Item_Field::Target_Alien] = pair[0];
    item[Item_Field::Distracter] = pair[1];
    item[Item_Field::Requested] = target;
    item[Item_Field::Chosen] = question.right ? target : other;
}

struct Material {
    Fill_Item fill;
    QVariant left_blank; // what the requested and chosen cells hold when there is nothing to store
    QVariant unanswered;
};

// Tolvens and Bliks friends have marks of their own and never store a NULL in a finished row.
const QList<Material>& Materials() {
    static const QList<Material> materials = {
        {Fill_Holes, u""_s, No_Answer.toString()},
        {Fill_Friends, u""_s, No_Answer.toString()},
        {Fill_Karrel, {}, u""_s},
        {Fill_Letters, {}, {}},
        {Fill_Letter_Names, {}, u""_s},
        {Fill_Drell, {}, {}},
        {Fill_Mirvel, {}, u""_s},
        {Fill_Yoon, {}, u""_s},
    };
    return materials;
}

constexpr int Shortest_Time = 600;
constexpr int Longest_Time = 12000;
constexpr double Pupil_Time_Spread = 0.24;
constexpr double Item_Time_Spread = 0.38;

int Draw_Valid_Time(double average, double speed, Random& random) {
    const double spread = Item_Time_Spread * random.Normal() - Pupil_Time_Spread * speed;
    return std::clamp(int(std::lround(average * std::exp(spread))), Shortest_Time, Longest_Time);
}

// Now and then the clock of a test workstation stores what can't be a time.
int Draw_Time(double average, double speed, Random& random) {
    static const QList<int> unusable = {0, 1000000, 1200000};
    if (random.Chance(0.03)) return random.Pick(unusable);
    return Draw_Valid_Time(average, speed, random);
}

double Chance_Of_Right(const Test_Profile& test, const Sitting& sitting, double progress) {
    if (sitting.nothing_right) return 0.0;
    const double share = test.share_right[Norm_Age_Index(sitting.months)];
    const double ease = std::log(share / (1.0 - share)) + 0.8 * sitting.ability + 1.4 * (0.5 - progress);
    return 1.0 / (1.0 + std::exp(-ease));
}

Item Play_Item(const Test_Profile& test, const Sitting& sitting, int number, Random& random) {
    const Material& material = Materials()[sitting.test];
    const Item_Window window = Items_Played(test, sitting.months);
    const bool opening = number == window.first; // always answered, so that a mean time exists
    const double progress = (number - window.first + 0.5) / (window.last - window.first + 1.0);
    const double average = test.item_time[Norm_Age_Index(sitting.months)];

    Item item;
    const int length = test.list_lengths.isEmpty() ? 0 : test.list_lengths[number - 1];
    const bool right = random.Chance(Chance_Of_Right(test, sitting, progress));
    material.fill(item, {number, length, right}, random);
    item[Item_Field::Time] =
        opening ? Draw_Valid_Time(average, sitting.speed, random) : Draw_Time(average, sitting.speed, random);
    const bool left_out = random.Chance(0.012);
    if (number == sitting.unanswered || (left_out && !opening)) {
        item[Item_Field::Chosen] = material.unanswered;
        item[Item_Field::Time] = 0;
    }
    return item;
}

Item Item_Outside(const QVariant& requested, const QVariant& chosen) {
    Item item;
    item[Item_Field::Requested] = requested;
    item[Item_Field::Chosen] = chosen;
    item[Item_Field::Time] = requested.isValid() ? QVariant(0) : QVariant();
    return item;
}

int Item_Count(const foundation::Test_Tables& tables) {
    int items = 0;
    for (const foundation::Item_Level& level : tables.levels)
        items += level.items;
    return items;
}

QList<Item> Play_Normed_Test(const Sitting& sitting, Random& random) {
    const Test_Profile& test = Normed_Tests()[sitting.test];
    const QVariant blank = Materials()[sitting.test].left_blank;
    const Item_Window window = Items_Played(test, sitting.months);
    QList<Item> items;
    for (int number = 1; number <= Item_Count(foundation::Tests_In_Order()[sitting.test]); ++number) {
        if (number < window.first || number > window.last)
            items.append(Item_Outside(blank, blank));
        else if (sitting.stopped_at > 0 && number >= sitting.stopped_at)
            items.append(Item_Outside(Not_Reached.toString(), No_Answer.toString()));
        else
            items.append(Play_Item(test, sitting, number, random));
    }
    return items;
}

// The colour test: each part of a figure is coloured in one to four tries.
constexpr int Body_Parts = 6;
constexpr int Tries_Per_Part = 4;

// Tries beyond six fall on parts picked at random; with fewer, the last parts were never reached.
QList<int> Share_Out_Tries(int tries, Random& random) {
    QList<int> shares(Body_Parts, 0);
    for (int part = 0; part < std::min(tries, Body_Parts); ++part)
        shares[part] = 1;
    int left = std::min(tries, Body_Parts * Tries_Per_Part) - Body_Parts;
    while (left > 0) {
        int& share = shares[random.Below(Body_Parts)];
        if (share == Tries_Per_Part) continue;
        ++share;
        --left;
    }
    return shares;
}

QList<Item> Play_Pindo(const Sitting& sitting, Random& random) {
    static const QStringList colours = {u"LBLU"_s, u"LRED"_s, u"PURP"_s, u"YELL"_s, u"DBLU"_s, u"GREN"_s};
    const QList<int> shares = Share_Out_Tries(sitting.tries, random);
    QList<Item> items;
    for (int part = 0; part < Body_Parts; ++part) {
        const QString& wanted = colours[part];
        const bool keeps_request = random.Chance(0.5); // both ways of leaving a try occur
        for (int attempt = 1; attempt <= Tries_Per_Part; ++attempt) {
            Item item;
            if (attempt <= shares[part]) {
                const bool last = attempt == shares[part];
                item[Item_Field::Requested] = wanted;
                item[Item_Field::Chosen] = last ? wanted : Another(colours, wanted, random);
                item[Item_Field::Time] = Draw_Valid_Time(3500.0, sitting.speed, random);
            } else if (keeps_request) {
                item = Item_Outside(wanted, QVariant());
            }
            items.append(item);
        }
    }
    return items;
}

} // namespace

QVariantList Answers(const Sitting& sitting, Random& random) {
    const foundation::Test_Tables& tables = foundation::Tests_In_Order()[sitting.test];
    const bool normed = sitting.test < Normed_Tests().size();
    QList<Item> items = normed ? Play_Normed_Test(sitting, random) : Play_Pindo(sitting, random);
    QVariantList row;
    for (Item& item : items) {
        for (const foundation::Item_Part& part : tables.parts)
            row.append(item[part.field]);
    }
    if (tables.counts_repeats) {
        row.append(random.Below(3)); // RepeatCount
        row.append(random.Below(2)); // PauseCount
    }
    return row;
}

QVariantList No_Answers(int test) {
    const foundation::Test_Tables& tables = foundation::Tests_In_Order()[test];
    const qsizetype cells = Item_Count(tables) * tables.parts.size() + (tables.counts_repeats ? 2 : 0);
    return QVariantList(cells, QVariant());
}

} // namespace sample_data
