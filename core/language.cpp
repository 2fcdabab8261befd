#include "language.h"

#include "setting.h"

namespace QMWidgets {

QString chooseLanguage(const QString &value)
{
    for (const char *code : {"de", "ru", "es", "zh_CN"}) {
        if (value.contains(QLatin1String(code)))
            return QLatin1String(code);
    }
    return QStringLiteral("en");
}

QString interfaceLanguage()
{
    const Setting<QString> language{QStringLiteral("Language"), QLocale::system().name()};
    return chooseLanguage(language.value());
}

QLocale interfaceLocale()
{
    return QLocale(interfaceLanguage());
}

} // namespace QMWidgets
