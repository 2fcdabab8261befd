<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Halcyra::MainWindow</name>
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
    <message>
        <source>&amp;English</source>
        <translation>&amp;Englisch</translation>
    </message>
    <message>
        <source>&amp;Russian</source>
        <translation>&amp;Russisch</translation>
    </message>
    <message>
        <source>&amp;German</source>
        <translation>&amp;Deutsch</translation>
    </message>
    <message>
        <source>Work Area</source>
        <translation>Arbeitsbereich</translation>
    </message>
    <message>
        <source>Browser</source>
        <translation>Browser</translation>
    </message>
    <message>
        <source>Indicators</source>
        <translation>Indikatoren</translation>
    </message>
    <message>
        <source>Candle Guru</source>
        <translation>Kerzen-Guru</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Full &amp;Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Virtual Resolution</source>
        <translation>&amp;Virtuelle Auflösung</translation>
    </message>
    <message>
        <source>Virtul Resolution</source>
        <translation>Virtuelle Auflösung</translation>
    </message>
    <message>
        <source>Load &amp;Template</source>
        <translation>&amp;Vorlage laden</translation>
    </message>
    <message>
        <source>Save T&amp;emplate</source>
        <translation>Vorlage &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Predefined Templates</source>
        <translation>&amp;Mitgelieferte Vorlagen</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>&amp;Einstellungen...</translation>
    </message>
    <message>
        <source>Open a Settings Dialog</source>
        <translation>Öffnet die Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Languages</source>
        <translation>&amp;Sprachen</translation>
    </message>
    <message>
        <source>Menu Panel</source>
        <translation>Menüleiste</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Virtual Resolution</source>
        <translation>Virtuelle Auflösung</translation>
    </message>
    <message>
        <source>Load Template</source>
        <translation>Vorlage laden</translation>
    </message>
    <message>
        <source>Save Template</source>
        <translation>Vorlage speichern</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Chart Colours</source>
        <translation>Chart-Farben</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>Template loaded</source>
        <translation>Vorlage geladen</translation>
    </message>
    <message>
        <source>Update &amp;Quotes</source>
        <translation>&amp;Kurse aktualisieren</translation>
    </message>
    <message>
        <source>Bring every stored symbol up to date from the quote service</source>
        <translation>Alle gespeicherten Symbole vom Kursdienst aktualisieren</translation>
    </message>
    <message>
        <source>Quote Service</source>
        <translation>Kursdienst</translation>
    </message>
    <message>
        <source>Observer</source>
        <translation>Beobachter</translation>
    </message>
    <message>
        <source>Bulls</source>
        <translation>Bullen</translation>
    </message>
