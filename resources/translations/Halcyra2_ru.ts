<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>Halcyra::MainWindow</name>
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
    <message>
        <source>&amp;English</source>
        <translation>&amp;Английский</translation>
    </message>
    <message>
        <source>&amp;Russian</source>
        <translation>&amp;Русский</translation>
    </message>
    <message>
        <source>&amp;German</source>
        <translation>&amp;Немецкий</translation>
    </message>
    <message>
        <source>Work Area</source>
        <translation>Рабочая область</translation>
    </message>
    <message>
        <source>Browser</source>
        <translation>Обозреватель</translation>
    </message>
    <message>
        <source>Indicators</source>
        <translation>Индикаторы</translation>
    </message>
    <message>
        <source>Candle Guru</source>
        <translation>Гуру свечей</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Вид</translation>
    </message>
    <message>
        <source>Full &amp;Screen</source>
        <translation>Полный &amp;экран</translation>
    </message>
    <message>
        <source>&amp;Virtual Resolution</source>
        <translation>&amp;Виртуальное разрешение</translation>
    </message>
    <message>
        <source>Virtul Resolution</source>
        <translation>Виртуальное разрешение</translation>
    </message>
    <message>
        <source>Load &amp;Template</source>
        <translation>Загрузить &amp;шаблон</translation>
    </message>
    <message>
        <source>Save T&amp;emplate</source>
        <translation>Сохранить ш&amp;аблон</translation>
    </message>
    <message>
        <source>&amp;Predefined Templates</source>
        <translation>&amp;Готовые шаблоны</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>&amp;Настройки...</translation>
    </message>
    <message>
        <source>Open a Settings Dialog</source>
        <translation>Открыть окно настроек</translation>
    </message>
    <message>
        <source>&amp;Languages</source>
        <translation>&amp;Языки</translation>
    </message>
    <message>
        <source>Menu Panel</source>
        <translation>Панель меню</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Меню</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Полный экран</translation>
    </message>
    <message>
        <source>Virtual Resolution</source>
        <translation>Виртуальное разрешение</translation>
    </message>
    <message>
        <source>Load Template</source>
        <translation>Загрузить шаблон</translation>
    </message>
    <message>
        <source>Save Template</source>
        <translation>Сохранить шаблон</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>Chart Colours</source>
        <translation>Цвета графика</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Обновления</translation>
    </message>
    <message>
        <source>Template loaded</source>
        <translation>Шаблон загружен</translation>
    </message>
    <message>
        <source>Update &amp;Quotes</source>
        <translation>Обновить &amp;котировки</translation>
    </message>
    <message>
        <source>Bring every stored symbol up to date from the quote service</source>
        <translation>Обновить все сохранённые символы из службы котировок</translation>
    </message>
    <message>
        <source>Quote Service</source>
        <translation>Служба котировок</translation>
    </message>
    <message>
        <source>Observer</source>
        <translation>Наблюдение</translation>
    </message>
    <message>
        <source>Bulls</source>
        <translation>Быки</translation>
    </message>
