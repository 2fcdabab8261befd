#include "scanner.h"

#include "data/net/datamanager.h"
#include "data/quotefile.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFile>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {

// Whether the stored file of `symbol` is a quote file holding at least one bar.
bool storedWithQuotes(const QString &symbol)
{
    QFile file(OrdaneData::fileOf(symbol));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = file.readAll();
    return text.startsWith("Date") &&
           !OrdaneData::scanBars(text.constData(), text.constData() + text.size(),
                                 OrdaneData::LineScan::WholeFile)
                .isEmpty();
}

} // namespace

Scanner::Scanner(OrdaneData::DataManager *manager, QWidget *parent)
    : QDialog(parent)
    , mManager(manager ? manager : new OrdaneData::DataManager(this))
    , mStart(new QSpinBox(this))
    , mPrefix(new QLineEdit(this))
    , mPostfix(new QLineEdit(QStringLiteral(".de"), this))
    , mSymbols(new QLineEdit(mGenerator.alphabet(), this))
    , mPadding(new QSpinBox(this))
    , mFill(new QLineEdit(this))
    , mProgress(new QProgressBar(this))
    , mStatus(new QLabel(this))
    , mScan(new QPushButton(tr("&Scan"), this))
    , mHide(new QPushButton(tr("&Hide"), this))
    , mClose(new QPushButton(tr("&Close"), this))
{
    setObjectName(QStringLiteral("Scanner"));
    setWindowTitle(tr("%1 Scanner").arg(QStringLiteral("Halcyra")));
    setModal(false);

    mStart->setObjectName(QStringLiteral("ScannerStart"));
    mStart->setRange(0, 20000000);
    mStart->setMinimumWidth(40);
    mStart->setToolTip(tr("The index of the first candidate to try"));
    mPrefix->setObjectName(QStringLiteral("ScannerPrefix"));
    mPostfix->setObjectName(QStringLiteral("ScannerPostfix"));
    mPostfix->setToolTip(tr("Appended to every candidate, such as the market's suffix"));
    mSymbols->setObjectName(QStringLiteral("ScannerSymbols"));
    // The whole default alphabet in view, in the font the style sheet gives the field.
    mSymbols->ensurePolished();
    mSymbols->setMinimumWidth(mSymbols->fontMetrics().horizontalAdvance(mSymbols->text()) + 24);
    mSymbols->setToolTip(tr("The characters candidates are made of; the last one is never used"));
    mPadding->setObjectName(QStringLiteral("ScannerPadding"));
    mPadding->setRange(1, 20);
    mPadding->setValue(mGenerator.length());
    mPadding->setToolTip(tr("The longest candidate, and the width \"Fill out:\" pads to"));
    mFill->setObjectName(QStringLiteral("ScannerFill"));
    mFill->setToolTip(tr("Pads shorter candidates on the left with its first character"));
    mProgress->setObjectName(QStringLiteral("ScannerProgress"));
    mProgress->setRange(0, 100);
    mProgress->setValue(0);
    mStatus->setObjectName(QStringLiteral("ScannerStatus"));
    mStatus->setTextFormat(Qt::RichText);
    mStatus->setAlignment(Qt::AlignCenter);
    mStatus->setMinimumHeight(mStatus->fontMetrics().lineSpacing() * 4);
    mScan->setObjectName(QStringLiteral("ScannerScan"));
    mScan->setCheckable(true);
    mHide->setObjectName(QStringLiteral("ScannerHide"));
    mClose->setObjectName(QStringLiteral("ScannerClose"));
    // Return in a field must not switch the scan on or off.
    for (QPushButton *button : {mScan, mHide, mClose})
        button->setAutoDefault(false);

    auto *form = new QFormLayout;
    form->addRow(tr("&Start value:"), mStart);
    form->addRow(tr("Prefix:"), mPrefix);
    form->addRow(tr("Postfix:"), mPostfix);
    form->addRow(tr("Symbols:"), mSymbols);
    form->addRow(tr("Padding:"), mPadding);
    form->addRow(tr("Fill out:"), mFill);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(mScan);
    buttons->addStretch(1);
    buttons->addWidget(mHide);
    buttons->addWidget(mClose);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(mProgress);
    layout->addWidget(mStatus);
    layout->addLayout(buttons);

    connect(mScan, &QPushButton::toggled, this, &Scanner::slotScan);
    connect(mHide, &QPushButton::clicked, this, &QWidget::hide);
    connect(mClose, &QPushButton::clicked, this, &QWidget::close);
    connect(mSymbols, &QLineEdit::textChanged, this, &Scanner::slotSymbolsChanged);
    connect(mPadding, qOverload<int>(&QSpinBox::valueChanged), this, &Scanner::slotPaddingChanged);
    // The probe's thread uses the data manager, which may go before this dialog does.
    if (QCoreApplication::instance())
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                &Scanner::abandonProbe);
}