</context>
<context>
    <name>Halcyra::QuoteUpdates</name>
    <message>
        <source>Quotes %v of %m</source>
        <translation>Kurse %v von %m</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop updating the quotes after the symbol under way</source>
        <translation>Die Aktualisierung nach dem laufenden Symbol anhalten</translation>
    </message>
    <message>
        <source>The quotes are being updated already.</source>
        <translation>Die Kurse werden bereits aktualisiert.</translation>
    </message>
    <message>
        <source>Stopped. %1</source>
        <translation>Angehalten. %1</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::Benchmarking</name>
    <message>
        <source>&lt;H2&gt;Compare with selected:&lt;/H2&gt;</source>
        <translation>&lt;H2&gt;Mit der Auswahl vergleichen:&lt;/H2&gt;</translation>
    </message>
    <message>
        <source>Benchmarking</source>
        <translation>Benchmarking</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Stock exchange</source>
        <translation>Börse</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::BrowserUpdater</name>
    <message>
        <source>&amp;Update</source>
        <translation>A&amp;ktualisieren</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Ausblenden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>%1 Updater</source>
        <translation>%1-Aktualisierer</translation>
    </message>
    <message>
        <source>Update All Data</source>
        <translation>Alle Daten aktualisieren</translation>
    </message>
    <message>
        <source>Update Visible Items Only</source>
        <translation>Nur sichtbare Einträge aktualisieren</translation>
    </message>
    <message>
        <source>The last run is still ending; try again in a moment.</source>
        <translation>Der letzte Lauf endet noch; bitte gleich noch einmal versuchen.</translation>
    </message>
    <message>
        <source>There is nothing to update.</source>
        <translation>Es gibt nichts zu aktualisieren.</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&lt;CENTER&gt;Updated %1 of %2&lt;BR&gt;Current: %3&lt;/CENTER&gt;</source>
        <translation>&lt;CENTER&gt;%1 von %2 aktualisiert&lt;BR&gt;Aktuell: %3&lt;/CENTER&gt;</translation>
    </message>
    <message>
        <source>Stopped after %1 of %2 symbols.</source>
        <translation>Angehalten nach %1 von %2 Symbolen.</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::Filter</name>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Volume Range</source>
        <translation>Umsatzbereich</translation>
    </message>
    <message>
        <source>newest day</source>
        <translation>neuester Tag</translation>
    </message>
    <message>
        <source>(unknown)</source>
        <translation>(unbekannt)</translation>
    </message>
    <message>
        <source>List Operations</source>
        <translation>Listenfunktionen</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Alle ankreuzen</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Alle abwählen</translation>
    </message>
    <message>
        <source>Inverte</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>Capitalization Levels</source>
        <translation>Kapitalisierungsstufen</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Found: %1 of %2</source>
        <translation>Gefunden: %1 von %2</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::FilterDialog</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source> Filter</source>
        <translation> Filter</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Ausblenden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::IndexExpandDialog</name>
    <message>
        <source>Expand Index %1</source>
        <translation>Index %1 aufklappen</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Alle ankreuzen</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Alle abwählen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>No members of %1 are listed in %2.</source>
        <translation>In %2 sind keine Mitglieder von %1 verzeichnet.</translation>
    </message>
    <message>
        <source>Check the members of %1 to add to the browser.</source>
        <translation>Die Mitglieder von %1 ankreuzen, die in den Browser sollen.</translation>
    </message>
    <message>
        <source>&amp;Add Selected</source>
        <translation>Auswahl &amp;hinzufügen</translation>
    </message>
    <message>
        <source>%1 of %2 checked</source>
        <translation>%1 von %2 angekreuzt</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::InfoDialog</name>
    <message>
        <source>Market capitalisation</source>
        <translation>Marktkapitalisierung</translation>
    </message>
    <message>
        <source>EBITDA</source>
        <translation>EBITDA</translation>
    </message>
    <message>
        <source>P/E ratio</source>
        <translation>KGV</translation>
    </message>
    <message>
        <source>PEG ratio</source>
        <translation>PEG-Verhältnis</translation>
    </message>
    <message>
        <source>Price/sales ratio</source>
        <translation>Kurs-Umsatz-Verhältnis</translation>
    </message>
    <message>
        <source>Price/book ratio</source>
        <translation>Kurs-Buchwert-Verhältnis</translation>
    </message>
    <message>
        <source>Book value per share</source>
        <translation>Buchwert je Aktie</translation>
    </message>
    <message>
        <source>Earnings per share</source>
        <translation>Gewinn je Aktie</translation>
    </message>
    <message>
        <source>EPS estimate, this year</source>
        <translation>Gewinnschätzung je Aktie, dieses Jahr</translation>
    </message>
    <message>
        <source>EPS estimate, next year</source>
        <translation>Gewinnschätzung je Aktie, nächstes Jahr</translation>
    </message>
    <message>
        <source>EPS estimate, next quarter</source>
        <translation>Gewinnschätzung je Aktie, nächstes Quartal</translation>
    </message>
    <message>
        <source>P/E on this year&apos;s estimate</source>
        <translation>KGV auf die Schätzung dieses Jahres</translation>
    </message>
    <message>
        <source>Dividend per share</source>
        <translation>Dividende je Aktie</translation>
    </message>
    <message>
        <source>Dividend yield</source>
        <translation>Dividendenrendite</translation>
    </message>
    <message>
        <source>Ex-dividend date</source>
        <translation>Ex-Dividenden-Tag</translation>
    </message>
    <message>
        <source>Dividend pay date</source>
        <translation>Dividenden-Zahltag</translation>
    </message>
    <message>
        <source>Short ratio</source>
        <translation>Leerverkaufsquote</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Symbol Information</source>
        <translation>Symbol-Information</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>No information is stored about %1.</source>
        <translation>Über %1 ist nichts gespeichert.</translation>
    </message>
    <message>
        <source>Valuation</source>
        <translation>Bewertung</translation>
    </message>
    <message>
        <source>Trading</source>
        <translation>Handel</translation>
    </message>
    <message>
        <source>Earnings</source>
        <translation>Gewinne</translation>
    </message>
    <message>
        <source>Dividends</source>
        <translation>Dividenden</translation>
    </message>
    <message>
        <source>Last refresh</source>
        <translation>Zuletzt aufgefrischt</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::MetaStockImportDialog</name>
    <message>
        <source>MetaStock MASTER-File import</source>
        <translation>MetaStock-MASTER-Datei importieren</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Import All</source>
        <translation>Alle importieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::NotAvailableDialog</name>
    <message>
        <source>Stock exchange</source>
        <translation>Börse</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>&lt;H2&gt;&lt;CENTER&gt;Sorry, the historical data for the &lt;BR&gt;following items is not availible&lt;/CENTER&gt;&lt;/H2&gt;</source>
        <translation>&lt;H2&gt;&lt;CENTER&gt;Leider sind die historischen Daten der &lt;BR&gt;folgenden Werte nicht verfügbar&lt;/CENTER&gt;&lt;/H2&gt;</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;OK</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::ObserverList</name>
    <message>
        <source>Drag symbols from the browser and drop them here.</source>
        <translation>Symbole aus dem Browser hierher ziehen.</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::ObserverWindow</name>
    <message>
        <source>Export Charts</source>
        <translation>Charts exportieren</translation>
    </message>
    <message>
        <source>Import Charts</source>
        <translation>Charts importieren</translation>
    </message>
    <message>
        <source>Copy the stored quotes of the selected symbols into a folder</source>
        <translation>Die gespeicherten Kurse der gewählten Symbole in einen Ordner kopieren</translation>
    </message>
    <message>
        <source>Add the symbols of quote files to this list</source>
        <translation>Die Symbole von Kursdateien dieser Liste hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Show Chart</source>
        <translation>Chart &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Export Charts</source>
        <translation>Charts &amp;exportieren</translation>
    </message>
    <message>
        <source>&amp;Import Charts</source>
        <translation>Charts &amp;importieren</translation>
    </message>
    <message>
        <source>Quote files (*.csv)</source>
        <translation>Kursdateien (*.csv)</translation>
    </message>
    <message>
        <source>Select the symbols whose charts to export.</source>
        <translation>Die Symbole wählen, deren Charts exportiert werden sollen.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1: no stored quotes (%2)</source>
        <translation>%1: keine gespeicherten Kurse (%2)</translation>
    </message>
    <message>
        <source>%1 exists already. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 of %2 charts exported to %3.</source>
        <translation>%1 von %2 Charts nach %3 exportiert.</translation>
    </message>
    <message>
        <source>These charts could not be exported:</source>
        <translation>Diese Charts konnten nicht exportiert werden:</translation>
    </message>
    <message>
        <source>%1: not a quote file</source>
        <translation>%1: keine Kursdatei</translation>
    </message>
    <message>
        <source>%1 of %2 files imported.</source>
        <translation>%1 von %2 Dateien importiert.</translation>
    </message>
    <message>
        <source>These files were not imported:</source>
        <translation>Diese Dateien wurden nicht importiert:</translation>
    </message>
    <message>
        <source>%1 has no stored quotes.</source>
        <translation>%1 hat keine gespeicherten Kurse.</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::Scanner</name>
    <message>
        <source>&amp;Scan</source>
        <translation>&amp;Suchlauf</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Ausblenden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>%1 Scanner</source>
        <translation>%1-Scanner</translation>
    </message>
    <message>
        <source>The index of the first candidate to try</source>
        <translation>Die Nummer des ersten zu probierenden Kandidaten</translation>
    </message>
    <message>
        <source>Appended to every candidate, such as the market&apos;s suffix</source>
        <translation>An jeden Kandidaten angehängt, etwa die Endung des Marktes</translation>
    </message>
    <message>
        <source>The characters candidates are made of; the last one is never used</source>
        <translation>Die Zeichen, aus denen Kandidaten bestehen; das letzte wird nie benutzt</translation>
    </message>
    <message>
        <source>The longest candidate, and the width &quot;Fill out:&quot; pads to</source>
        <translation>Der längste Kandidat und die Breite, auf die „Fill out:“ auffüllt</translation>
    </message>
    <message>
        <source>Pads shorter candidates on the left with its first character</source>
        <translation>Füllt kürzere Kandidaten links mit seinem ersten Zeichen auf</translation>
    </message>
    <message>
        <source>&amp;Start value:</source>
        <translation>&amp;Startwert:</translation>
    </message>
    <message>
        <source>Prefix:</source>
        <translation>Präfix:</translation>
    </message>
    <message>
        <source>Postfix:</source>
        <translation>Postfix:</translation>
    </message>
    <message>
        <source>Symbols:</source>
        <translation>Symbole:</translation>
    </message>
    <message>
        <source>Padding:</source>
        <translation>Auffüllen:</translation>
    </message>
    <message>
        <source>Fill out:</source>
        <translation>Auffüllen bis:</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&lt;CENTER&gt;Scaned %1 of %2&lt;BR&gt;Found: %3&lt;BR&gt;Current: %4&lt;BR&gt;&lt;/CENTER&gt;</source>
        <translation>&lt;CENTER&gt;%1 von %2 geprüft&lt;BR&gt;Gefunden: %3&lt;BR&gt;Aktuell: %4&lt;BR&gt;&lt;/CENTER&gt;</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::StockList</name>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Stock exchange</source>
        <translation>Börse</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::StorageBrowser</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Ausblenden</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>%1 is not a quote file.</source>
        <translation>%1 ist keine Kursdatei.</translation>
    </message>
    <message>
        <source>%1 holds no quotes.</source>
        <translation>%1 enthält keine Kurse.</translation>
    </message>
    <message>
        <source>%1 Items</source>
        <translation>%1 Einträge</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Symbol/Name</source>
        <translation>Symbol/Name</translation>
    </message>
    <message>
        <source>MSFT, ADS.DE, ^GDAXI ...</source>
        <translation>MSFT, ADS.DE, ^GDAXI ...</translation>
    </message>
    <message>
        <source>Fetch the quotes of the symbol and add it to the list</source>
        <translation>Die Kurse des Symbols laden und es der Liste hinzufügen</translation>
    </message>
    <message>
        <source>Select the first row whose symbol or name holds the text</source>
        <translation>Die erste Zeile wählen, deren Symbol oder Name den Text enthält</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Stop after the symbol or file under way</source>
        <translation>Nach dem laufenden Symbol oder der laufenden Datei anhalten</translation>
    </message>
    <message>
        <source>Save the Symbols</source>
        <translation>Symbole speichern</translation>
    </message>
    <message>
        <source>Load the Symbols</source>
        <translation>Symbole laden</translation>
    </message>
    <message>
        <source>List Operations</source>
        <translation>Listenfunktionen</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Alle ankreuzen</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Alle abwählen</translation>
    </message>
    <message>
        <source>Inverte</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>Hide All</source>
        <translation>Alle ausblenden</translation>
    </message>
    <message>
        <source>Hide Checked</source>
        <translation>Angekreuzte ausblenden</translation>
    </message>
    <message>
        <source>Export Checked...</source>
        <translation>Angekreuzte exportieren...</translation>
    </message>
    <message>
        <source>Erase Checked...</source>
        <translation>Angekreuzte löschen...</translation>
    </message>
    <message>
        <source>Pair Checked with Selected</source>
        <translation>Angekreuztes mit Gewähltem paaren</translation>
    </message>
    <message>
        <source>Check Store</source>
        <translation>Speicher prüfen</translation>
    </message>
    <message>
        <source>Files Import</source>
        <translation>Dateiimport</translation>
    </message>
    <message>
        <source>Import &amp;MetaTrader Files</source>
        <translation>&amp;MetaTrader-Dateien importieren</translation>
    </message>
    <message>
        <source>Import %1 Files</source>
        <translation>%1-Dateien importieren</translation>
    </message>
    <message>
        <source>Import &amp;MetaStock MASTER file </source>
        <translation>&amp;MetaStock-MASTER-Datei importieren </translation>
    </message>
    <message>
        <source>Merge MetaTrader Files</source>
        <translation>MetaTrader-Dateien einmischen</translation>
    </message>
    <message>
        <source>Merge %1 Files</source>
        <translation>%1-Dateien einmischen</translation>
    </message>
    <message>
        <source>Merge RBK Files</source>
        <translation>RBK-Dateien einmischen</translation>
    </message>
    <message>
        <source>%1 could not be fetched: %2</source>
        <translation>%1 konnte nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>Fetching %1 symbols ...</source>
        <translation>Lade %1 Symbole ...</translation>
    </message>
    <message>
        <source>Fetching stopped: %1 of %2 symbols listed.</source>
        <translation>Laden angehalten: %1 von %2 Symbolen aufgelistet.</translation>
    </message>
    <message>
        <source>Save Browser Symbols</source>
        <translation>Browser-Symbole speichern</translation>
    </message>
    <message>
        <source>The list could not be saved: %1</source>
        <translation>Die Liste konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Load Browser Symbols</source>
        <translation>Browser-Symbole laden</translation>
    </message>
    <message>
        <source>No symbol or name holds &quot;%1&quot;.</source>
        <translation>Kein Symbol und kein Name enthält „%1“.</translation>
    </message>
    <message>
        <source>Updating %1 ...</source>
        <translation>Aktualisiere %1 ...</translation>
    </message>
    <message>
        <source>Check the rows to export first.</source>
        <translation>Zuerst die zu exportierenden Zeilen ankreuzen.</translation>
    </message>
    <message>
        <source>Export Checked</source>
        <translation>Angekreuzte exportieren</translation>
    </message>
    <message>
        <source>%1 files exported to %2.</source>
        <translation>%1 Dateien nach %2 exportiert.</translation>
    </message>
    <message>
        <source>Not exported: %1.</source>
        <translation>Nicht exportiert: %1.</translation>
    </message>
    <message>
        <source>Check the rows to erase first.</source>
        <translation>Zuerst die zu löschenden Zeilen ankreuzen.</translation>
    </message>
    <message>
        <source>Erase Checked</source>
        <translation>Angekreuzte löschen</translation>
    </message>
    <message>
        <source>Delete the stored quotes of these %1 symbols from the disk?