</context>
<context>
    <name>Halcyra::QuoteUpdates</name>
    <message>
        <source>Quotes %v of %m</source>
        <translation>Котировки %v из %m</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <source>Stop updating the quotes after the symbol under way</source>
        <translation>Остановить обновление после текущего символа</translation>
    </message>
    <message>
        <source>The quotes are being updated already.</source>
        <translation>Котировки уже обновляются.</translation>
    </message>
    <message>
        <source>Stopped. %1</source>
        <translation>Остановлено. %1</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::Benchmarking</name>
    <message>
        <source>&lt;H2&gt;Compare with selected:&lt;/H2&gt;</source>
        <translation>&lt;H2&gt;Сравнить с выбранным:&lt;/H2&gt;</translation>
    </message>
    <message>
        <source>Benchmarking</source>
        <translation>Сравнение</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Stock exchange</source>
        <translation>Биржа</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::BrowserUpdater</name>
    <message>
        <source>&amp;Update</source>
        <translation>&amp;Обновить</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Скрыть</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Закрыть</translation>
    </message>
    <message>
        <source>%1 Updater</source>
        <translation>Обновление %1</translation>
    </message>
    <message>
        <source>Update All Data</source>
        <translation>Обновить все данные</translation>
    </message>
    <message>
        <source>Update Visible Items Only</source>
        <translation>Обновить только видимые</translation>
    </message>
    <message>
        <source>The last run is still ending; try again in a moment.</source>
        <translation>Предыдущий запуск ещё завершается; попробуйте через мгновение.</translation>
    </message>
    <message>
        <source>There is nothing to update.</source>
        <translation>Обновлять нечего.</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Стоп</translation>
    </message>
    <message>
        <source>&lt;CENTER&gt;Updated %1 of %2&lt;BR&gt;Current: %3&lt;/CENTER&gt;</source>
        <translation>&lt;CENTER&gt;Обновлено %1 из %2&lt;BR&gt;Текущий: %3&lt;/CENTER&gt;</translation>
    </message>
    <message>
        <source>Stopped after %1 of %2 symbols.</source>
        <translation>Остановлено после %1 из %2 символов.</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::Filter</name>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Найти</translation>
    </message>
    <message>
        <source>Volume Range</source>
        <translation>Диапазон объёма</translation>
    </message>
    <message>
        <source>newest day</source>
        <translation>последний день</translation>
    </message>
    <message>
        <source>(unknown)</source>
        <translation>(неизвестно)</translation>
    </message>
    <message>
        <source>List Operations</source>
        <translation>Операции со списком</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Отметить все</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Снять все</translation>
    </message>
    <message>
        <source>Inverte</source>
        <translation>Инвертировать</translation>
    </message>
    <message>
        <source>Capitalization Levels</source>
        <translation>Уровни капитализации</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Found: %1 of %2</source>
        <translation>Найдено: %1 из %2</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::FilterDialog</name>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <source> Filter</source>
        <translation> Фильтр</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Скрыть</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Закрыть</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::IndexExpandDialog</name>
    <message>
        <source>Expand Index %1</source>
        <translation>Состав индекса %1</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Отметить все</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Снять все</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Отмена</translation>
    </message>
    <message>
        <source>No members of %1 are listed in %2.</source>
        <translation>В %2 нет состава %1.</translation>
    </message>
    <message>
        <source>Check the members of %1 to add to the browser.</source>
        <translation>Отметьте бумаги из %1, которые добавить в обозреватель.</translation>
    </message>
    <message>
        <source>&amp;Add Selected</source>
        <translation>&amp;Добавить выбранные</translation>
    </message>
    <message>
        <source>%1 of %2 checked</source>
        <translation>отмечено %1 из %2</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::InfoDialog</name>
    <message>
        <source>Market capitalisation</source>
        <translation>Рыночная капитализация</translation>
    </message>
    <message>
        <source>EBITDA</source>
        <translation>EBITDA</translation>
    </message>
    <message>
        <source>P/E ratio</source>
        <translation>P/E</translation>
    </message>
    <message>
        <source>PEG ratio</source>
        <translation>PEG</translation>
    </message>
    <message>
        <source>Price/sales ratio</source>
        <translation>Цена/выручка</translation>
    </message>
    <message>
        <source>Price/book ratio</source>
        <translation>Цена/балансовая стоимость</translation>
    </message>
    <message>
        <source>Book value per share</source>
        <translation>Балансовая стоимость на акцию</translation>
    </message>
    <message>
        <source>Earnings per share</source>
        <translation>Прибыль на акцию</translation>
    </message>
    <message>
        <source>EPS estimate, this year</source>
        <translation>Прогноз прибыли на акцию, этот год</translation>
    </message>
    <message>
        <source>EPS estimate, next year</source>
        <translation>Прогноз прибыли на акцию, следующий год</translation>
    </message>
    <message>
        <source>EPS estimate, next quarter</source>
        <translation>Прогноз прибыли на акцию, следующий квартал</translation>
    </message>
    <message>
        <source>P/E on this year&apos;s estimate</source>
        <translation>P/E по прогнозу этого года</translation>
    </message>
    <message>
        <source>Dividend per share</source>
        <translation>Дивиденд на акцию</translation>
    </message>
    <message>
        <source>Dividend yield</source>
        <translation>Дивидендная доходность</translation>
    </message>
    <message>
        <source>Ex-dividend date</source>
        <translation>Дата отсечки</translation>
    </message>
    <message>
        <source>Dividend pay date</source>
        <translation>Дата выплаты дивиденда</translation>
    </message>
    <message>
        <source>Short ratio</source>
        <translation>Коэффициент коротких позиций</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Валюта</translation>
    </message>
    <message>
        <source>Symbol Information</source>
        <translation>Сведения о символе</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>No information is stored about %1.</source>
        <translation>О %1 ничего не сохранено.</translation>
    </message>
    <message>
        <source>Valuation</source>
        <translation>Оценка</translation>
    </message>
    <message>
        <source>Trading</source>
        <translation>Торговля</translation>
    </message>
    <message>
        <source>Earnings</source>
        <translation>Прибыль</translation>
    </message>
    <message>
        <source>Dividends</source>
        <translation>Дивиденды</translation>
    </message>
    <message>
        <source>Last refresh</source>
        <translation>Последнее обновление</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::MetaStockImportDialog</name>
    <message>
        <source>MetaStock MASTER-File import</source>
        <translation>Импорт MASTER-файла MetaStock</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Import All</source>
        <translation>Импортировать все</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::NotAvailableDialog</name>
    <message>
        <source>Stock exchange</source>
        <translation>Биржа</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Недоступно</translation>
    </message>
    <message>
        <source>&lt;H2&gt;&lt;CENTER&gt;Sorry, the historical data for the &lt;BR&gt;following items is not availible&lt;/CENTER&gt;&lt;/H2&gt;</source>
        <translation>&lt;H2&gt;&lt;CENTER&gt;К сожалению, исторические данные &lt;BR&gt;для следующих бумаг недоступны&lt;/CENTER&gt;&lt;/H2&gt;</translation>
    </message>
    <message>
        <source>&amp;Ok</source>
        <translation>&amp;ОК</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::ObserverList</name>
    <message>
        <source>Drag symbols from the browser and drop them here.</source>
        <translation>Перетащите сюда символы из обозревателя.</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::ObserverWindow</name>
    <message>
        <source>Export Charts</source>
        <translation>Экспорт графиков</translation>
    </message>
    <message>
        <source>Import Charts</source>
        <translation>Импорт графиков</translation>
    </message>
    <message>
        <source>Copy the stored quotes of the selected symbols into a folder</source>
        <translation>Скопировать сохранённые котировки выбранных символов в папку</translation>
    </message>
    <message>
        <source>Add the symbols of quote files to this list</source>
        <translation>Добавить в список символы файлов котировок</translation>
    </message>
    <message>
        <source>&amp;Show Chart</source>
        <translation>&amp;Показать график</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Удалить</translation>
    </message>
    <message>
        <source>&amp;Export Charts</source>
        <translation>&amp;Экспорт графиков</translation>
    </message>
    <message>
        <source>&amp;Import Charts</source>
        <translation>&amp;Импорт графиков</translation>
    </message>
    <message>
        <source>Quote files (*.csv)</source>
        <translation>Файлы котировок (*.csv)</translation>
    </message>
    <message>
        <source>Select the symbols whose charts to export.</source>
        <translation>Выберите символы, графики которых экспортировать.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Не удаётся создать папку %1.</translation>
    </message>
    <message>
        <source>%1: no stored quotes (%2)</source>
        <translation>%1: нет сохранённых котировок (%2)</translation>
    </message>
    <message>
        <source>%1 exists already. Replace it?</source>
        <translation>%1 уже существует. Заменить?</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 of %2 charts exported to %3.</source>
        <translation>Экспортировано графиков: %1 из %2 в %3.</translation>
    </message>
    <message>
        <source>These charts could not be exported:</source>
        <translation>Эти графики не удалось экспортировать:</translation>
    </message>
    <message>
        <source>%1: not a quote file</source>
        <translation>%1: не файл котировок</translation>
    </message>
    <message>
        <source>%1 of %2 files imported.</source>
        <translation>Импортировано файлов: %1 из %2.</translation>
    </message>
    <message>
        <source>These files were not imported:</source>
        <translation>Эти файлы не импортированы:</translation>
    </message>
    <message>
        <source>%1 has no stored quotes.</source>
        <translation>У %1 нет сохранённых котировок.</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::Scanner</name>
    <message>
        <source>&amp;Scan</source>
        <translation>&amp;Поиск</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Скрыть</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Закрыть</translation>
    </message>
    <message>
        <source>%1 Scanner</source>
        <translation>Сканер %1</translation>
    </message>
    <message>
        <source>The index of the first candidate to try</source>
        <translation>Номер первого проверяемого кандидата</translation>
    </message>
    <message>
        <source>Appended to every candidate, such as the market&apos;s suffix</source>
        <translation>Добавляется к каждому кандидату, например суффикс рынка</translation>
    </message>
    <message>
        <source>The characters candidates are made of; the last one is never used</source>
        <translation>Символы, из которых составляются кандидаты; последний не используется</translation>
    </message>
    <message>
        <source>The longest candidate, and the width &quot;Fill out:&quot; pads to</source>
        <translation>Самый длинный кандидат и ширина, до которой дополняет «Fill out:»</translation>
    </message>
    <message>
        <source>Pads shorter candidates on the left with its first character</source>
        <translation>Дополняет короткие кандидаты слева своим первым символом</translation>
    </message>
    <message>
        <source>&amp;Start value:</source>
        <translation>&amp;Начальное значение:</translation>
    </message>
    <message>
        <source>Prefix:</source>
        <translation>Префикс:</translation>
    </message>
    <message>
        <source>Postfix:</source>
        <translation>Постфикс:</translation>
    </message>
    <message>
        <source>Symbols:</source>
        <translation>Символы:</translation>
    </message>
    <message>
        <source>Padding:</source>
        <translation>Заполнитель:</translation>
    </message>
    <message>
        <source>Fill out:</source>
        <translation>Дополнить до:</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Стоп</translation>
    </message>
    <message>
        <source>&lt;CENTER&gt;Scaned %1 of %2&lt;BR&gt;Found: %3&lt;BR&gt;Current: %4&lt;BR&gt;&lt;/CENTER&gt;</source>
        <translation>&lt;CENTER&gt;Проверено %1 из %2&lt;BR&gt;Найдено: %3&lt;BR&gt;Текущий: %4&lt;BR&gt;&lt;/CENTER&gt;</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::StockList</name>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Stock exchange</source>
        <translation>Биржа</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::StorageBrowser</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Правка</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Скрыть</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>Не удаётся открыть %1: %2</translation>
    </message>
    <message>
        <source>%1 is not a quote file.</source>
        <translation>%1 не является файлом котировок.</translation>
    </message>
    <message>
        <source>%1 holds no quotes.</source>
        <translation>В %1 нет котировок.</translation>
    </message>
    <message>
        <source>%1 Items</source>
        <translation>Элементов: %1</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Добавить</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Найти</translation>
    </message>
    <message>
        <source>Symbol/Name</source>
        <translation>Символ/Название</translation>
    </message>
    <message>
        <source>MSFT, ADS.DE, ^GDAXI ...</source>
        <translation>MSFT, ADS.DE, ^GDAXI ...</translation>
    </message>
    <message>
        <source>Fetch the quotes of the symbol and add it to the list</source>
        <translation>Загрузить котировки символа и добавить его в список</translation>
    </message>
    <message>
        <source>Select the first row whose symbol or name holds the text</source>
        <translation>Выбрать первую строку, символ или название которой содержит текст</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Stop after the symbol or file under way</source>
        <translation>Остановиться после текущего символа или файла</translation>
    </message>
    <message>
        <source>Save the Symbols</source>
        <translation>Сохранить символы</translation>
    </message>
    <message>
        <source>Load the Symbols</source>
        <translation>Загрузить символы</translation>
    </message>
    <message>
        <source>List Operations</source>
        <translation>Операции со списком</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Отметить все</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Снять все</translation>
    </message>
    <message>
        <source>Inverte</source>
        <translation>Инвертировать</translation>
    </message>
    <message>
        <source>Hide All</source>
        <translation>Скрыть все</translation>
    </message>
    <message>
        <source>Hide Checked</source>
        <translation>Скрыть отмеченные</translation>
    </message>
    <message>
        <source>Export Checked...</source>
        <translation>Экспорт отмеченных...</translation>
    </message>
    <message>
        <source>Erase Checked...</source>
        <translation>Удалить отмеченные...</translation>
    </message>
    <message>
        <source>Pair Checked with Selected</source>
        <translation>Наложить отмеченный на выбранный</translation>
    </message>
    <message>
        <source>Check Store</source>
        <translation>Проверить хранилище</translation>
    </message>
    <message>
        <source>Files Import</source>
        <translation>Импорт файлов</translation>
    </message>
    <message>
        <source>Import &amp;MetaTrader Files</source>
        <translation>Импорт файлов &amp;MetaTrader</translation>
    </message>
    <message>
        <source>Import %1 Files</source>
        <translation>Импорт файлов %1</translation>
    </message>
    <message>
        <source>Import &amp;MetaStock MASTER file </source>
        <translation>Импорт файла &amp;MetaStock MASTER </translation>
    </message>
    <message>
        <source>Merge MetaTrader Files</source>
        <translation>Дополнить из файлов MetaTrader</translation>
    </message>
    <message>
        <source>Merge %1 Files</source>
        <translation>Дополнить из файлов %1</translation>
    </message>
    <message>
        <source>Merge RBK Files</source>
        <translation>Дополнить из файлов RBK</translation>
    </message>
    <message>
        <source>%1 could not be fetched: %2</source>
        <translation>Не удалось загрузить %1: %2</translation>
    </message>
    <message>
        <source>Fetching %1 symbols ...</source>
        <translation>Загрузка символов: %1 ...</translation>
    </message>
    <message>
        <source>Fetching stopped: %1 of %2 symbols listed.</source>
        <translation>Загрузка остановлена: в списке %1 из %2 символов.</translation>
    </message>
    <message>
        <source>Save Browser Symbols</source>
        <translation>Сохранить символы обозревателя</translation>
    </message>
    <message>
        <source>The list could not be saved: %1</source>
        <translation>Не удалось сохранить список: %1</translation>
    </message>
    <message>
        <source>Load Browser Symbols</source>
        <translation>Загрузить символы обозревателя</translation>
    </message>
    <message>
        <source>No symbol or name holds &quot;%1&quot;.</source>
        <translation>Ни символ, ни название не содержат «%1».</translation>
    </message>
    <message>
        <source>Updating %1 ...</source>
        <translation>Обновление %1 ...</translation>
    </message>
    <message>
        <source>Check the rows to export first.</source>
        <translation>Сначала отметьте строки для экспорта.</translation>
    </message>
    <message>
        <source>Export Checked</source>
        <translation>Экспорт отмеченных</translation>
    </message>
    <message>
        <source>%1 files exported to %2.</source>
        <translation>Экспортировано файлов: %1 в %2.</translation>
    </message>
    <message>
        <source>Not exported: %1.</source>
        <translation>Не экспортированы: %1.</translation>
    </message>
    <message>
        <source>Check the rows to erase first.</source>
        <translation>Сначала отметьте строки для удаления.</translation>
    </message>
    <message>
        <source>Erase Checked</source>
        <translation>Удалить отмеченные</translation>
    </message>
    <message>
        <source>Delete the stored quotes of these %1 symbols from the disk?

