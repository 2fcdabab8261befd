#pragma once

#include "data/quotebar.h"

#include <QVector>

namespace benchmark {
class State;
}

// What every benchmark program shares.
namespace Bench {

// A seeded random walk of n weekday bars with prices in cents and volumes from 1 to 51
// million. Aborts if a bar breaks low <= open, close <= high, so no benchmark ever measures
// an impossible series.
QVector<QuoteBar> randomWalk(int n, quint64 seed);

// Reports items per second and the counter "ns/bar" for a benchmark whose every iteration
// went over `bars` bars.
void perBar(benchmark::State &state, int bars);

// Runs the registered benchmarks inside a Qt application: a GUI one on the offscreen
// platform when `pictures` is set (fonts need it), a core one otherwise. Returns the exit
// status.
int run(int argc, char **argv, bool pictures = false);

} // namespace Bench
