// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Small building blocks the settings tabs share: cards, headings, notes, a
// titled switch and the badge pills of the profile cards. Main thread.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace orvanta::settingsui {

// A rounded card with a vertical layout of the given margins.
QFrame *card(QWidget *parent, QVBoxLayout **layout);
// A label with a theme role ("title", "cardTitle", "secondary", ...),
// word-wrapped unless `wrap` is false.
QLabel *label(const QString &role, QWidget *parent, bool wrap = true);
// A page that scrolls vertically only: `content` fills its width.
QScrollArea *scrollPage(QWidget *content, QWidget *parent);

// A switch with its title and an optional note under it.
class SwitchRow : public QWidget
{
    Q_OBJECT
public:
    explicit SwitchRow(QWidget *parent = nullptr);

    QCheckBox *box() const { return m_box; }
    void setTexts(const QString &title, const QString &note = QString());

private:
    QCheckBox *m_box = nullptr;
    QLabel *m_note = nullptr;
};

// "Name value" in a rounded pill; the value stands out.
class Badge : public QWidget
{
    Q_OBJECT
public:
    Badge(QWidget *parent = nullptr);
    void setTexts(const QString &name, const QString &value);
    QString name() const { return m_name; }
    QString value() const { return m_value; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_name;
    QString m_value;
};

} // namespace orvanta::settingsui