%2</source>
        <translation>Удалить с диска сохранённые котировки этих символов (%1)?

%2</translation>
    </message>
    <message>
        <source>These could not be deleted: %1</source>
        <translation>Не удалось удалить: %1</translation>
    </message>
    <message>
        <source>Check the row to pair with the chart first.</source>
        <translation>Сначала отметьте строку для наложения на график.</translation>
    </message>
    <message>
        <source>&amp;Expand Index</source>
        <translation>&amp;Состав индекса</translation>
    </message>
    <message>
        <source>&amp;Info</source>
        <translation>&amp;Сведения</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>&amp;Обновить</translation>
    </message>
    <message>
        <source>Importing %1 files ...</source>
        <translation>Импорт файлов: %1 ...</translation>
    </message>
    <message>
        <source>Import Files (Overwrite)</source>
        <translation>Импорт файлов (заменить)</translation>
    </message>
    <message>
        <source>Import Files (Merge)</source>
        <translation>Импорт файлов (дополнить)</translation>
    </message>
    <message>
        <source>Import File (Merge)</source>
        <translation>Импорт файла (дополнить)</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Строк</translation>
    </message>
    <message>
        <source>First</source>
        <translation>Первый</translation>
    </message>
    <message>
        <source>Last</source>
        <translation>Последний</translation>
    </message>
    <message>
        <source>Bad lines</source>
        <translation>Ошибочные строки</translation>
    </message>
    <message>
        <source>Repeated dates</source>
        <translation>Повторы дат</translation>
    </message>
    <message>
        <source>Out of order</source>
        <translation>Не по порядку</translation>
    </message>
    <message>
        <source>Gaps</source>
        <translation>Пропуски</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>в порядке</translation>
    </message>
    <message>
        <source>damaged</source>
        <translation>повреждён</translation>
    </message>
    <message>
        <source>%1 of %2 files have problems; nothing was changed.</source>
        <translation>Проблемы в %1 из %2 файлов; ничего не изменено.</translation>
    </message>
    <message>
        <source>All %1 files are sound.</source>
        <translation>Все файлы (%1) в порядке.</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Фильтр</translation>
    </message>
    <message>
        <source>Scanner</source>
        <translation>Сканер</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Обновить</translation>
    </message>
    <message>
        <source>Update All Data</source>
        <translation>Обновить все данные</translation>
    </message>
    <message>
        <source>Update Visible Items Only</source>
        <translation>Обновить только видимые</translation>
    </message>
    <message>
        <source>Benchmarking</source>
        <translation>Сравнение</translation>
    </message>
