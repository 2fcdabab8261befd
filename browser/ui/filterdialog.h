#pragma once

#include <QDialog>
#include <QStackedWidget>

class QListWidget;
class QListWidgetItem;
class QProgressBar;
class QPushButton;

namespace OrdaneBrowser {

class Filter;

// The filter pages, one per filter of the catalogue and in its order. Each page is a plain
// widget holding its filter, with no margin, named after the filter's class
// ("OrdaneBrowser::RSIFilter"); the filters' progress(int) comes out as the container's.
class FiltersContainer : public QStackedWidget
{
    Q_OBJECT

public:
    FiltersContainer(QPushButton *stop, QWidget *parent = nullptr);

    Filter *filter(int index) const;
    Filter *currentFilter() const { return filter(currentIndex()); }
    // The list entries: each page's name without "OrdaneBrowser::".
    QStringList entries() const;

signals:
    void progress(int percent);

public slots:
    void slotSetFilter(int index);
    void slotApply();
};

// The filter dialog: the list of filters, the chosen filter's page, a progress bar with the
// stop button ("ComboProgressStop"), the notice, "&Hide" and "&Close". Made by the storage
// browser on first use and kept, so that values and results survive.
class FilterDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FilterDialog(QWidget *parent = nullptr);

    FiltersContainer *container() const { return mContainer; }
    QListWidget *list() const { return mList; }
    QPushButton *stopButton() const { return mStop; }
    QProgressBar *progressBar() const { return mProgress; }
    // The notice above the buttons, word for word.
    static QString notice();

public slots:
    void slotFilterChanged(QListWidgetItem *current, QListWidgetItem *previous);
    void slotSetProgress(int percent);
    void slotApply();
    void slotDone(const QString &symbol);

private:
    QListWidget *mList;
    QPushButton *mStop;
    QProgressBar *mProgress;
    FiltersContainer *mContainer;
};

} // namespace OrdaneBrowser
