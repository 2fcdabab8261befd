#include "infodialog.h"

#include "data/exchanges.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {

struct Figure
{
    const char *column;
    const char *label;
};

// The figures by topic. Labels are translated in InfoDialog's context.
const Figure kValuation[] = {
    {"marktkap", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Market capitalisation")},
    {"ebitda", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "EBITDA")},
    {"pe", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "P/E ratio")},
    {"peg", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "PEG ratio")},
    {"pricesales", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Price/sales ratio")},
    {"pricebook", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Price/book ratio")},
    {"bookvalue", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Book value per share")},
};
const Figure kEarnings[] = {
    {"earningshare", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Earnings per share")},
    {"epsecy", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "EPS estimate, this year")},
    {"epseny", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "EPS estimate, next year")},
    {"epsexq", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "EPS estimate, next quarter")},
    {"pepsecy", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "P/E on this year's estimate")},
};
const Figure kDividends[] = {
    {"dividendsshare", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Dividend per share")},
    {"dy", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Dividend yield")},
    {"exdividenddate", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Ex-dividend date")},
    {"dividenpaydate", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Dividend pay date")},
};
const Figure kTrading[] = {
    {"shortratio", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Short ratio")},
    {"currency", QT_TRANSLATE_NOOP("OrdaneBrowser::InfoDialog", "Currency")},
};

QLabel *heading(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("InfoDialogHeading"));
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QString shown(const QMap<QString, QString> &record, const char *column)
{
    const QString text = InfoDialog::displayValue(record.value(QLatin1String(column)));
    bool number = false;
    text.toDouble(&number);
    // The service gives the yield as a bare percentage.
    if (number && qstrcmp(column, "dy") == 0)
        return text + QStringLiteral(" %");
    return text;
}

template <size_t N>
void addFigures(QFormLayout *form, const QString &title, const Figure (&figures)[N],
                const QMap<QString, QString> &record, QWidget *parent)
{
    if (form->rowCount() > 0)
        form->addItem(new QSpacerItem(0, 8));
    form->addRow(heading(title, parent));
    for (const Figure &figure : figures) {
        auto *value = new QLabel(shown(record, figure.column), parent);
        value->setObjectName(QLatin1String(figure.column));
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        form->addRow(InfoDialog::tr(figure.label), value);
    }
}

QFormLayout *figureColumn()
{
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setHorizontalSpacing(16);
    form->setVerticalSpacing(4);
    return form;
}

} // namespace

InfoDialog::InfoDialog(const QString &symbol, const QMap<QString, QString> &record, QWidget *parent)
    : QDialog(parent)
    , mSymbol(symbol)
{
    setObjectName(QStringLiteral("InfoDialog"));
    setWindowTitle(tr("Symbol Information"));

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(8);

    const QString name = record.value(QStringLiteral("name"));
    const bool named = !name.isEmpty() && name != QLatin1String("N/A");
    auto *title = new QLabel(named ? tr("%1 – %2").arg(symbol, name) : symbol, this);
    title->setObjectName(QStringLiteral("InfoDialogTitle"));
    title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont titleFont = title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.35);
    title->setFont(titleFont);
    layout->addWidget(title);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("InfoDialogClose"));
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    if (record.isEmpty()) {
        auto *none = new QLabel(tr("No information is stored about %1.").arg(symbol), this);
        none->setObjectName(QStringLiteral("InfoDialogNone"));
        layout->addWidget(none);
        layout->addStretch(1);
        layout->addWidget(buttons);
        return;
    }

    // The exchange: its display name with the country's flag; an unknown code as it came.
    const QString code = record.value(QStringLiteral("exchange"));
    const OrdaneData::Exchange *exchange = OrdaneData::findExchange(code);
    auto *flag = new QLabel(this);
    flag->setObjectName(QStringLiteral("InfoDialogFlag"));
    if (exchange && !exchange->flag.isEmpty())
        flag->setPixmap(QPixmap(exchange->flag));
    flag->setVisible(!flag->pixmap(Qt::ReturnByValue).isNull());
    auto *market = new QLabel(exchange ? exchange->name : displayValue(code), this);
    market->setObjectName(QStringLiteral("InfoDialogExchange"));
    auto *marketRow = new QHBoxLayout;
    marketRow->setSpacing(6);
    marketRow->addWidget(flag);
    marketRow->addWidget(market, 1);
    layout->addLayout(marketRow);

    auto *rule = new QFrame(this);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    layout->addWidget(rule);

    QFormLayout *left = figureColumn();
    QFormLayout *right = figureColumn();
    auto *columns = new QHBoxLayout;
    columns->setSpacing(28);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    layout->addLayout(columns);
    addFigures(left, tr("Valuation"), kValuation, record, this);
    addFigures(left, tr("Trading"), kTrading, record, this);
    addFigures(right, tr("Earnings"), kEarnings, record, this);
    addFigures(right, tr("Dividends"), kDividends, record, this);

    auto *refresh = new QLabel(displayValue(record.value(QStringLiteral("lastupdate"))), this);
    refresh->setObjectName(QStringLiteral("lastupdate"));
    auto *footer = new QFormLayout;
    auto *refreshLabel = new QLabel(tr("Last refresh"), this);
    refreshLabel->setObjectName(QStringLiteral("InfoDialogRefresh"));
    footer->addRow(refreshLabel, refresh);
    layout->addSpacing(4);
    layout->addLayout(footer);
    layout->addStretch(1);
    layout->addWidget(buttons);
}

QString InfoDialog::displayValue(const QString &value)
{
    const QString trimmed = value.trimmed();
    if (trimmed.isEmpty() || trimmed == QLatin1String("N/A"))
        return QStringLiteral("–");
    return trimmed;
}

} // namespace OrdaneBrowser
