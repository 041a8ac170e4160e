// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The layer shown over the whole window while files are dragged over it.
// Purely visual: it lets every mouse and drag event through. Main thread.
#pragma once

#include <QWidget>

namespace orvanta {

class DropOverlay : public QWidget
{
    Q_OBJECT
public:
    explicit DropOverlay(QWidget *parent = nullptr);
    void setTexts(const QString &title, const QString &subtitle);
    QString title() const { return m_title; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_title;
    QString m_subtitle;
};

} // namespace orvanta
