<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>QMWidgets::ColorButton</name>
    <message>
        <source>No valid colour</source>
        <translation>Недопустимый цвет</translation>
    </message>
</context>
<context>
    <name>QMWidgets::LanguagePage</name>
    <message>
        <source>English</source>
        <translation>Английский</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Русский</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Немецкий</translation>
    </message>
    <message>
        <source>The interface language is used from the next start.</source>
        <translation>Язык интерфейса применяется со следующего запуска.</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Язык:</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
    <message>
        <source>The Language is changed now.</source>
        <translation>Язык изменён.</translation>
    </message>
</context>
<context>
    <name>QMWidgets::RemindersDialog</name>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Добавить</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Удалить</translation>
    </message>
    <message>
        <source>Reminders</source>
        <translation>Напоминания</translation>
    </message>
    <message>
        <source>What should Halcyra remind you of?</source>
        <translation>О чём Halcyra должна вам напомнить?</translation>
    </message>
    <message>
        <source>When:</source>
        <translation>Когда:</translation>
    </message>
    <message>
        <source>Note:</source>
        <translation>Заметка:</translation>
    </message>
</context>
<context>
    <name>QMWidgets::SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
</context>
<context>
    <name>QMWidgets::Updater</name>
    <message>
        <source>No update address is configured, so no search was made. Set the address of a version file under the setting &quot;UpdateUrl&quot;.</source>
        <translation>Адрес обновлений не задан, поиск не выполнялся. Укажите адрес файла версии в настройке &quot;UpdateUrl&quot;.</translation>
    </message>
    <message>
        <source>The update server at %1 gave an empty answer.</source>
        <translation>Сервер обновлений %1 вернул пустой ответ.</translation>
    </message>
    <message>
        <source>The update server at %1 did not answer: %2</source>
        <translation>Сервер обновлений %1 не ответил: %2</translation>
    </message>
    <message>
        <source>The update server at %1 answered &quot;%2&quot;, which is not a version number.</source>
        <translation>Сервер обновлений %1 ответил «%2», это не номер версии.</translation>
    </message>
    <message>
        <source>You are using the newest version (%1).</source>
        <translation>Вы используете новейшую версию (%1).</translation>
    </message>
    <message>
        <source>Version %1 is available; you are using version %2.</source>
        <translation>Доступна версия %1; у вас версия %2.</translation>
    </message>
</context>
<context>
    <name>QMWidgets::UpdaterPage</name>
    <message>
        <source>Updates</source>
        <translation>Обновления</translation>
    </message>
    <message>
        <source>Searching for the updates</source>
        <translation>Поиск обновлений</translation>
    </message>
    <message>
        <source>Please, wait ...</source>
        <translation>Пожалуйста, подождите ...</translation>
    </message>
    <message>
        <source>A new version is available</source>
        <translation>Доступна новая версия</translation>
    </message>
    <message>
        <source>Update check</source>
        <translation>Проверка обновлений</translation>
    </message>
</context>
<context>
    <name>QMWidgets::UpdatesPage</name>
    <message>
        <source>Check for updates at start</source>
        <translation>Проверять обновления при запуске</translation>
    </message>
    <message>
        <source>Update &amp;address:</source>
        <translation>&amp;Адрес обновлений:</translation>
    </message>
    <message>
        <source>No address set</source>
        <translation>Адрес не задан</translation>
    </message>
</context>
<context>
    <name>QMWidgets::VirtualResolutionDialog</name>
    <message>
        <source>Virtual Resolution</source>
        <translation>Виртуальное разрешение</translation>
    </message>
    <message>
        <source>&amp;Scale:</source>
        <translation>&amp;Масштаб:</translation>
    </message>
    <message>
        <source>Takes effect at the next start.</source>
        <translation>Вступает в силу при следующем запуске.</translation>
    </message>
    <message>
        <source>The environment variable QT_SCALE_FACTOR is set and overrides this setting.</source>
        <translation>Задана переменная окружения QT_SCALE_FACTOR, она имеет приоритет над этой настройкой.</translation>
    </message>
    <message>
        <source>%1 × %2 appears as %3 × %4</source>
        <translation>%1 × %2 выглядит как %3 × %4</translation>
    </message>
</context>
</TS>