%2</source>
        <translation>Die gespeicherten Kurse dieser %1 Symbole von der Festplatte löschen?

%2</translation>
    </message>
    <message>
        <source>These could not be deleted: %1</source>
        <translation>Diese konnten nicht gelöscht werden: %1</translation>
    </message>
    <message>
        <source>Check the row to pair with the chart first.</source>
        <translation>Zuerst die Zeile ankreuzen, die mit dem Chart gepaart werden soll.</translation>
    </message>
    <message>
        <source>&amp;Expand Index</source>
        <translation>Index &amp;aufklappen</translation>
    </message>
    <message>
        <source>&amp;Info</source>
        <translation>&amp;Info</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>A&amp;ktualisieren</translation>
    </message>
    <message>
        <source>Importing %1 files ...</source>
        <translation>Importiere %1 Dateien ...</translation>
    </message>
    <message>
        <source>Import Files (Overwrite)</source>
        <translation>Dateien importieren (überschreiben)</translation>
    </message>
    <message>
        <source>Import Files (Merge)</source>
        <translation>Dateien importieren (einmischen)</translation>
    </message>
    <message>
        <source>Import File (Merge)</source>
        <translation>Datei importieren (einmischen)</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>First</source>
        <translation>Erster</translation>
    </message>
    <message>
        <source>Last</source>
        <translation>Letzter</translation>
    </message>
    <message>
        <source>Bad lines</source>
        <translation>Fehlerhafte Zeilen</translation>
    </message>
    <message>
        <source>Repeated dates</source>
        <translation>Doppelte Tage</translation>
    </message>
    <message>
        <source>Out of order</source>
        <translation>Außer der Reihe</translation>
    </message>
    <message>
        <source>Gaps</source>
        <translation>Lücken</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>in Ordnung</translation>
    </message>
    <message>
        <source>damaged</source>
        <translation>beschädigt</translation>
    </message>
    <message>
        <source>%1 of %2 files have problems; nothing was changed.</source>
        <translation>%1 von %2 Dateien haben Fehler; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>All %1 files are sound.</source>
        <translation>Alle %1 Dateien sind in Ordnung.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Scanner</source>
        <translation>Scanner</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Update All Data</source>
        <translation>Alle Daten aktualisieren</translation>
    </message>
    <message>
        <source>Update Visible Items Only</source>
        <translation>Nur sichtbare Einträge aktualisieren</translation>
    </message>
    <message>
        <source>Benchmarking</source>
        <translation>Benchmarking</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::SuggestDialog</name>
    <message>
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Equity</source>
        <translation>Aktie</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Stock exchange</source>
        <translation>Börse</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Symbol not found</source>
        <translation>Symbol nicht gefunden</translation>
    </message>
    <message>
        <source>There are no quotes for &quot;%1&quot;, and nothing like it is known.</source>
        <translation>Für „%1“ gibt es keine Kurse, und nichts Ähnliches ist bekannt.</translation>
    </message>
    <message>
        <source>There are no quotes for &quot;%1&quot;. Perhaps one of these is meant:</source>
        <translation>Für „%1“ gibt es keine Kurse. Vielleicht ist einer von diesen gemeint:</translation>
    </message>
    <message>
        <source>&amp;Add Selected</source>
        <translation>Auswahl &amp;hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Asking the quote service ...</source>
        <translation>Frage den Kursdienst ...</translation>
    </message>
    <message>
        <source>Quotes available</source>
        <translation>Kurse verfügbar</translation>
    </message>
    <message>
        <source>No quotes</source>
        <translation>Keine Kurse</translation>
    </message>
