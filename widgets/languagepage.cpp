#include "languagepage.h"

#include "app.h"
#include "core/language.h"
#include "core/setting.h"
#include "core/translationsmanager.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QVBoxLayout>

namespace QMWidgets {

namespace {
struct Offer
{
    const char *code;
    const char *name;
};

const Offer kOffered[] = {
    {"en", QT_TRANSLATE_NOOP("QMWidgets::LanguagePage", "English")},
    {"ru", QT_TRANSLATE_NOOP("QMWidgets::LanguagePage", "Russian")},
    {"de", QT_TRANSLATE_NOOP("QMWidgets::LanguagePage", "German")},
};
} // namespace

LanguagePage::LanguagePage(QWidget *parent)
    : QWidget(parent)
    , mChoice(new QComboBox(this))
    , mInUse(interfaceLanguage())
{
    setObjectName(QStringLiteral("LanguagePage"));
    mChoice->setObjectName(QStringLiteral("LanguagePageChoice"));
    for (const Offer &o : kOffered)
        mChoice->addItem(tr(o.name), QLatin1String(o.code));
    if (mChoice->findData(mInUse) < 0) {
        // Chosen from the system locale; shown by its own name, which no translation has.
        mChoice->addItem(QLocale(mInUse).nativeLanguageName(), mInUse);
    }
    mChoice->setCurrentIndex(mChoice->findData(mInUse));

    auto *note = new QLabel(tr("The interface language is used from the next start."), this);
    note->setWordWrap(true);

    auto *form = new QFormLayout;
    form->addRow(tr("&Language:"), mChoice);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addStretch(1);
}

QString LanguagePage::language() const
{
    return mChoice->currentData().toString();
}

bool LanguagePage::setLanguage(const QString &code)
{
    const int index = mChoice->findData(code);
    if (index < 0)
        return false;
    mChoice->setCurrentIndex(index);
    return true;
}

QStringList LanguagePage::languages() const
{
    QStringList codes;
    for (int i = 0; i < mChoice->count(); ++i)
        codes << mChoice->itemData(i).toString();
    return codes;
}

void LanguagePage::apply()
{
    const QString chosen = language();
    if (chosen == mInUse)
        return;
    storeLanguage(chosen);
    mInUse = chosen;
    emit restartNeeded();
    showRestartNotice();
}

void LanguagePage::showRestartNotice()
{
    tellLanguageChanged(this);
}

void storeLanguage(const QString &code)
{
    Setting<QString>(QStringLiteral("Language"), QString()).setValue(code);
    // Texts made from now on are translated; the windows already open keep theirs until
    // the next start.
    if (auto *app = App::instance())
        app->translations()->install(code);
}

void tellLanguageChanged(QWidget *parent)
{
    QMessageBox::information(parent, LanguagePage::tr("Language"),
                             LanguagePage::tr("The Language is changed now."));
}

} // namespace QMWidgets
