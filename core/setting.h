#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

namespace QMWidgets {

// One key of the settings store with its default, declared where the key is used:
//
//   const Setting<bool> checkUpdates{QStringLiteral("checkupdates"), false};
//   if (checkUpdates.value()) ...
//
// The store is the application's QSettings (organization "Skarvel", application
// "Halcyra2"); tests redirect it with QStandardPaths::setTestModeEnabled().
template <typename T> class Setting
{
public:
    Setting(QString key, T fallback)
        : mKey(std::move(key))
        , mDefault(std::move(fallback))
    {}

    const QString &key() const { return mKey; }
    const T &defaultValue() const { return mDefault; }

    // The stored value, or the default when the key is absent or cannot be read as T.
    T value() const { return value(QSettings()); }
    // The same from another store, such as one opened before the application's identity is
    // set.
    T value(const QSettings &store) const
    {
        QVariant v = store.value(mKey);
        return v.isValid() && v.convert(qMetaTypeId<T>()) ? v.value<T>() : mDefault;
    }
    void setValue(const T &value) const { QSettings().setValue(mKey, QVariant::fromValue(value)); }
    bool isStored() const { return QSettings().contains(mKey); }
    void reset() const { QSettings().remove(mKey); }

private:
    QString mKey;
    T mDefault;
};

} // namespace QMWidgets
