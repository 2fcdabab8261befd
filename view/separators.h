#pragma once

#include "data/quotebar.h"
#include "viewcanvas.h"

#include <QLocale>
#include <QString>
#include <QVector>

namespace OrdaneView {

// A period boundary in the visible run: it lies just before visible bar `offset`.
struct Separator
{
    int offset;
    QString label; // "MMMyy" for months, "Q1".."Q4" for quarters, "yy" for years, none for weeks
};

// The boundaries between weeks, months, quarters or years among the n bars shown from
// `first`. A boundary before the first shown bar counts when the bar before it exists.
QVector<Separator> separators(const QVector<QuoteBar> &bars, int first, int n, SeparatorMode mode,
                              const QLocale &locale);

} // namespace OrdaneView
