<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>QMWidgets::ColorButton</name>
    <message>
        <source>No valid colour</source>
        <translation>Keine gültige Farbe</translation>
    </message>
</context>
<context>
    <name>QMWidgets::LanguagePage</name>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>The interface language is used from the next start.</source>
        <translation>Die Sprache der Oberfläche gilt ab dem nächsten Start.</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>The Language is changed now.</source>
        <translation>Die Sprache ist jetzt geändert.</translation>
    </message>
</context>
<context>
    <name>QMWidgets::RemindersDialog</name>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Reminders</source>
        <translation>Erinnerungen</translation>
    </message>
    <message>
        <source>What should Halcyra remind you of?</source>
        <translation>Woran soll Halcyra Sie erinnern?</translation>
    </message>
    <message>
        <source>When:</source>
        <translation>Wann:</translation>
    </message>
    <message>
        <source>Note:</source>
        <translation>Notiz:</translation>
    </message>
</context>
<context>
    <name>QMWidgets::SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>QMWidgets::Updater</name>
    <message>
        <source>No update address is configured, so no search was made. Set the address of a version file under the setting &quot;UpdateUrl&quot;.</source>
        <translation>Es ist keine Aktualisierungsadresse eingestellt, daher wurde nicht gesucht. Tragen Sie die Adresse einer Versionsdatei unter der Einstellung &quot;UpdateUrl&quot; ein.</translation>
    </message>
    <message>
        <source>The update server at %1 gave an empty answer.</source>
        <translation>Der Aktualisierungsserver unter %1 hat eine leere Antwort gegeben.</translation>
    </message>
    <message>
        <source>The update server at %1 did not answer: %2</source>
        <translation>Der Aktualisierungsserver unter %1 hat nicht geantwortet: %2</translation>
    </message>
    <message>
        <source>The update server at %1 answered &quot;%2&quot;, which is not a version number.</source>
        <translation>Der Aktualisierungsserver unter %1 hat „%2“ geantwortet; das ist keine Versionsnummer.</translation>
    </message>
    <message>
        <source>You are using the newest version (%1).</source>
        <translation>Sie verwenden die neueste Version (%1).</translation>
    </message>
    <message>
        <source>Version %1 is available; you are using version %2.</source>
        <translation>Version %1 ist verfügbar; Sie verwenden Version %2.</translation>
    </message>
</context>
<context>
    <name>QMWidgets::UpdaterPage</name>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Searching for the updates</source>
        <translation>Suche nach Aktualisierungen</translation>
    </message>
    <message>
        <source>Please, wait ...</source>
        <translation>Bitte warten ...</translation>
    </message>
    <message>
        <source>A new version is available</source>
        <translation>Eine neue Version ist verfügbar</translation>
    </message>
    <message>
        <source>Update check</source>
        <translation>Aktualisierungsprüfung</translation>
    </message>
</context>
<context>
    <name>QMWidgets::UpdatesPage</name>
    <message>
        <source>Check for updates at start</source>
        <translation>Beim Start nach Aktualisierungen suchen</translation>
    </message>
    <message>
        <source>Update &amp;address:</source>
        <translation>Aktualisierungs&amp;adresse:</translation>
    </message>
    <message>
        <source>No address set</source>
        <translation>Keine Adresse festgelegt</translation>
    </message>
</context>
<context>
    <name>QMWidgets::VirtualResolutionDialog</name>
    <message>
        <source>Virtual Resolution</source>
        <translation>Virtuelle Auflösung</translation>
    </message>
    <message>
        <source>&amp;Scale:</source>
        <translation>&amp;Maßstab:</translation>
    </message>
    <message>
        <source>Takes effect at the next start.</source>
        <translation>Gilt ab dem nächsten Start.</translation>
    </message>
    <message>
        <source>The environment variable QT_SCALE_FACTOR is set and overrides this setting.</source>
        <translation>Die Umgebungsvariable QT_SCALE_FACTOR ist gesetzt und hat Vorrang vor dieser Einstellung.</translation>
    </message>
    <message>
        <source>%1 × %2 appears as %3 × %4</source>
        <translation>%1 × %2 erscheint als %3 × %4</translation>
    </message>
</context>
</TS>
