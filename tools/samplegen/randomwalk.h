#pragma once

#include "data/quotebar.h"

#include <QDate>
#include <QVector>

#include <cstdint>

// The synthetic quotes of the samples: a seeded random walk per symbol on top of a shared market
// factor whose drift and volatility follow a fixed calendar of regimes. Nothing is taken from
// real quotes.
//
// Every result is reproducible bit for bit on any machine: a fixed xoshiro256** generator
// seeded by splitmix64, normal deviates as the sum of twelve uniforms, and nothing but
// correctly rounded arithmetic (no transcendental functions, whose last digit differs between
// maths libraries).

namespace SampleGen {

// How one symbol moves: the seed of its own random numbers, its response to the market factor
// and its own daily volatility (a fraction of the price).
struct Walk
{
    std::uint64_t seed;
    double beta;
    double vol;
};

// Which days a sample's exchange is closed besides weekends.
enum class Calendar { US, Germany, GermanyShort };

struct Sample
{
    const char *name; // the symbol, and the file name without ".csv"
    std::uint64_t seed;
    QDate start;
    Calendar calendar;
    double price;       // first close
    double beta;        // response to the market
    double drift;       // own daily drift
    double vol;         // own daily volatility
    double volume;      // typical daily volume at the start
    double volumeTrend; // daily growth of the typical volume

    Walk walk() const { return {seed, beta, vol}; }
};

// The five samples, in the order they are generated.
const QVector<Sample> &samples();

// The last day of every sample's history.
QDate historyEnd();

// A sample's bars, oldest first, from its start to historyEnd(): weekdays other than the
// holidays of its calendar. These are the shipped sample files.
QVector<QuoteBar> history(const Sample &sample);

// Continues a series past its last bar with one bar per weekday (no holidays) up to and
// including `until`, and returns only the new bars, oldest first. The walk starts at the last
// close, with the average volume of the last bars, rides on the same market factor as the
// histories, and is pulled gently back towards where the market alone would have taken it, so
// that it stays plausible over decades. The result depends only on the series' last bars, the
// walk and `until`; a later `until` gives the same bars and more. Empty when the series is
// empty or `until` is not after its last bar.
QVector<QuoteBar> continueSeries(const QVector<QuoteBar> &oldestFirst, const Walk &walk,
                                 const QDate &until);

} // namespace SampleGen