</context>
<context>
    <name>OrdaneBrowser::SuggestDialog</name>
    <message>
        <source>Index</source>
        <translation>Индекс</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Валюта</translation>
    </message>
    <message>
        <source>Equity</source>
        <translation>Акция</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Тип</translation>
    </message>
    <message>
        <source>Stock exchange</source>
        <translation>Биржа</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Название</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Symbol not found</source>
        <translation>Символ не найден</translation>
    </message>
    <message>
        <source>There are no quotes for &quot;%1&quot;, and nothing like it is known.</source>
        <translation>Котировок для «%1» нет, и ничего похожего не известно.</translation>
    </message>
    <message>
        <source>There are no quotes for &quot;%1&quot;. Perhaps one of these is meant:</source>
        <translation>Котировок для «%1» нет. Возможно, имелся в виду один из этих:</translation>
    </message>
    <message>
        <source>&amp;Add Selected</source>
        <translation>&amp;Добавить выбранные</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Отмена</translation>
    </message>
    <message>
        <source>Asking the quote service ...</source>
        <translation>Запрос к службе котировок ...</translation>
    </message>
    <message>
        <source>Quotes available</source>
        <translation>Котировки есть</translation>
    </message>
    <message>
        <source>No quotes</source>
        <translation>Котировок нет</translation>
    </message>
