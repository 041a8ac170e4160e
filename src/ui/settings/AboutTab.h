// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Settings page about the application: its name, tagline, version, the
// engine badge, and the open-source projects it is built on with their
// licences. Main thread.
#pragma once

#include <QList>
#include <QWidget>

class QLabel;

namespace orvanta {

class AppViewModel;
class Updater;

struct Acknowledgement
{
    QString project;
    QString licence;
    QString website;
};

class AboutTab : public QWidget
{
    Q_OBJECT
public:
    // The libraries this build links, each with the licence it is used under.
    static const QList<Acknowledgement> &acknowledgements();

    AboutTab(AppViewModel &model, Updater *updater, QWidget *parent = nullptr);

    QLabel *versionLabel() const { return m_version; }
    QWidget *acknowledgementList() const { return m_list; }

private:
    QWidget *buildHeader(Updater *updater);
    QWidget *buildAcknowledgements();
    void retranslate();

    AppViewModel &m_model;
    QLabel *m_title = nullptr;
    QLabel *m_tagline = nullptr;
    QLabel *m_version = nullptr;
    QLabel *m_badge = nullptr;
    QLabel *m_ackTitle = nullptr;
    QLabel *m_ackDescription = nullptr;
    QWidget *m_list = nullptr;
};

} // namespace orvanta
