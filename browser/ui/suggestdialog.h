#pragma once

#include "browser/suggestions.h"

#include <QDialog>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace QMRequest {
class DownloadManager;
}

namespace OrdaneBrowser {

// Offered when a typed symbol has no quotes: the candidates (see suggestSymbols()) under the
// columns "Type", "Stock exchange", "Name", "Symbol". Each is asked of the quote service in
// turn (its last days); one without quotes is shown disabled, so only symbols that can be
// had are chosen. "&Add Selected" accepts with the selected rows, "&Cancel" rejects.
class SuggestDialog : public QDialog
{
    Q_OBJECT

public:
    SuggestDialog(const QString &typed, const QVector<Candidate> &candidates,
                  const OrdaneData::QuoteService &service, QWidget *parent = nullptr);
    ~SuggestDialog() override;

    // The symbols of the selected rows, in list order.
    QStringList chosenSymbols() const;
    QTreeWidget *list() const { return mList; }
    // Whether every candidate has been asked about.
    bool isChecked() const { return mNext >= mItems.size(); }

signals:
    // The service answered about every candidate.
    void checked();

private:
    void checkNext();
    void answered(bool available);

    OrdaneData::QuoteService mService;
    QTreeWidget *mList;
    QLabel *mNote;
    QList<QTreeWidgetItem *> mItems;
    int mNext = 0;
    QMRequest::DownloadManager *mTransfer;
};

// Names the symbols for which no history can be had.
class NotAvailableDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NotAvailableDialog(const QVector<Candidate> &symbols, QWidget *parent = nullptr);
    QTreeWidget *list() const { return mList; }

private:
    QTreeWidget *mList;
};

} // namespace OrdaneBrowser