</context>
<context>
    <name>OrdaneData::DataManager</name>
    <message>
        <source>no exchange known</source>
        <translation>keine Börse bekannt</translation>
    </message>
    <message>
        <source>imported data</source>
        <translation>importierte Daten</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>wird nicht geladen</translation>
    </message>
</context>
<context>
    <name>OrdaneData::DataUpdater</name>
    <message>
        <source>the quote service has no current quotes</source>
        <translation>der Kursdienst liefert keine aktuellen Kurse</translation>
    </message>
    <message>
        <source>not a current quote: %1</source>
        <translation>kein aktueller Kurs: %1</translation>
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
<context>
    <name>OrdaneData::QuoteService</name>
    <message>
        <source>No quote service is configured</source>
        <translation>Kein Kursdienst eingerichtet</translation>
    </message>
    <message>
        <source>empty reply</source>
        <translation>leere Antwort</translation>
    </message>
    <message>
        <source>not a quote table: %1</source>
        <translation>keine Kurstabelle: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneData::QuoteServicePage</name>
    <message>
        <source>&amp;Try</source>
        <translation>&amp;Ausprobieren</translation>
    </message>
    <message>
        <source>Quote tables and fields (&quot;table&quot;)</source>
        <translation>Kurstabellen und Felder („table“)</translation>
    </message>
    <message>
        <source>Daily CSV (&quot;stooq&quot;)</source>
        <translation>Tages-CSV („stooq“)</translation>
    </message>
    <message>
        <source>Not set, for example http://127.0.0.1:8700</source>
        <translation>Nicht gesetzt, zum Beispiel http://127.0.0.1:8700</translation>
    </message>
    <message>
        <source>&amp;Provider:</source>
        <translation>&amp;Anbieter:</translation>
    </message>
    <message>
        <source>&amp;Table host:</source>
        <translation>&amp;Tabellen-Server:</translation>
    </message>
    <message>
        <source>&amp;Quote host:</source>
        <translation>&amp;Kurs-Server:</translation>
    </message>
    <message>
        <source>API &amp;key:</source>
        <translation>API-&amp;Schlüssel:</translation>
    </message>
    <message>
        <source>S&amp;ymbol:</source>
        <translation>S&amp;ymbol:</translation>
    </message>
    <message>
        <source>A symbol to try the service with</source>
        <translation>Ein Symbol, mit dem der Dienst ausprobiert wird</translation>
    </message>
    <message>
        <source>Historical tables come from the table host, current quotes and the symbols&apos; metadata from the quote host.</source>
        <translation>Historische Tabellen kommen vom Tabellen-Server, aktuelle Kurse und die Stammdaten der Symbole vom Kurs-Server.</translation>
    </message>
    <message>
        <source>Daily tables only: no current quotes and no metadata. Symbols carry the service&apos;s suffixes, such as aapl.us or ads.de.</source>
        <translation>Nur Tagestabellen: keine aktuellen Kurse und keine Stammdaten. Die Symbole tragen die Endungen des Dienstes, etwa aapl.us oder ads.de.</translation>
    </message>
    <message>
        <source>The service answered with the last days of %1: %2 rows.</source>
        <translation>Der Dienst lieferte die letzten Tage von %1: %2 Zeilen.</translation>
    </message>
    <message>
        <source>Asking %1 ...</source>
        <translation>Frage %1 an ...</translation>
    </message>
    <message>
        <source>No quotes for %1: %2</source>
        <translation>Keine Kurse für %1: %2</translation>
    </message>
