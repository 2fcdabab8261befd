// The indicator list: which entries it offers and in what order, and what a user's
// double-click, context menu and drag hand on to the chart area.

#include "data/home.h"
#include "indicators/catalogue.h"
#include "indicators/ui/indicatorfactorywidget.h"
#include "view/ui/view.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneView;

namespace {

// The list order of the built-ins, written out independently of the catalogue table.
const char kListOrder[] = "Volume RSI EMA WMA SMA SMMA Median MACD FRC OsMA AD OBV ROC VROC ATR "
                          "Momentum CHO CHV CCI MedianPrice AO AC Bears Bulls DeMarker MFaI "
                          "StdDev WilliamsPR RVI MFI Stochastic HCVolatility HCPriceChange Impuls "
                          "Envelopes BollingerBands DPO DI ADX";
constexpr int kBuiltIns = 39;

QStringList ids(const QListWidget &list, int from = 0)
{
    QStringList result;
    for (int row = from; row < list.count(); ++row)
        result << list.item(row)->data(Qt::UserRole).toString();
    return result;
}

QListWidgetItem *entry(const QListWidget &list, const QString &id)
{
    const int row = ids(list).indexOf(id);
    return row < 0 ? nullptr : list.item(row);
}

bool shows(const QListWidgetItem *item, const char *picture)
{
    const QImage shown = item->icon().pixmap(16).toImage();
    return !shown.isNull() && shown == QIcon(QLatin1String(picture)).pixmap(16).toImage();
}

void touch(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

} // namespace

class TestIndicatorList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void builtInsInListOrder();
    void scriptsFollowBuiltIns();
    void userActionsEmitIdentifiers();
    void dragCarriesIdentifiers();

private:
    QTemporaryDir mHome;
};

void TestIndicatorList::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY(OrdaneData::Home::setPath(mHome.path()));
}

void TestIndicatorList::builtInsInListOrder()
{
    IndicatorFactoryWidget list;
    QCOMPARE(ids(list), QString::fromLatin1(kListOrder).split(QLatin1Char(' ')));
    QCOMPARE(ids(list), listedIndicators());
    for (int row = 0; row < list.count(); ++row) {
        const QString id = ids(list).at(row);
        QCOMPARE(list.item(row)->text(), indicatorTitle(id));
        QCOMPARE(list.item(row)->toolTip(), id);
        QVERIFY(shows(list.item(row), ":/pix/indicator.png"));
    }
    // A titled entry shows its title, an untitled one its identifier.
    QCOMPARE(list.item(1)->text(), QStringLiteral("Relative Strength Index"));
    QCOMPARE(list.item(0)->text(), QStringLiteral("Volume"));
}

void TestIndicatorList::scriptsFollowBuiltIns()
{
    const QString folder = OrdaneData::Home::userIndicatorsPath();
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/folder.js")));
    for (const char *name : {"Trend.js", "Aroon.bin", "notes.txt", "Trend.js~"})
        touch(folder + QLatin1Char('/') + QLatin1String(name));

    IndicatorFactoryWidget list;
    QCOMPARE(ids(list, kBuiltIns),
             QStringList({QStringLiteral("Aroon.bin"), QStringLiteral("Trend.js")}));
    QCOMPARE(list.item(kBuiltIns)->text(), QStringLiteral("Aroon.bin"));
    QVERIFY(shows(list.item(kBuiltIns), ":/pix/indicator_locked.png"));
    QVERIFY(shows(list.item(kBuiltIns + 1), ":/pix/indicator_js.png"));

    // A script written while the program runs shows after a refresh, and only once.
    touch(folder + QStringLiteral("/Breadth.js"));
    list.refresh();
    QCOMPARE(ids(list, kBuiltIns).join(QLatin1Char(',')),
             QStringLiteral("Aroon.bin,Breadth.js,Trend.js"));
    QDir(folder).removeRecursively();
}

void TestIndicatorList::userActionsEmitIdentifiers()
{
    IndicatorFactoryWidget list;
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy inPane(&list, &IndicatorFactoryWidget::addIndicators);
    QSignalSpy onChart(&list, &IndicatorFactoryWidget::addChartIndicators);
    auto taken = [](QSignalSpy &spy) {
        return spy.count() == 1 ? spy.takeFirst().at(0).toStringList().join(QLatin1Char(','))
                                : QStringLiteral("%1 signals").arg(spy.count());
    };

    // Double-click and Return add the one entry in a new pane.
    QListWidgetItem *macd = entry(list, QStringLiteral("MACD"));
    list.scrollToItem(macd);
    const QPoint centre = list.visualItemRect(macd).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(taken(inPane), QStringLiteral("MACD"));
    list.setCurrentItem(entry(list, QStringLiteral("ATR")));
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(taken(inPane), QStringLiteral("ATR"));

    // The context menu takes the selection, in list order; nothing selected, nothing added.
    QCOMPARE(list.contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(list.actions().mid(0, 2),
             QList<QAction *>({list.addInPaneAction(), list.addToChartAction()}));
    QCOMPARE(list.actions().mid(3),
             QList<QAction *>(
                 {list.newIndicatorAction(), list.editScriptAction(), list.deleteScriptAction()}));
    QCOMPARE(list.addInPaneAction()->text(), QStringLiteral("Add in New &Pane"));
    QCOMPARE(list.addToChartAction()->text(), QStringLiteral("Add to &Chart"));
    list.clearSelection();
    QVERIFY(!list.addInPaneAction()->isEnabled());
    list.addToChartAction()->trigger();
    QCOMPARE(onChart.count(), 0);

    QCOMPARE(list.selectionMode(), QAbstractItemView::ExtendedSelection);
    entry(list, QStringLiteral("ADX"))->setSelected(true);
    entry(list, QStringLiteral("EMA"))->setSelected(true);
    list.addToChartAction()->trigger();
    QCOMPARE(taken(onChart), QStringLiteral("EMA,ADX"));
    list.addInPaneAction()->trigger();
    QCOMPARE(taken(inPane), QStringLiteral("EMA,ADX"));
}

void TestIndicatorList::dragCarriesIdentifiers()
{
    const QString script = QStringLiteral("Übersicht.js");
    QVERIFY(QDir().mkpath(OrdaneData::Home::userIndicatorsPath()));
    touch(OrdaneData::Home::userIndicatorsPath() + QLatin1Char('/') + script);
    IndicatorFactoryWidget list;
    QVERIFY(list.dragEnabled());
    const QString format = QLatin1String(View::kIndicatorsMimeType);
    QCOMPARE(format, QStringLiteral("application/x-halcyra-indicators"));
    QCOMPARE(list.model()->mimeTypes(), QStringList(format));

    // Picked out of order, carried in list order, the script's name in UTF-8.
    QModelIndexList picked;
    for (const QString &id : {script, QStringLiteral("SMA"), QStringLiteral("Volume")})
        picked << list.model()->index(list.row(entry(list, id)), 0);
    std::unique_ptr<QMimeData> data(list.model()->mimeData(picked));
    QCOMPARE(data->formats(), QStringList(format));
    QCOMPARE(data->data(format), QStringLiteral("Volume\nSMA\n%1").arg(script).toUtf8());
}

QTEST_MAIN(TestIndicatorList)
#include "test_indicatorlist.moc"
