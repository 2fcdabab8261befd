#pragma once

#include <QDialog>

class QPlainTextEdit;
class QLabel;

namespace OrdaneData {

// Lets the user edit a symbol's stored quote file as text. "&Save" writes the text
// back (the old file stays whole if that fails) and closes the dialog.
class EditCsvDialog : public QDialog
{
    Q_OBJECT

public:
    explicit EditCsvDialog(const QString &symbol, QWidget *parent = nullptr);

    QString symbol() const { return mSymbol; }
    QString text() const;
    void setText(const QString &text);

signals:
    void saved(const QString &symbol);

public slots:
    void slotSave();

private:
    QString mSymbol;
    QPlainTextEdit *mEdit;
    QLabel *mInfo;
};

} // namespace OrdaneData
