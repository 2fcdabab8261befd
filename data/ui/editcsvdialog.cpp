#include "editcsvdialog.h"

#include "data/quotefile.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneData {

EditCsvDialog::EditCsvDialog(const QString &symbol, QWidget *parent)
    : QDialog(parent)
    , mSymbol(symbol)
    , mEdit(new QPlainTextEdit(this))
    , mInfo(new QLabel(this))
{
    setObjectName(QStringLiteral("EditCsvDialog"));
    setWindowTitle(symbol);
    mEdit->setObjectName(QStringLiteral("EditCsvDialogText"));
    mEdit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    mEdit->setLineWrapMode(QPlainTextEdit::NoWrap);

    QFile file(fileOf(symbol));
    if (file.open(QIODevice::ReadOnly))
        mEdit->setPlainText(QString::fromLatin1(file.readAll()));
    mInfo->setText(QDir::toNativeSeparators(fileOf(symbol)));

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *save = buttons->addButton(tr("&Save"), QDialogButtonBox::AcceptRole);
    QPushButton *cancel = buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    save->setObjectName(QStringLiteral("EditCsvDialogSave"));
    cancel->setObjectName(QStringLiteral("EditCsvDialogCancel"));
    connect(save, &QPushButton::clicked, this, &EditCsvDialog::slotSave);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mInfo);
    layout->addWidget(mEdit);
    layout->addWidget(buttons);
    resize(640, 560);
}

QString EditCsvDialog::text() const
{
    return mEdit->toPlainText();
}

void EditCsvDialog::setText(const QString &text)
{
    mEdit->setPlainText(text);
}

void EditCsvDialog::slotSave()
{
    QString error;
    if (!writeText(fileOf(mSymbol), mEdit->toPlainText(), &error)) {
        QMessageBox::warning(this, tr("Error"),
                             tr("The data for %1 could not be saved: %2").arg(mSymbol, error));
        return;
    }
    emit saved(mSymbol);
    QMessageBox::information(this, tr("Information"),
                             tr("The data for ") + mSymbol + tr(" was successfully saved"));
    accept();
}

} // namespace OrdaneData