</context>
<context>
    <name>OrdaneData::UpdateSummary</name>
    <message>
        <source>%1 updated</source>
        <translation>%1 aktualisiert</translation>
    </message>
    <message>
        <source>%1 up to date</source>
        <translation>%1 aktuell</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 übersprungen</translation>
    </message>
    <message>
        <source>%1 failed (%2)</source>
        <translation>%1 fehlgeschlagen (%2)</translation>
    </message>
    <message>
        <source>Quotes: nothing to do</source>
        <translation>Kurse: nichts zu tun</translation>
    </message>
    <message>
        <source>Quotes: %1</source>
        <translation>Kurse: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::CandlesExpertPanel</name>
    <message>
        <source>Activate Guru</source>
        <translation>Guru aktivieren</translation>
    </message>
    <message>
        <source>Select the patterns to mark; Ctrl+click adds one.</source>
        <translation>Muster zum Markieren wählen; Strg+Klick fügt eines hinzu.</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Strong</source>
        <translation>Stark</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Schwach</translation>
    </message>
    <message>
        <source>Blending</source>
        <translation>Verschmelzen</translation>
    </message>
    <message>
        <source>Candle Guru</source>
        <translation>Kerzen-Guru</translation>
    </message>
    <message>
        <source>Mark candle patterns on the price chart</source>
        <translation>Kerzenmuster im Kurschart markieren</translation>
    </message>
    <message>
        <source>Show the patterns closest to their ideal shape</source>
        <translation>Muster zeigen, die ihrer Idealform am nächsten sind</translation>
    </message>
    <message>
        <source>Show the patterns of medium strength</source>
        <translation>Muster mittlerer Stärke zeigen</translation>
    </message>
    <message>
        <source>Show the loosest matches</source>
        <translation>Die losesten Treffer zeigen</translation>
    </message>
    <message>
        <source>Test a pair of candles that forms no two-candle pattern as one candle</source>
        <translation>Ein Kerzenpaar ohne Zwei-Kerzen-Muster als eine Kerze prüfen</translation>
    </message>
    <message>
        <source>Pattern Name</source>
        <translation>Mustername</translation>
    </message>
