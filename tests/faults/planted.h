// What a planted fault is made of. At most one is in force: that whose number MEVO_FAULT tells, read once.
#pragma once

#include <array>
#include <atomic>
#include <cstdlib>
#include <fstream>

namespace planted {

inline int Number_In_Force() {
    static const char* const told = std::getenv("MEVO_FAULT");
    static const int number = told ? std::atoi(told) : 0;
    return number;
}

// Which test case runs, counted from 1; 0 in a process that runs no cases.
inline std::atomic<int>& Running_Case() {
    static std::atomic<int> running{0};
    return running;
}

// MEVO_REACHED names a file that takes the cases and, below each, the places that it came by.
template<class Line>
void Note(const Line& line) {
    static const char* const file = std::getenv("MEVO_REACHED");
    if (file) std::ofstream(file, std::ios::app) << line << std::endl;
}

inline bool In_Force(int number) {
    static std::array<std::atomic<int>, 1000> noted_in{};
    const int running = Running_Case() + 1;
    if (noted_in[number].exchange(running) != running) Note(number);
    return number == Number_In_Force();
}

template<class T>
T Constant(int number, T sound, T faulty) {
    return In_Force(number) ? faulty : sound;
}

// Stands between the sides of a comparison or a sum: `a <Between(7)< b`.
struct Between {
    explicit Between(int number) : number(number) {}
    int number;
};

template<class Left>
struct Left_Side {
    const Left& value;
    int number;
};

#define MEVO_PLANT(sign, turned)                                                                             \
    template<class Left>                                                                                     \
    Left_Side<Left> operator sign(const Left& left, const Between& between) {                                \
        return {left, between.number};                                                                       \
    }                                                                                                        \
    template<class Left, class Right>                                                                        \
    auto operator sign(const Left_Side<Left>& left, const Right& right) {                                    \
        return In_Force(left.number) ? left.value turned right : left.value sign right;                      \
    }
MEVO_PLANT(<, <=)
MEVO_PLANT(<=, <)
MEVO_PLANT(>, >=)
MEVO_PLANT(>=, >)
MEVO_PLANT(==, !=)
MEVO_PLANT(!=, ==)
MEVO_PLANT(+, -)
MEVO_PLANT(-, +)
#undef MEVO_PLANT

} // namespace planted
