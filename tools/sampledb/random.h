#pragma once

#include <QtGlobal>

#include <random>

namespace sample_data {

// Numbers that depend on the seed alone: the distributions of the standard library differ from one
// library to the next, so the mapping from the generator's output is our own.
class Random {
public:
    explicit Random(quint32 seed) : engine(seed) {}

    int Below(int limit) { return int((quint64(engine()) * quint64(limit)) >> 32); }
    int Between(int lowest, int highest) { return lowest + Below(highest - lowest + 1); }
    double Real() { return double(engine()) / 4294967296.0; } // in [0, 1)
    bool Chance(double probability) { return Real() < probability; }

    // Mean 0, deviation 1. Twelve uniform numbers are near enough, and need no function whose last
    // digit differs between machines.
    double Normal() {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += Real();
        return sum;
    }

    template<class List>
    typename List::value_type Pick(const List& list) {
        return list[Below(int(list.size()))];
    }

private:
    std::mt19937 engine;
};

} // namespace sample_data
