#pragma once

#include "data/readerh.h"

#include <QCoreApplication>
#include <QImage>
#include <QString>

class QWidget;

namespace OrdaneView {

// Saving what the chart area shows: its picture as PNG, and its series in the frame shown as
// a stored quote file. The file dialogs open over `parent` in the folder used last, and a
// failure is told in a message box there; the old file then stays as it was.
class ChartExport
{
    Q_DECLARE_TR_FUNCTIONS(OrdaneView::ChartExport)

public:
    explicit ChartExport(QWidget *parent)
        : mParent(parent)
    {}

    // Through QSaveFile; false with *error saying why.
    static bool savePicture(const QImage &picture, const QString &path, QString *error = nullptr);
    static bool saveCsv(const OrdaneData::ReaderH &series, const QString &path,
                        QString *error = nullptr);

    // Ask for a file name (proposing `name`.png, or the symbol's name .csv) and save.
    void askAndSavePicture(const QImage &picture, const QString &name) const;
    void askAndSaveCsv(const OrdaneData::ReaderH &series) const;

private:
    QString ask(const QString &title, const QString &fileName, const QString &filter) const;
    void fail(const QString &title, const QString &text) const;

    QWidget *mParent;
};

} // namespace OrdaneView
