// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One selectable card of the style page: the profile's symbol in its accent
// colour, its title, its description and its summary badges. The selected
// card carries an outline in the accent colour. Main thread.
#pragma once

#include "styles/StyleProfile.h"

#include <QList>
#include <QWidget>

class QGridLayout;
class QLabel;

namespace orvanta {

namespace settingsui {
class Badge;
}

class ProfileCard : public QWidget
{
    Q_OBJECT
public:
    explicit ProfileCard(StyleProfile profile, QWidget *parent = nullptr);

    StyleProfile profile() const { return m_profile; }
    bool isSelected() const { return m_selected; }
    void setSelected(bool selected);
    // Re-reads the title, description and badges in the current language.
    void retranslate();
    QList<settingsui::Badge *> badges() const { return m_badges; }

Q_SIGNALS:
    void chosen(orvanta::StyleProfile profile);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    StyleProfile m_profile;
    bool m_selected = false;
    bool m_hovered = false;
    QLabel *m_icon = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_subtitle = nullptr;
    QGridLayout *m_badgeGrid = nullptr;
    QList<settingsui::Badge *> m_badges;
};

} // namespace orvanta
