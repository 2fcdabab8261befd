#pragma once

#include <QWidget>

class QComboBox;

namespace QMWidgets {

// Settings page of the interface language. Offers English ("en"), Russian ("ru") and German
// ("de"); when the language in use is another one the program knows (from the system
// locale), it is offered as well, so that opening the page changes nothing.
//
// apply() stores the chosen code under "Language" when it differs from the language in use,
// then emits restartNeeded() and tells the user "The Language is changed now.": dialogs
// opened from then on speak it, the main window from the next start. While
// the choice is unchanged nothing is stored, and the language keeps following the system
// locale when it did so before.
class LanguagePage : public QWidget
{
    Q_OBJECT

public:
    explicit LanguagePage(QWidget *parent = nullptr);

    // The code of the language chosen on the page.
    QString language() const;
    // Chooses `code` when the page offers it; returns whether it does.
    bool setLanguage(const QString &code);
    // The codes offered, in order.
    QStringList languages() const;

public slots:
    void apply();

signals:
    // The stored language changed; it takes effect at the next start.
    void restartNeeded();

protected:
    // Tells the user that the language changed; a message box here.
    virtual void showRestartNotice();

private:
    QComboBox *mChoice;
    QString mInUse;
};

// Stores `code` under "Language" and installs its translators for the texts made from now on.
void storeLanguage(const QString &code);
// The message box "The Language is changed now.".
void tellLanguageChanged(QWidget *parent);

} // namespace QMWidgets
