#pragma once

#include <QLocale>
#include <QString>

namespace QMWidgets {

// The interface language for a "Language" setting value (by default the system locale's
// name, such as "de_DE"): the first of "de", "ru", "es", "zh_CN" that the value contains,
// tested in that order, anywhere in the value and case-sensitively; otherwise "en".
QString chooseLanguage(const QString &value);

// The language chosen by the setting "Language" (default: the system locale's name).
QString interfaceLanguage();

// The locale of the interface language, for dates and month names in charts.
QLocale interfaceLocale();

} // namespace QMWidgets
