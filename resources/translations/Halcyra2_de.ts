<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Halcyra::MainWindow</name>
    <message>
        <source>Stored symbols</source>
        <translation>Gespeicherte Symbole</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Erster Tag</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>Last close</source>
        <translation>Letzter Schluss</translation>
    </message>
    <message>
        <source>Double-click a symbol to edit its stored quotes.</source>
        <translation>Doppelklicken Sie auf ein Symbol, um seine gespeicherten Kurse zu bearbeiten.</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Reminders...</source>
        <translation>&amp;Erinnerungen...</translation>
    </message>
    <message>
        <source>Check for &amp;Updates...</source>
        <translation>Nach &amp;Aktualisierungen suchen...</translation>
    </message>
    <message>
        <source>Go to data folder</source>
        <translation>Datenordner öffnen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>About Halcyra</source>
        <translation>Über Halcyra</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Halcyra %1&lt;/h3&gt;&lt;p&gt;Technical analysis of end-of-day stock quotes.&lt;/p&gt;&lt;p&gt;Home folder: %2&lt;/p&gt;&lt;p&gt;Released under the MIT License.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Halcyra %1&lt;/h3&gt;&lt;p&gt;Technische Analyse von Tagesschlusskursen.&lt;/p&gt;&lt;p&gt;Stammordner: %2&lt;/p&gt;&lt;p&gt;Veröffentlicht unter der MIT-Lizenz.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Erinnerung</translation>
    </message>
</context>
<context>
    <name>OrdaneData::EditCsvDialog</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The data for %1 could not be saved: %2</source>
        <translation>Die Daten für %1 konnten nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>The data for </source>
        <translation>Die Daten für </translation>
    </message>
    <message>
        <source> was successfully saved</source>
        <translation> wurden erfolgreich gespeichert</translation>
    </message>
</context>
</TS>