</context>
<context>
    <name>OrdaneView::CandlesPatternLayer</name>
    <message>
        <source>Strong</source>
        <translation>Stark</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Schwach</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartExport</name>
    <message>
        <source>No chart is shown.</source>
        <translation>Es wird kein Chart gezeigt.</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>PNG pictures (*.png)</source>
        <translation>PNG-Bilder (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be saved: %1</source>
        <translation>Das Bild konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Save CSV</source>
        <translation>CSV speichern</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>The quotes could not be saved: %1</source>
        <translation>Die Kurse konnten nicht gespeichert werden: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartSession</name>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>Vierteljährlich</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>Jährlich</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartTemplate</name>
    <message>
        <source>Trawler &amp;Week</source>
        <translation>Trawler &amp;Woche</translation>
    </message>
    <message>
        <source>Trawler &amp;Day</source>
        <translation>Trawler &amp;Tag</translation>
    </message>
    <message>
        <source>W&amp;ork Template</source>
        <translation>A&amp;rbeitsvorlage</translation>
    </message>
    <message>
        <source>W&amp;illiams</source>
        <translation>W&amp;illiams</translation>
    </message>
    <message>
        <source>&amp;Elder Rays</source>
        <translation>&amp;Elder-Strahlen</translation>
    </message>
    <message>
        <source>&amp;BollingerBands</source>
        <translation>&amp;Bollinger-Bänder</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartView</name>
    <message>
        <source>Chart Colours</source>
        <translation>Chart-Farben</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Properties of:</source>
        <translation>Eigenschaften von:</translation>
    </message>
    <message>
        <source>Remove &amp;Pair %1</source>
        <translation>&amp;Paar %1 entfernen</translation>
    </message>
</context>
<context>
    <name>OrdaneView::IndicatorFactoryWidget</name>
    <message>
        <source>Add in New &amp;Pane</source>
        <translation>In neuem &amp;Bereich</translation>
    </message>
    <message>
        <source>Add to &amp;Chart</source>
        <translation>In den &amp;Chart</translation>
    </message>
    <message>
        <source>New Indicator</source>
        <translation>Neuer Indikator</translation>
    </message>
    <message>
        <source>&amp;Edit Script</source>
        <translation>Skript &amp;bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Delete Script</source>
        <translation>Skript &amp;löschen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Can not open &quot;%1&quot;:
%2</source>
        <translation>&quot;%1&quot; lässt sich nicht öffnen:
%2</translation>
    </message>
    <message>
        <source>Indicator Name:</source>
        <translation>Name des Indikators:</translation>
    </message>
    <message>
        <source>Can not create an indicator without name</source>
        <translation>Ein Indikator ohne Namen lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>The name must begin with a letter and hold only letters, digits and &quot;_&quot;: scripts reach the indicator by this name.</source>
        <translation>Der Name muss mit einem Buchstaben beginnen und darf nur Buchstaben, Ziffern und &quot;_&quot; enthalten: Skripte erreichen den Indikator unter diesem Namen.</translation>
    </message>
    <message>
        <source>Can not create the file</source>
        <translation>Die Datei lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>This file already exists.Press Ok to open the file</source>
        <translation>Diese Datei gibt es schon. OK öffnet sie</translation>
    </message>
    <message>
        <source>Delete Indicator</source>
        <translation>Indikator löschen</translation>
    </message>
    <message>
        <source>Are you sure that you want to delete &quot;%1&quot;? The file is removed from the disk.</source>
        <translation>Wollen Sie &quot;%1&quot; wirklich löschen? Die Datei wird von der Festplatte entfernt.</translation>
    </message>
    <message>
        <source>Can not remove the indicator</source>
        <translation>Der Indikator lässt sich nicht entfernen</translation>
    </message>
</context>
<context>
    <name>OrdaneView::IndicatorPropertiesDialog</name>
    <message>
        <source>Properties of %1</source>
        <translation>Eigenschaften von %1</translation>
    </message>
    <message>
        <source>This indicator has no parameters.</source>
        <translation>Dieser Indikator hat keine Parameter.</translation>
    </message>
</context>
<context>
    <name>OrdaneView::MiniView</name>
    <message>
        <source>The whole series. Click or drag to move the chart; drag with the right button to measure.</source>
        <translation>Die ganze Reihe. Klicken oder ziehen verschiebt den Chart; mit der rechten Taste ziehen misst.</translation>
    </message>
</context>
<context>
    <name>OrdaneView::PairLayer</name>
    <message>
        <source>Pair: %1</source>
        <translation>Paar: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ScriptEditor</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Run in New &amp;Pane</source>
        <translation>In neuem &amp;Bereich ausführen</translation>
    </message>
    <message>
        <source>Run on &amp;Chart</source>
        <translation>Im &amp;Chart ausführen</translation>
    </message>
    <message>
        <source>&amp;Debug in New Pane</source>
        <translation>In neuem Bereich &amp;debuggen</translation>
    </message>
    <message>
        <source>Debug on C&amp;hart</source>
        <translation>Im C&amp;hart debuggen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>&amp;Weitersuchen</translation>
    </message>
    <message>
        <source>Find &amp;Previous</source>
        <translation>&amp;Rückwärts suchen</translation>
    </message>
    <message>
        <source>&amp;Go to Line...</source>
        <translation>&amp;Gehe zu Zeile...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>Script</source>
        <translation>Skript</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>&amp;Groß-/Kleinschreibung</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Close the find bar (Esc)</source>
        <translation>Suchleiste schließen (Esc)</translation>
    </message>
    <message>
        <source>Find:</source>
        <translation>Suchen:</translation>
    </message>
    <message>
        <source>%1[*] - Script Editor</source>
        <translation>%1[*] - Skript-Editor</translation>
    </message>
    <message>
        <source>No file is open.</source>
        <translation>Es ist keine Datei geöffnet.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Can not save &quot;%1&quot;:
%2</source>
        <translation>&quot;%1&quot; lässt sich nicht speichern:
%2</translation>
    </message>
    <message>
        <source>Script Editor</source>
        <translation>Skript-Editor</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has been modified.
Do you want to save your changes?</source>
        <translation>&quot;%1&quot; wurde geändert.
Möchten Sie die Änderungen speichern?</translation>
    </message>
    <message>
        <source>Go to Line</source>
        <translation>Gehe zu Zeile</translation>
    </message>
    <message>
        <source>Line number (1 - %1):</source>
        <translation>Zeilennummer (1 - %1):</translation>
    </message>
    <message>
        <source>Line %1, Column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
</context>
<context>
    <name>OrdaneView::Scripts</name>
    <message>
        <source>Script error: Unknown binary format</source>
        <translation>Skriptfehler: Unbekanntes Binärformat</translation>
    </message>
    <message>
        <source>Script error: the packed script is cut short</source>
        <translation>Skriptfehler: das gepackte Skript ist abgeschnitten</translation>
    </message>
    <message>
        <source>Script error: the packed script states %1 bytes, more than the limit of %2 bytes</source>
        <translation>Skriptfehler: das gepackte Skript gibt %1 Bytes an, mehr als die Grenze von %2 Bytes</translation>
    </message>
    <message>
        <source>Script error: the packed script is damaged or does not unpack to the %1 bytes it states</source>
        <translation>Skriptfehler: das gepackte Skript ist beschädigt oder ergibt entpackt nicht die angegebenen %1 Bytes</translation>
    </message>
    <message>
        <source>Script error: cannot open %1: %2</source>
        <translation>Skriptfehler: %1 lässt sich nicht öffnen: %2</translation>
    </message>
    <message>
        <source>Script error: %1 is larger than the limit of %2 bytes</source>
        <translation>Skriptfehler: %1 ist größer als die Grenze von %2 Bytes</translation>
    </message>
</context>
<context>
    <name>OrdaneView::UserIndicator</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The script ran longer than %1 seconds and was stopped.</source>
        <translation>Das Skript lief länger als %1 Sekunden und wurde angehalten.</translation>
    </message>
    <message>
        <source>Script evaluating error</source>
        <translation>Fehler beim Auswerten des Skripts</translation>
    </message>
    <message>
        <source>The script %1 ran longer than %2 seconds in %3() and was stopped.</source>
        <translation>Das Skript %1 lief in %3() länger als %2 Sekunden und wurde angehalten.</translation>
    </message>
    <message>
        <source>getIndicator: indicators nest too deep (%1)</source>
        <translation>getIndicator: Indikatoren zu tief verschachtelt (%1)</translation>
    </message>
</context>
<context>
    <name>OrdaneView::View</name>
    <message>
        <source>&amp;Grid</source>
        <translation>&amp;Gitter</translation>
    </message>
    <message>
        <source>&amp;Properties</source>
        <translation>&amp;Eigenschaften</translation>
    </message>
    <message>
        <source>Indicator:</source>
        <translation>Indikator:</translation>
    </message>
    <message>
        <source>Indicator Properties</source>
        <translation>Indikator-Eigenschaften</translation>
    </message>
    <message>
        <source>Remove Indicator</source>
        <translation>Indikator entfernen</translation>
    </message>
    <message>
        <source>Remove Indicator...</source>
        <translation>Indikator entfernen...</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewOperationsPanel</name>
    <message>
        <source>Zoom in (+)</source>
        <translation>Vergrößern (+)</translation>
    </message>
    <message>
        <source>Zoom out (-)</source>
        <translation>Verkleinern (-)</translation>
    </message>
    <message>
        <source>Candles</source>
        <translation>Kerzen</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>No price chart</source>
        <translation>Kein Kurschart</translation>
    </message>
    <message>
        <source>D</source>
        <translation>T</translation>
    </message>
    <message>
        <source>Daily bars</source>
        <translation>Tagesbalken</translation>
    </message>
    <message>
        <source>W</source>
        <translation>W</translation>
    </message>
    <message>
        <source>Weekly bars</source>
        <translation>Wochenbalken</translation>
    </message>
    <message>
        <source>M</source>
        <translation>M</translation>
    </message>
    <message>
        <source>Monthly bars</source>
        <translation>Monatsbalken</translation>
    </message>
    <message>
        <source>Q</source>
        <translation>Q</translation>
    </message>
    <message>
        <source>Quarterly bars</source>
        <translation>Quartalsbalken</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>J</translation>
    </message>
    <message>
        <source>Yearly bars</source>
        <translation>Jahresbalken</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Gitter</translation>
    </message>
    <message>
        <source>Show the prices of the bar under the pointer</source>
        <translation>Kurse des Balkens unter dem Zeiger zeigen</translation>
    </message>
    <message>
        <source>Period separators</source>
        <translation>Periodentrenner</translation>
    </message>
    <message>
        <source>No Separators</source>
        <translation>Keine Trenner</translation>
    </message>
    <message>
        <source>Weeks</source>
        <translation>Wochen</translation>
    </message>
    <message>
        <source>Months</source>
        <translation>Monate</translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation>Quartale</translation>
    </message>
    <message>
        <source>Years</source>
        <translation>Jahre</translation>
    </message>
    <message>
        <source>Save the chart as a picture</source>
        <translation>Chart als Bild speichern</translation>
    </message>
    <message>
        <source>Save the series as CSV</source>
        <translation>Reihe als CSV speichern</translation>
    </message>
    <message>
        <source>Current price, every minute</source>
        <translation>Aktueller Kurs, jede Minute</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewParameters</name>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>3D Candles</source>
        <translation>3D-Kerzen</translation>
    </message>
    <message>
        <source>Up Bar</source>
        <translation>Steigender Balken</translation>
    </message>
    <message>
        <source>Down Bar</source>
        <translation>Fallender Balken</translation>
    </message>
    <message>
        <source>Up Candle</source>
        <translation>Steigende Kerze</translation>
    </message>
    <message>
        <source>Down Candle</source>
        <translation>Fallende Kerze</translation>
    </message>
    <message>
        <source>Up Candle Border</source>
        <translation>Rand steigender Kerzen</translation>
    </message>
    <message>
        <source>Down Candle Border</source>
        <translation>Rand fallender Kerzen</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Margin Background</source>
        <translation>Skalenhintergrund</translation>
    </message>
    <message>
        <source>Margin Numbers</source>
        <translation>Skalenzahlen</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Gitter</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Predefined Colors</source>
        <translation>Vordefinierte Farben</translation>
    </message>
    <message>
        <source>%1 (default)</source>
        <translation>%1 (Standard)</translation>
    </message>
    <message>
        <source>Matrix</source>
        <translation>Matrix</translation>
    </message>
    <message>
        <source>Black On White</source>
        <translation>Schwarz auf Weiß</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewsContainer</name>
    <message>
        <source>Chart</source>
        <translation>Chart</translation>
    </message>
    <message>
        <source>There are no stored quotes for %1.</source>
        <translation>Für %1 sind keine Kurse gespeichert.</translation>
    </message>
    <message>
        <source>Chart Colours</source>
        <translation>Chart-Farben</translation>
    </message>
    <message>
        <source>Unknown indicator: %1</source>
        <translation>Unbekannter Indikator: %1</translation>
    </message>
    <message>
        <source>Load Template</source>
        <translation>Vorlage laden</translation>
    </message>
    <message>
        <source>Unknown indicators left out: %1</source>
        <translation>Unbekannte Indikatoren ausgelassen: %1</translation>
    </message>
    <message>
        <source>Chart templates (*.tt)</source>
        <translation>Chart-Vorlagen (*.tt)</translation>
    </message>
    <message>
        <source>Save Template</source>
        <translation>Vorlage speichern</translation>
    </message>
    <message>
        <source>The template could not be saved: %1</source>
        <translation>Die Vorlage konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>Template saved: %1</source>
        <translation>Vorlage gespeichert: %1</translation>
    </message>
    <message>
        <source>Debugger</source>
        <translation>Debugger</translation>
    </message>
    <message>
        <source>Can not find the script %1</source>
        <translation>Das Skript %1 ist nicht zu finden</translation>
    </message>
    <message>
        <source>The template could not be read: %1</source>
        <translation>Die Vorlage konnte nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>No current price for %1: %2</source>
        <translation>Kein aktueller Kurs für %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be brought up to date: %2</source>
        <translation>%1 konnte nicht aktualisiert werden: %2</translation>
    </message>
</context>
<context>
    <name>QMRequest::DownloadManager</name>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>reply larger than %1 MiB</source>
        <translation>Antwort größer als %1 MiB</translation>
    </message>
    <message>
        <source>no answer within %1 s</source>
        <translation>keine Antwort innerhalb von %1 s</translation>
    </message>
</context>
</TS>