</context>
<context>
    <name>OrdaneData::DataManager</name>
    <message>
        <source>no exchange known</source>
        <translation>биржа неизвестна</translation>
    </message>
    <message>
        <source>imported data</source>
        <translation>импортированные данные</translation>
    </message>
    <message>
        <source>not downloaded</source>
        <translation>не загружается</translation>
    </message>
</context>
<context>
    <name>OrdaneData::DataUpdater</name>
    <message>
        <source>the quote service has no current quotes</source>
        <translation>служба котировок не даёт текущих котировок</translation>
    </message>
    <message>
        <source>not a current quote: %1</source>
        <translation>не текущая котировка: %1</translation>
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
<context>
    <name>OrdaneData::QuoteService</name>
    <message>
        <source>No quote service is configured</source>
        <translation>Служба котировок не настроена</translation>
    </message>
    <message>
        <source>empty reply</source>
        <translation>пустой ответ</translation>
    </message>
    <message>
        <source>not a quote table: %1</source>
        <translation>не таблица котировок: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneData::QuoteServicePage</name>
    <message>
        <source>&amp;Try</source>
        <translation>&amp;Проверить</translation>
    </message>
    <message>
        <source>Quote tables and fields (&quot;table&quot;)</source>
        <translation>Таблицы котировок и поля («table»)</translation>
    </message>
    <message>
        <source>Daily CSV (&quot;stooq&quot;)</source>
        <translation>Дневной CSV («stooq»)</translation>
    </message>
    <message>
        <source>Not set, for example http://127.0.0.1:8700</source>
        <translation>Не задан, например http://127.0.0.1:8700</translation>
    </message>
    <message>
        <source>&amp;Provider:</source>
        <translation>&amp;Поставщик:</translation>
    </message>
    <message>
        <source>&amp;Table host:</source>
        <translation>Сервер &amp;таблиц:</translation>
    </message>
    <message>
        <source>&amp;Quote host:</source>
        <translation>Сервер &amp;котировок:</translation>
    </message>
    <message>
        <source>API &amp;key:</source>
        <translation>&amp;Ключ API:</translation>
    </message>
    <message>
        <source>S&amp;ymbol:</source>
        <translation>С&amp;имвол:</translation>
    </message>
    <message>
        <source>A symbol to try the service with</source>
        <translation>Символ для проверки службы</translation>
    </message>
    <message>
        <source>Historical tables come from the table host, current quotes and the symbols&apos; metadata from the quote host.</source>
        <translation>Исторические таблицы приходят с сервера таблиц, текущие котировки и сведения о символах — с сервера котировок.</translation>
    </message>
    <message>
        <source>Daily tables only: no current quotes and no metadata. Symbols carry the service&apos;s suffixes, such as aapl.us or ads.de.</source>
        <translation>Только дневные таблицы: без текущих котировок и без сведений о символах. Символы пишутся с окончаниями службы, например aapl.us или ads.de.</translation>
    </message>
    <message>
        <source>The service answered with the last days of %1: %2 rows.</source>
        <translation>Служба вернула последние дни %1: строк — %2.</translation>
    </message>
    <message>
        <source>Asking %1 ...</source>
        <translation>Запрос к %1 ...</translation>
    </message>
    <message>
        <source>No quotes for %1: %2</source>
        <translation>Нет котировок для %1: %2</translation>
    </message>
</context>
<context>
    <name>OrdaneData::UpdateSummary</name>
    <message>
        <source>%1 updated</source>
        <translation>обновлено: %1</translation>
    </message>
    <message>
        <source>%1 up to date</source>
        <translation>актуально: %1</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>пропущено: %1</translation>
    </message>
    <message>
        <source>%1 failed (%2)</source>
        <translation>ошибок: %1 (%2)</translation>
    </message>
    <message>
        <source>Quotes: nothing to do</source>
        <translation>Котировки: нечего делать</translation>
    </message>
    <message>
        <source>Quotes: %1</source>
        <translation>Котировки: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::CandlesExpertPanel</name>
    <message>
        <source>Activate Guru</source>
        <translation>Включить гуру</translation>
    </message>
    <message>
        <source>Select the patterns to mark; Ctrl+click adds one.</source>
        <translation>Выберите фигуры для отметки; Ctrl+щелчок добавляет ещё одну.</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Сила</translation>
    </message>
    <message>
        <source>Strong</source>
        <translation>Сильные</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Средние</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Слабые</translation>
    </message>
    <message>
        <source>Blending</source>
        <translation>Слияние</translation>
    </message>
    <message>
        <source>Candle Guru</source>
        <translation>Гуру свечей</translation>
    </message>
    <message>
        <source>Mark candle patterns on the price chart</source>
        <translation>Отмечать свечные фигуры на графике цен</translation>
    </message>
    <message>
        <source>Show the patterns closest to their ideal shape</source>
        <translation>Показывать фигуры, ближайшие к идеальной форме</translation>
    </message>
    <message>
        <source>Show the patterns of medium strength</source>
        <translation>Показывать фигуры средней силы</translation>
    </message>
    <message>
        <source>Show the loosest matches</source>
        <translation>Показывать самые слабые совпадения</translation>
    </message>
    <message>
        <source>Test a pair of candles that forms no two-candle pattern as one candle</source>
        <translation>Проверять пару свечей без двухсвечной фигуры как одну свечу</translation>
    </message>
    <message>
        <source>Pattern Name</source>
        <translation>Название фигуры</translation>
    </message>
