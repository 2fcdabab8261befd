#pragma once

#include <QString>

// Paints the flags, 16 x 11 bitmaps, into `dir` as f<country>.bmp: those of the interface
// languages (de, en, ru) and those of the exchanges' countries (data/exchanges.cpp).
// Returns false when one cannot be written.
bool saveFlags(const QString &dir);
