#pragma once

#include "view/patterns/candlepattern.h"

#include <QList>
#include <QWidget>

class QCheckBox;
class QGroupBox;
class QLabel;
class QTreeWidget;

namespace OrdaneView {

// The "Candle Guru" panel: which candle patterns the chart marks, which strength grades it
// shows and whether pairs are blended.
//
// The controls keep their state in the settings store under "CandleGuru/" and take it back
// when the panel is made; nothing is emitted while the state is restored, so whoever
// connects afterwards reads the starting state through the getters. Every user change is
// stored at once and sent with its signal.
class CandlesExpertPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CandlesExpertPanel(QWidget *parent = nullptr);

    // The selected patterns, in value order.
    QList<CandlePattern::Pattern> requiredPatterns() const;
    // The strength mask: "Strong" 1, "Normal" 2, "Low" 4.
    int strength() const;
    bool isBlending() const;
    // Whether "Activate Guru" is checked.
    bool isActive() const;

signals:
    void required(QList<CandlePattern::Pattern> patterns);
    void strengthChanged(int mask);
    void blendingChanged(bool on);
    void showCandlePatterns(bool on);

public slots:
    // Emits required() with the selected patterns.
    void slotItemSelectionChanged();
    // Emits strengthChanged() with the mask of the checked strength boxes.
    void slotStrengthChanged();
    void slotBlendingChanged(bool on);
    // Enables or disables the list and every box but "Activate Guru".
    void slotEnableGui(bool on);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void restore();
    // Keeps room for several rows of the list, in the list's current font and style.
    void fitListHeight();

    QCheckBox *mGuru;
    QTreeWidget *mList;
    QLabel *mHint;
    QGroupBox *mStrength;
    QCheckBox *mStrong;
    QCheckBox *mNormal;
    QCheckBox *mLow;
    QCheckBox *mBlending;
};

} // namespace OrdaneView