Scanner::~Scanner()
{
    abandonProbe();
}

void Scanner::abandonProbe()
{
    if (!mThread)
        return;
    mThread->disconnect(this);
    mThread->stop();
    mThread->wait();
    mProbing = false;
}

bool Scanner::isScanning() const
{
    return mScan->isChecked();
}

QString Scanner::statusText() const
{
    return mStatus->text();
}

void Scanner::slotSymbolsChanged(const QString &symbols)
{
    mGenerator.setAlphabet(symbols);
}

void Scanner::slotPaddingChanged(int padding)
{
    mGenerator.setLength(padding);
}

void Scanner::setInputsEnabled(bool enabled)
{
    for (QWidget *input :
         std::initializer_list<QWidget *>{mStart, mPrefix, mPostfix, mSymbols, mPadding, mFill})
        input->setEnabled(enabled);
}

void Scanner::slotScan()
{
    if (!mScan->isChecked()) {
        mScan->setText(tr("&Scan"));
        setInputsEnabled(true);
        return;
    }
    if (!mManager->service().hasTables()) {
        mStatus->setText(OrdaneData::QuoteService::notConfigured().toHtmlEscaped());
        mScan->setChecked(false);
        return;
    }
    mGenerator.setIndex(quint64(mStart->value()));
    mFound = 0;
    mScan->setText(tr("&Stop"));
    setInputsEnabled(false);
    // A probe of a scan switched off a moment ago may still be out; its end takes the step.
    if (!mProbing)
        step();
}

void Scanner::step()
{
    if (!isScanning() || mGenerator.atEnd()) {
        mScan->setChecked(false);
        return;
    }
    const QString candidate = mGenerator.next();
    probe(probeSymbol(candidate, mPrefix->text(), mPostfix->text(), mFill->text(),
                      mPadding->value()));
}

void Scanner::probe(const QString &symbol)
{
    mProbing = true;
    mCurrent = symbol;
    // Made here rather than by DataManager::start(), so that its signals are connected before
    // it runs: a probe that fails at once must still end the step.
    auto *thread = new OrdaneData::DataManagerThread(mManager, {symbol});
    thread->setWhole(true);
    connect(thread, &OrdaneData::DataManagerThread::updated, this, &Scanner::probeEnded);
    mThread = thread;
    thread->start();
}

void Scanner::probeEnded(const QString &symbol, const OrdaneData::UpdateOutcome &outcome)
{
    mProbing = false;
    const bool found = (outcome.kind == OrdaneData::UpdateOutcome::Updated ||
                        outcome.kind == OrdaneData::UpdateOutcome::UpToDate) &&
                       storedWithQuotes(symbol);
    slotDone(found ? symbol : QString());
}

void Scanner::slotDone(const QString &symbol)
{
    const quint64 count = mGenerator.candidateCount();
    mProgress->setValue(count ? int(mGenerator.index() * 100 / count) : 0);
    if (!symbol.isEmpty()) {
        ++mFound;
        emit found(symbol);
    }
    // "Scaned" is spelled so on purpose; keep.
    mStatus->setText(tr("<CENTER>Scaned %1 of %2<BR>Found: %3<BR>Current: %4<BR></CENTER>")
                         .arg(mGenerator.index())
                         .arg(count)
                         .arg(mFound)
                         .arg(mCurrent.toHtmlEscaped()));
    if (!mProbing)
        step();
}

void Scanner::closeEvent(QCloseEvent *event)
{
    mScan->setChecked(false);
    QDialog::closeEvent(event);
}

} // namespace OrdaneBrowser