</context>
<context>
    <name>OrdaneView::CandlesPatternLayer</name>
    <message>
        <source>Strong</source>
        <translation>Сильные</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Средние</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Слабые</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartExport</name>
    <message>
        <source>No chart is shown.</source>
        <translation>График не показан.</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Сохранить изображение</translation>
    </message>
    <message>
        <source>PNG pictures (*.png)</source>
        <translation>Изображения PNG (*.png)</translation>
    </message>
    <message>
        <source>The picture could not be saved: %1</source>
        <translation>Не удалось сохранить изображение: %1</translation>
    </message>
    <message>
        <source>Save CSV</source>
        <translation>Сохранить CSV</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>Файлы CSV (*.csv)</translation>
    </message>
    <message>
        <source>The quotes could not be saved: %1</source>
        <translation>Не удалось сохранить котировки: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartSession</name>
    <message>
        <source>Daily</source>
        <translation>Дни</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Недели</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Месяцы</translation>
    </message>
    <message>
        <source>Quarterly</source>
        <translation>Кварталы</translation>
    </message>
    <message>
        <source>Yearly</source>
        <translation>Годы</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartTemplate</name>
    <message>
        <source>Trawler &amp;Week</source>
        <translation>Trawler &amp;неделя</translation>
    </message>
    <message>
        <source>Trawler &amp;Day</source>
        <translation>Trawler &amp;день</translation>
    </message>
    <message>
        <source>W&amp;ork Template</source>
        <translation>Р&amp;абочий шаблон</translation>
    </message>
    <message>
        <source>W&amp;illiams</source>
        <translation>У&amp;ильямс</translation>
    </message>
    <message>
        <source>&amp;Elder Rays</source>
        <translation>&amp;Лучи Элдера</translation>
    </message>
    <message>
        <source>&amp;BollingerBands</source>
        <translation>&amp;Полосы Боллинджера</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ChartView</name>
    <message>
        <source>Chart Colours</source>
        <translation>Цвета графика</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Свойства</translation>
    </message>
    <message>
        <source>Properties of:</source>
        <translation>Свойства:</translation>
    </message>
    <message>
        <source>Remove &amp;Pair %1</source>
        <translation>Убрать &amp;наложение %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::IndicatorFactoryWidget</name>
    <message>
        <source>Add in New &amp;Pane</source>
        <translation>В новую &amp;панель</translation>
    </message>
    <message>
        <source>Add to &amp;Chart</source>
        <translation>На &amp;график</translation>
    </message>
    <message>
        <source>New Indicator</source>
        <translation>Новый индикатор</translation>
    </message>
    <message>
        <source>&amp;Edit Script</source>
        <translation>&amp;Редактировать скрипт</translation>
    </message>
    <message>
        <source>&amp;Delete Script</source>
        <translation>&amp;Удалить скрипт</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Can not open &quot;%1&quot;:
%2</source>
        <translation>Не удаётся открыть &quot;%1&quot;:
%2</translation>
    </message>
    <message>
        <source>Indicator Name:</source>
        <translation>Имя индикатора:</translation>
    </message>
    <message>
        <source>Can not create an indicator without name</source>
        <translation>Нельзя создать индикатор без имени</translation>
    </message>
    <message>
        <source>The name must begin with a letter and hold only letters, digits and &quot;_&quot;: scripts reach the indicator by this name.</source>
        <translation>Имя должно начинаться с буквы и содержать только буквы, цифры и &quot;_&quot;: скрипты обращаются к индикатору по этому имени.</translation>
    </message>
    <message>
        <source>Can not create the file</source>
        <translation>Не удаётся создать файл</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <source>This file already exists.Press Ok to open the file</source>
        <translation>Такой файл уже есть. Нажмите OK, чтобы открыть его</translation>
    </message>
    <message>
        <source>Delete Indicator</source>
        <translation>Удалить индикатор</translation>
    </message>
    <message>
        <source>Are you sure that you want to delete &quot;%1&quot;? The file is removed from the disk.</source>
        <translation>Вы действительно хотите удалить &quot;%1&quot;? Файл будет удалён с диска.</translation>
    </message>
    <message>
        <source>Can not remove the indicator</source>
        <translation>Не удаётся удалить индикатор</translation>
    </message>
</context>
<context>
    <name>OrdaneView::IndicatorPropertiesDialog</name>
    <message>
        <source>Properties of %1</source>
        <translation>Свойства %1</translation>
    </message>
    <message>
        <source>This indicator has no parameters.</source>
        <translation>У этого индикатора нет параметров.</translation>
    </message>
