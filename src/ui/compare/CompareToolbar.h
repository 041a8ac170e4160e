// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The compare window's top row: navigation, the photo's name, rating and peak,
// the display badge, the compare-mode selector, the zebra, histogram and
// inspector toggles with the zebra thresholds in a drop-down, and sharing.
// A passive set of controls the compare view wires up. Main thread.
#pragma once

#include <QWidget>

class QAction;
class QButtonGroup;
class QCheckBox;
class QLabel;
class QMenu;
class QSlider;
class QToolButton;

namespace orvanta {

class AppViewModel;

class CompareToolbar : public QWidget
{
    Q_OBJECT
public:
    explicit CompareToolbar(AppViewModel &model, QWidget *parent = nullptr);

    void retranslate();
    void setPosition(int index, int count);
    void setPhoto(const QString &stem, qint64 rating, const QString &peak);
    void setDisplayHeadroom(double headroom);

    QToolButton *previous = nullptr;
    QToolButton *next = nullptr;
    QButtonGroup *modes = nullptr; // ids are the compare modes' raw values
    QToolButton *zebra = nullptr;
    QToolButton *zebraOptions = nullptr;
    QSlider *zebraThreshold = nullptr; // tenths: 5...40
    QCheckBox *shadowZebra = nullptr;
    QSlider *shadowThreshold = nullptr; // hundredths: 1...50
    QToolButton *histogram = nullptr;
    QToolButton *inspector = nullptr;
    QToolButton *share = nullptr;
    QMenu *shareMenu = nullptr;
    QAction *copyPath = nullptr;
    QAction *reveal = nullptr;
    QAction *openDefault = nullptr;
    QLabel *position = nullptr;
    QLabel *stem = nullptr;
    QLabel *badgeText = nullptr;

    void showThresholds(double zebraValue, double shadowValue);
    // Short of room: the badge and the histogram button show icons only.
    bool isCompact() const { return m_compact; }

Q_SIGNALS:
    // The narrowest the row can be (all its texts as icons) changed.
    void compactWidthChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QToolButton *iconButton(const QString &symbol, const QString &name);
    QWidget *zebraPanel();
    void updateCompactness();
    void setCompact(bool compact);

    AppViewModel &m_model;
    QLabel *m_rating = nullptr;
    QLabel *m_peak = nullptr;
    QLabel *m_badgeIcon = nullptr;
    QLabel *m_zebraLabel = nullptr;
    QLabel *m_zebraValue = nullptr;
    QLabel *m_shadowValue = nullptr;
    double m_headroom = 1.0;
    int m_fullWidth = 0;
    bool m_compact = false;
};

} // namespace orvanta
