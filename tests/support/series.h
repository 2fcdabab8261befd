#pragma once

#include "data/reader.h"

#include <algorithm>

namespace TestSupport {

// A seeded random walk of n daily bars with consistent prices (low <= open, close <= high)
// and volumes.
inline OrdaneData::ReaderH randomSeries(int n, quint64 seed = 7)
{
    auto next = [&seed] {
        seed = seed * 6364136223846793005ull + 1442695040888963407ull;
        return double(seed >> 11) * 0x1.0p-53;
    };
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    double close = 40;
    for (int i = 0; i < n; ++i) {
        const double open = close * (1 + (next() - 0.5) * 0.02);
        close = std::max(1.0, close * (1 + (next() - 0.5) * 0.05));
        series->appendBar(QuoteBar(QDate(2000, 1, 3).addDays(i), float(open),
                                   float(std::max(open, close) * (1 + next() * 0.02)),
                                   float(std::min(open, close) * (1 - next() * 0.02)), float(close),
                                   qint64(1e5 + next() * 1e6)));
    }
    return series;
}

} // namespace TestSupport
