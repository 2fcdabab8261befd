#pragma once

#include "chartlayer.h"

#include <QMap>
#include <QString>

namespace OrdaneView {

// A layer computed from the series, made by identifier and tuned by named parameters: all
// that views, chart sessions and templates know of an indicator. init() prepares it for the
// current parameters, start() computes it from the series, deinit() releases what start()
// set up.
class ComputedLayer : public ChartLayer
{
    Q_OBJECT

public:
    using ChartLayer::ChartLayer;

    Q_INVOKABLE virtual void init() = 0;
    Q_INVOKABLE virtual void start() = 0;
    Q_INVOKABLE virtual void deinit() = 0;
    // The identifier it was made by, such as "RSI" or "Trend.js".
    virtual QString name() const = 0;
    // Whether it could not be computed (a script that does not load, or whose last init()
    // or start() threw): it then shows nothing of use. The failure was reported already.
    virtual bool hasFailed() const { return false; }

    // Sets a parameter, adding it when new.
    Q_INVOKABLE void setParameter(const QString &name, float value);
    const QMap<QString, float> &parameters() const { return mParameters; }
    float parameter(const QString &name, float fallback = 0) const;

private:
    QMap<QString, float> mParameters;
};

} // namespace OrdaneView