</context>
<context>
    <name>OrdaneView::MiniView</name>
    <message>
        <source>The whole series. Click or drag to move the chart; drag with the right button to measure.</source>
        <translation>Весь ряд. Щелчок или перетаскивание сдвигает график; перетаскивание правой кнопкой измеряет.</translation>
    </message>
</context>
<context>
    <name>OrdaneView::PairLayer</name>
    <message>
        <source>Pair: %1</source>
        <translation>Наложение: %1</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ScriptEditor</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Сохранить</translation>
    </message>
    <message>
        <source>Run in New &amp;Pane</source>
        <translation>Запустить в новой &amp;панели</translation>
    </message>
    <message>
        <source>Run on &amp;Chart</source>
        <translation>Запустить на &amp;графике</translation>
    </message>
    <message>
        <source>&amp;Debug in New Pane</source>
        <translation>&amp;Отладить в новой панели</translation>
    </message>
    <message>
        <source>Debug on C&amp;hart</source>
        <translation>Отладить на г&amp;рафике</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Найти</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>Найти &amp;далее</translation>
    </message>
    <message>
        <source>Find &amp;Previous</source>
        <translation>Найти &amp;ранее</translation>
    </message>
    <message>
        <source>&amp;Go to Line...</source>
        <translation>&amp;Перейти к строке...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Закрыть</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Правка</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Отменить</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Повторить</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Вырезать</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Вставить</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Запуск</translation>
    </message>
    <message>
        <source>Script</source>
        <translation>Скрипт</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>&amp;Учитывать регистр</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Далее</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Назад</translation>
    </message>
    <message>
        <source>Close the find bar (Esc)</source>
        <translation>Закрыть панель поиска (Esc)</translation>
    </message>
    <message>
        <source>Find:</source>
        <translation>Найти:</translation>
    </message>
    <message>
        <source>%1[*] - Script Editor</source>
        <translation>%1[*] - Редактор скриптов</translation>
    </message>
    <message>
        <source>No file is open.</source>
        <translation>Файл не открыт.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Can not save &quot;%1&quot;:
%2</source>
        <translation>Не удаётся сохранить &quot;%1&quot;:
%2</translation>
    </message>
    <message>
        <source>Script Editor</source>
        <translation>Редактор скриптов</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has been modified.
Do you want to save your changes?</source>
        <translation>&quot;%1&quot; изменён.
Сохранить изменения?</translation>
    </message>
    <message>
        <source>Go to Line</source>
        <translation>Перейти к строке</translation>
    </message>
    <message>
        <source>Line number (1 - %1):</source>
        <translation>Номер строки (1 - %1):</translation>
    </message>
    <message>
        <source>Line %1, Column %2</source>
        <translation>Строка %1, столбец %2</translation>
    </message>
</context>
<context>
    <name>OrdaneView::Scripts</name>
    <message>
        <source>Script error: Unknown binary format</source>
        <translation>Ошибка скрипта: неизвестный двоичный формат</translation>
    </message>
    <message>
        <source>Script error: the packed script is cut short</source>
        <translation>Ошибка скрипта: упакованный скрипт обрезан</translation>
    </message>
    <message>
        <source>Script error: the packed script states %1 bytes, more than the limit of %2 bytes</source>
        <translation>Ошибка скрипта: упакованный скрипт заявляет %1 байт, больше предела в %2 байт</translation>
    </message>
    <message>
        <source>Script error: the packed script is damaged or does not unpack to the %1 bytes it states</source>
        <translation>Ошибка скрипта: упакованный скрипт повреждён или не распаковывается в заявленные %1 байт</translation>
    </message>
    <message>
        <source>Script error: cannot open %1: %2</source>
        <translation>Ошибка скрипта: не удаётся открыть %1: %2</translation>
    </message>
    <message>
        <source>Script error: %1 is larger than the limit of %2 bytes</source>
        <translation>Ошибка скрипта: %1 больше предела в %2 байт</translation>
    </message>
</context>
<context>
    <name>OrdaneView::UserIndicator</name>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>The script ran longer than %1 seconds and was stopped.</source>
        <translation>Скрипт работал дольше %1 секунд и был остановлен.</translation>
    </message>
    <message>
        <source>Script evaluating error</source>
        <translation>Ошибка выполнения скрипта</translation>
    </message>
    <message>
        <source>The script %1 ran longer than %2 seconds in %3() and was stopped.</source>
        <translation>Скрипт %1 выполнял %3() дольше %2 секунд и был остановлен.</translation>
    </message>
    <message>
        <source>getIndicator: indicators nest too deep (%1)</source>
        <translation>getIndicator: слишком глубокая вложенность индикаторов (%1)</translation>
    </message>
