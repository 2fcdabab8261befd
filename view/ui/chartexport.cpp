#include "chartexport.h"

#include "core/setting.h"
#include "data/quotefile.h"
#include "data/reader.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSaveFile>

namespace OrdaneView {

namespace {
const QMWidgets::Setting<QString> kLastFolder{QStringLiteral("ViewsContainer/LastFolder"),
                                              QDir::homePath()};
} // namespace

bool ChartExport::savePicture(const QImage &picture, const QString &path, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit())
        return true;
    if (error)
        *error = file.errorString();
    return false;
}

bool ChartExport::saveCsv(const OrdaneData::ReaderH &series, const QString &path, QString *error)
{
    if (series.isNull()) {
        if (error)
            *error = tr("No chart is shown.");
        return false;
    }
    return OrdaneData::writeText(path, OrdaneData::seriesToBytes((*series).bars()), error);
}

QString ChartExport::ask(const QString &title, const QString &fileName, const QString &filter) const
{
    const QString path = QFileDialog::getSaveFileName(
        mParent, title, kLastFolder.value() + QLatin1Char('/') + fileName, filter);
    if (!path.isEmpty())
        kLastFolder.setValue(QFileInfo(path).absolutePath());
    return path;
}

void ChartExport::fail(const QString &title, const QString &text) const
{
    QMessageBox::warning(mParent, title, text);
}

void ChartExport::askAndSavePicture(const QImage &picture, const QString &name) const
{
    const QString path =
        ask(tr("Save Picture"), name + QStringLiteral(".png"), tr("PNG pictures (*.png)"));
    QString error;
    if (!path.isEmpty() && !savePicture(picture, path, &error))
        fail(tr("Save Picture"), tr("The picture could not be saved: %1").arg(error));
}

void ChartExport::askAndSaveCsv(const OrdaneData::ReaderH &series) const
{
    if (series.isNull())
        return;
    const QString path =
        ask(tr("Save CSV"), series->symbol() + QStringLiteral(".csv"), tr("CSV files (*.csv)"));
    QString error;
    if (!path.isEmpty() && !saveCsv(series, path, &error))
        fail(tr("Save CSV"), tr("The quotes could not be saved: %1").arg(error));
}

} // namespace OrdaneView
