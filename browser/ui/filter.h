#pragma once

#include "browser/filters/filtercatalogue.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace OrdaneBrowser {

class StorageBrowser;

// One page of the filter dialog: the controls of a filter of the catalogue, "&Find", a
// sortable result list ("Symbol" first), the "Found: %1 of %2" label and the apply button.
//
// A run (slotFind()) tests the storage browser's symbols (the stored ones for Fill) with the
// page's values, shows the progress through progress(int), processes the interface's events
// between symbols so that the dialog's stop button (checked: stop requested) is heard, and
// ends with the stop button unchecked and disabled and progress(0). applySelection() hands
// the selected result rows to the browser's list.
class Filter : public QWidget
{
    Q_OBJECT

public:
    Filter(const QString &name, QPushButton *stop, QWidget *parent = nullptr);

    // The filter's name; empty but for "P/E Ratio".
    virtual QString name() const;
    // Replaces the browser's list with the symbols of the selected result rows.
    virtual void applySelection();

    const FilterSpec &spec() const { return *mSpec; }
    // What the controls hold now.
    FilterValues values() const;
    // Sets a control by key; false when there is no such control or the value does not fit.
    bool setValue(const QString &key, const QVariant &value);
    QTreeWidget *results() const { return mResults; }
    QLabel *resultLabel() const { return mResultLabel; }
    int total() const { return mTotal; }
    int found() const { return mFound; }
    bool isRunning() const { return mRunning; }
    // The storage browser up the chain of parents, or nullptr.
    StorageBrowser *browser() const;

signals:
    void progress(int percent);

public slots:
    void slotProgress(int percent);
    void slotFind();
    void slotApply();

private:
    void buildControls();
    QWidget *controlWidget(const FilterControl &control);
    void addPresets(QWidget *begin, QWidget *end);
    void showFound();

    const FilterSpec *mSpec;
    QPushButton *mStop;
    QLabel *mResultLabel;
    int mTotal = 0;
    int mFound = 0;
    QTreeWidget *mResults;
    QPushButton *mFind;
    QPushButton *mApply;
    QMap<QString, QWidget *> mControls; // by key
    bool mRunning = false;
};

// The filters of the catalogue, one class each, so that every page carries its filter's class
// name; what each tests is in the catalogue (browser/filters).
class Fill : public Filter
{
    Q_OBJECT

public:
    explicit Fill(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("Fill"), stop, parent)
    {}
};

class Trend : public Filter
{
    Q_OBJECT

public:
    explicit Trend(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("Trend"), stop, parent)
    {}
};

class VolumeFilter : public Filter
{
    Q_OBJECT

public:
    explicit VolumeFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("VolumeFilter"), stop, parent)
    {}
};

class RSIFilter : public Filter
{
    Q_OBJECT

public:
    explicit RSIFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("RSIFilter"), stop, parent)
    {}
};

class StochasticFilter : public Filter
{
    Q_OBJECT

public:
    explicit StochasticFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("StochasticFilter"), stop, parent)
    {}
};

class TimeMachine : public Filter
{
    Q_OBJECT

public:
    explicit TimeMachine(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("TimeMachine"), stop, parent)
    {}
};

class Price : public Filter
{
    Q_OBJECT

public:
    explicit Price(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("Price"), stop, parent)
    {}
};

class UpToDate : public Filter
{
    Q_OBJECT

public:
    explicit UpToDate(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("UpToDate"), stop, parent)
    {}
};

class VolumeBreakOut : public Filter
{
    Q_OBJECT

public:
    explicit VolumeBreakOut(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("VolumeBreakOut"), stop, parent)
    {}
};

class MoneyFlow : public Filter
{
    Q_OBJECT

public:
    explicit MoneyFlow(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("MoneyFlow"), stop, parent)
    {}
};

class MovingAverage : public Filter
{
    Q_OBJECT

public:
    explicit MovingAverage(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("MovingAverage"), stop, parent)
    {}
};

class HCVolatilityFilter : public Filter
{
    Q_OBJECT

public:
    explicit HCVolatilityFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("HCVolatilityFilter"), stop, parent)
    {}
};

class MedianFilter : public Filter
{
    Q_OBJECT

public:
    explicit MedianFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("MedianFilter"), stop, parent)
    {}
};

class DPOFilter : public Filter
{
    Q_OBJECT

public:
    explicit DPOFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("DPOFilter"), stop, parent)
    {}
};

class ImpulsFilter : public Filter
{
    Q_OBJECT

public:
    explicit ImpulsFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("ImpulsFilter"), stop, parent)
    {}
};

class ConsolidationFilter : public Filter
{
    Q_OBJECT

public:
    explicit ConsolidationFilter(QPushButton *stop, QWidget *parent = nullptr)
        : Filter(QStringLiteral("ConsolidationFilter"), stop, parent)
    {}
};

// The P/E filter, whose name() says so.
class PE : public Filter
{
    Q_OBJECT

public:
    explicit PE(QPushButton *stop, QWidget *parent = nullptr);
    QString name() const override;
};

} // namespace OrdaneBrowser
