// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The thank-you sheet: a short note and a button that opens the donation page
// in the browser. Main thread.
#pragma once

#include <QDialog>
#include <QUrl>

class QLabel;
class QPushButton;

namespace orvanta {

class AppViewModel;

class DonateSheet : public QDialog
{
    Q_OBJECT
public:
    // `page` is the donation address of this build; an empty one hides the button.
    DonateSheet(AppViewModel &model, const QUrl &page, QWidget *parent = nullptr);

    QPushButton *openButton() const { return m_open; }

private:
    void retranslate();

    AppViewModel &m_model;
    QUrl m_page;
    QLabel *m_title = nullptr;
    QLabel *m_text = nullptr;
    QPushButton *m_open = nullptr;
    QPushButton *m_later = nullptr;
};

} // namespace orvanta