</context>
<context>
    <name>OrdaneView::View</name>
    <message>
        <source>&amp;Grid</source>
        <translation>&amp;Сетка</translation>
    </message>
    <message>
        <source>&amp;Properties</source>
        <translation>&amp;Свойства</translation>
    </message>
    <message>
        <source>Indicator:</source>
        <translation>Индикатор:</translation>
    </message>
    <message>
        <source>Indicator Properties</source>
        <translation>Свойства индикатора</translation>
    </message>
    <message>
        <source>Remove Indicator</source>
        <translation>Удалить индикатор</translation>
    </message>
    <message>
        <source>Remove Indicator...</source>
        <translation>Удалить индикатор...</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewOperationsPanel</name>
    <message>
        <source>Zoom in (+)</source>
        <translation>Увеличить (+)</translation>
    </message>
    <message>
        <source>Zoom out (-)</source>
        <translation>Уменьшить (-)</translation>
    </message>
    <message>
        <source>Candles</source>
        <translation>Свечи</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Бары</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Линия</translation>
    </message>
    <message>
        <source>No price chart</source>
        <translation>Без графика цен</translation>
    </message>
    <message>
        <source>D</source>
        <translation>Д</translation>
    </message>
    <message>
        <source>Daily bars</source>
        <translation>Дневные бары</translation>
    </message>
    <message>
        <source>W</source>
        <translation>Н</translation>
    </message>
    <message>
        <source>Weekly bars</source>
        <translation>Недельные бары</translation>
    </message>
    <message>
        <source>M</source>
        <translation>М</translation>
    </message>
    <message>
        <source>Monthly bars</source>
        <translation>Месячные бары</translation>
    </message>
    <message>
        <source>Q</source>
        <translation>К</translation>
    </message>
    <message>
        <source>Quarterly bars</source>
        <translation>Квартальные бары</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Г</translation>
    </message>
    <message>
        <source>Yearly bars</source>
        <translation>Годовые бары</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Сетка</translation>
    </message>
    <message>
        <source>Show the prices of the bar under the pointer</source>
        <translation>Показывать цены бара под указателем</translation>
    </message>
    <message>
        <source>Period separators</source>
        <translation>Разделители периодов</translation>
    </message>
    <message>
        <source>No Separators</source>
        <translation>Без разделителей</translation>
    </message>
    <message>
        <source>Weeks</source>
        <translation>Недели</translation>
    </message>
    <message>
        <source>Months</source>
        <translation>Месяцы</translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation>Кварталы</translation>
    </message>
    <message>
        <source>Years</source>
        <translation>Годы</translation>
    </message>
    <message>
        <source>Save the chart as a picture</source>
        <translation>Сохранить график как изображение</translation>
    </message>
    <message>
        <source>Save the series as CSV</source>
        <translation>Сохранить ряд в CSV</translation>
    </message>
    <message>
        <source>Current price, every minute</source>
        <translation>Текущая цена, каждую минуту</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewParameters</name>
    <message>
        <source>Line</source>
        <translation>Линия</translation>
    </message>
    <message>
        <source>3D Candles</source>
        <translation>Объёмные свечи</translation>
    </message>
    <message>
        <source>Up Bar</source>
        <translation>Растущий бар</translation>
    </message>
    <message>
        <source>Down Bar</source>
        <translation>Падающий бар</translation>
    </message>
    <message>
        <source>Up Candle</source>
        <translation>Растущая свеча</translation>
    </message>
    <message>
        <source>Down Candle</source>
        <translation>Падающая свеча</translation>
    </message>
    <message>
        <source>Up Candle Border</source>
        <translation>Контур растущей свечи</translation>
    </message>
    <message>
        <source>Down Candle Border</source>
        <translation>Контур падающей свечи</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Подпись</translation>
    </message>
    <message>
        <source>Margin Background</source>
        <translation>Фон шкалы</translation>
    </message>
    <message>
        <source>Margin Numbers</source>
        <translation>Числа шкалы</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Сетка</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Фон</translation>
    </message>
    <message>
        <source>Predefined Colors</source>
        <translation>Готовые цвета</translation>
    </message>
    <message>
        <source>%1 (default)</source>
        <translation>%1 (по умолчанию)</translation>
    </message>
    <message>
        <source>Matrix</source>
        <translation>Матрица</translation>
    </message>
    <message>
        <source>Black On White</source>
        <translation>Чёрное на белом</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сбросить</translation>
    </message>
</context>
<context>
    <name>OrdaneView::ViewsContainer</name>
    <message>
        <source>Chart</source>
        <translation>График</translation>
    </message>
    <message>
        <source>There are no stored quotes for %1.</source>
        <translation>Для %1 нет сохранённых котировок.</translation>
    </message>
    <message>
        <source>Chart Colours</source>
        <translation>Цвета графика</translation>
    </message>
    <message>
        <source>Unknown indicator: %1</source>
        <translation>Неизвестный индикатор: %1</translation>
    </message>
    <message>
        <source>Load Template</source>
        <translation>Загрузить шаблон</translation>
    </message>
    <message>
        <source>Unknown indicators left out: %1</source>
        <translation>Пропущены неизвестные индикаторы: %1</translation>
    </message>
    <message>
        <source>Chart templates (*.tt)</source>
        <translation>Шаблоны графиков (*.tt)</translation>
    </message>
    <message>
        <source>Save Template</source>
        <translation>Сохранить шаблон</translation>
    </message>
    <message>
        <source>The template could not be saved: %1</source>
        <translation>Не удалось сохранить шаблон: %1</translation>
    </message>
    <message>
        <source>Template saved: %1</source>
        <translation>Шаблон сохранён: %1</translation>
    </message>
    <message>
        <source>Debugger</source>
        <translation>Отладчик</translation>
    </message>
    <message>
        <source>Can not find the script %1</source>
        <translation>Скрипт %1 не найден</translation>
    </message>
    <message>
        <source>The template could not be read: %1</source>
        <translation>Не удалось прочитать шаблон: %1</translation>
    </message>
    <message>
        <source>No current price for %1: %2</source>
        <translation>Нет текущей цены для %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be brought up to date: %2</source>
        <translation>Не удалось обновить %1: %2</translation>
    </message>
</context>
<context>
    <name>QMRequest::DownloadManager</name>
    <message>
        <source>cancelled</source>
        <translation>отменено</translation>
    </message>
    <message>
        <source>reply larger than %1 MiB</source>
        <translation>ответ больше %1 МиБ</translation>
    </message>
    <message>
        <source>no answer within %1 s</source>
        <translation>нет ответа в течение %1 с</translation>
    </message>
</context>
</TS>
