<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>Halcyra::MainWindow</name>
    <message>
        <source>Stored symbols</source>
        <translation>Сохранённые символы</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Бары</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Первый день</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Последний день</translation>
    </message>
    <message>
        <source>Last close</source>
        <translation>Последнее закрытие</translation>
    </message>
    <message>
        <source>Double-click a symbol to edit its stored quotes.</source>
        <translation>Дважды щёлкните символ, чтобы изменить его сохранённые котировки.</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Инструменты</translation>
    </message>
    <message>
        <source>&amp;Reminders...</source>
        <translation>&amp;Напоминания...</translation>
    </message>
    <message>
        <source>Check for &amp;Updates...</source>
        <translation>Проверить &amp;обновления...</translation>
    </message>
    <message>
        <source>Go to data folder</source>
        <translation>Открыть папку данных</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Выход</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Справка</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;О программе</translation>
    </message>
    <message>
        <source>About Halcyra</source>
        <translation>О программе Halcyra</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Halcyra %1&lt;/h3&gt;&lt;p&gt;Technical analysis of end-of-day stock quotes.&lt;/p&gt;&lt;p&gt;Home folder: %2&lt;/p&gt;&lt;p&gt;Released under the MIT License.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Halcyra %1&lt;/h3&gt;&lt;p&gt;Технический анализ дневных биржевых котировок.&lt;/p&gt;&lt;p&gt;Домашняя папка: %2&lt;/p&gt;&lt;p&gt;Распространяется по лицензии MIT.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Напоминание</translation>
    </message>
</context>
<context>
    <name>OrdaneData::EditCsvDialog</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Сохранить</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Отмена</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>The data for %1 could not be saved: %2</source>
        <translation>Не удалось сохранить данные для %1: %2</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Информация</translation>
    </message>
    <message>
        <source>The data for </source>
        <translation>Данные для </translation>
    </message>
    <message>
        <source> was successfully saved</source>
        <translation> успешно сохранены</translation>
    </message>
</context>
</TS>
