// The heap setting: once freed, the blocks of a long computation stay in the process, so that
// computing the same indicator again touches no page the system has to supply afresh.

#include "data/heap.h"
#include "indicators/compute/oscillators.h"

#include <QtTest>

#include <sys/prctl.h>
#include <sys/resource.h>

namespace {
long minorPageFaults()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}
} // namespace

class TestHeap : public QObject
{
    Q_OBJECT

private slots:
    void recomputingTouchesNoFreshPages()
    {
#if !defined(__GLIBC__)
        QSKIP("only the GNU C library is asked to keep freed blocks");
#endif
        // Counted in 4 KiB pages: where the system hands out huge pages unasked, a fresh
        // mapping would cost only a handful of faults and hide among the stray ones.
        prctl(PR_SET_THP_DISABLE, 1, 0, 0, 0);
        OrdaneData::Heap::reuseLargeBlocks();
        // A million bars: each buffer of MACD is 4 MB, far above the size from which the
        // allocator would otherwise map fresh pages for a block and unmap them when it is freed.
        QVector<QuoteBar> bars;
        bars.reserve(1000000);
        for (int i = 0; i < 1000000; ++i)
            bars.append(QuoteBar(QDate(2000, 1, 3), 10, 12, 9, 10 + float(i % 7), 100));
        Indicators::computeMACD(bars, Indicators::Params());
        const long before = minorPageFaults();
        Indicators::computeMACD(bars, Indicators::Params());
        const long faults = minorPageFaults() - before;
        // A 4 MB block taken afresh costs about a thousand faults; a few stray ones are the
        // test's own.
        QVERIFY2(faults < 20, qPrintable(QStringLiteral("%1 minor page faults").arg(faults)));
    }
};

QTEST_GUILESS_MAIN(TestHeap)
#include "test_heap.moc"
