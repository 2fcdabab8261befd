// The shared series handle: ownership, the null handle, travelling through signals.

#include "data/error.h"
#include "data/reader.h"
#include "data/readerh.h"

#include <QPointer>
#include <QtTest>

using namespace OrdaneData;

class Receiver : public QObject
{
    Q_OBJECT
public:
    ReaderH received;
public slots:
    void slotSetReader(OrdaneData::ReaderH handle) { received = handle; }
};

class TestHandle : public QObject
{
    Q_OBJECT

private slots:
    void nullHandleThrows();
    void lastCopyDeletesTheReader();
    void travelsThroughQueuedSignals();
};

void TestHandle::nullHandleThrows()
{
    const ReaderH empty;
    QVERIFY(empty.isNull());
    try {
        empty->count();
        QFAIL("no exception");
    } catch (const MTools::Error &e) {
        QCOMPARE(e.text(), QStringLiteral("Null handle"));
        QCOMPARE(QByteArray(e.what()), QByteArray("Null handle"));
    }
    QVERIFY_EXCEPTION_THROWN(*empty, MTools::Error);
    QVERIFY(ReaderH(nullptr).isNull());
}

void TestHandle::lastCopyDeletesTheReader()
{
    QPointer<Reader> watched;
    {
        ReaderH a = ReaderH::create();
        watched = a.reader();
        QCOMPARE(a.useCount(), 1);
        {
            ReaderH b = a;
            ReaderH c;
            c = b;
            QCOMPARE(a.useCount(), 3);
            QCOMPARE(c.reader(), a.reader());
            ReaderH moved = std::move(c);
            QVERIFY(c.isNull());
            QCOMPARE(a.useCount(), 3);
        }
        QCOMPARE(a.useCount(), 1);
        a = a; // self-assignment keeps it
        QVERIFY(!watched.isNull());
    }
    QVERIFY(watched.isNull());
}

void TestHandle::travelsThroughQueuedSignals()
{
    Receiver receiver;
    ReaderH handle = ReaderH::create();
    QVERIFY(QMetaObject::invokeMethod(&receiver, "slotSetReader", Qt::QueuedConnection,
                                      Q_ARG(OrdaneData::ReaderH, handle)));
    QTRY_VERIFY(!receiver.received.isNull());
    QCOMPARE(receiver.received, handle);
    QCOMPARE(handle.useCount(), 2);
}

QTEST_GUILESS_MAIN(TestHandle)
#include "test_handle.moc"
