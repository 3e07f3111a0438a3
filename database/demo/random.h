#pragma once

#include <QtGlobal>

// Pseudo-random numbers that are the same on every machine (the standard distributions are not).
class TDemoRandom {
public:
    explicit TDemoRandom(quint64 seed) : state(seed) {}

    // A whole number from 0 up to but excluding limit.
    int below(int limit) { return int(next() % quint64(limit)); }
    int between(int first, int last) { return first + below(last - first + 1); }
    bool chance(int percent) { return below(100) < percent; }

    template<typename List> const auto &anyOf(const List &list) { return list.at(below(int(list.size()))); }

private:
    quint64 next()
    {
        state += 0x9e3779b97f4a7c15ULL;
        quint64 z = state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }

    quint64 state;
};
