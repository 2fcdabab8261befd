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
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>Last close</source>
        <translation>Letzter Schluss</translation>
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
    <message>
        <source>Double-click a symbol to chart it.</source>
        <translation>Doppelklicken Sie auf ein Symbol, um es im Chart zu zeigen.</translation>
    </message>
    <message>
        <source>Chart &amp;Colours...</source>
        <translation>Chart-&amp;Farben...</translation>
    </message>
    <message>
        <source>&amp;Chart</source>
        <translation>&amp;Chart</translation>
    </message>
    <message>
        <source>&amp;Edit Quotes...</source>
        <translation>Kurse &amp;bearbeiten...</translation>
    </message>
    <message>
        <source>%1 bars from %2 to %3</source>
        <translation>%1 Balken vom %2 bis %3</translation>
    </message>
    <message>
        <source>&amp;Indicators</source>
        <translation>&amp;Indikatoren</translation>
    </message>
    <message>
        <source>Add in a &amp;Pane...</source>
        <translation>In einem &amp;Bereich hinzufügen...</translation>
    </message>
    <message>
        <source>Add over the &amp;Chart...</source>
        <translation>Über dem &amp;Chart hinzufügen...</translation>
    </message>
    <message>
        <source>Add over the Chart</source>
        <translation>Über dem Chart hinzufügen</translation>
    </message>
    <message>
        <source>Add in a Pane</source>
        <translation>In einem Bereich hinzufügen</translation>
    </message>
    <message>
        <source>Indicator:</source>
        <translation>Indikator:</translation>
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
    <name>OrdaneView::ViewSettings</name>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Übernehmen</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewsContainer</name>
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
    <message>
        <source>Chart</source>
        <translation>Chart</translation>
    </message>
    <message>
        <source>There are no stored quotes for %1.</source>
        <translation>Für %1 sind keine Kurse gespeichert.</translation>
    </message>
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
    <message>
        <source>Chart Colours</source>
        <translation>Chart-Farben</translation>
    </message>
    <message>
        <source>Indicator</source>
        <translation>Indikator</translation>
    </message>
    <message>
        <source>Unknown indicator: %1</source>
        <translation>Unbekannter Indikator: %1</translation>
    </message>
</context>
</TS>
