// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Settings page for where photos come from and go to: the default folders,
// the export naming template with its chips, live preview and warnings, and
// the subfolder rule. Main thread.
#pragma once

#include "ui/settings/SettingsHooks.h"

#include <QList>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orvanta {

class AppViewModel;

class PathsTab : public QWidget
{
    Q_OBJECT
public:
    // Subfolder rules offered, in order, with their text keys.
    static const QList<std::pair<QString, const char *>> &subfolderRules();

    PathsTab(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent = nullptr);

    QLineEdit *templateField() const { return m_template; }
    QPushButton *chip(int index) const { return m_chips.value(index); }
    QLabel *preview() const { return m_preview; }
    QLabel *warning() const { return m_warning; }
    QComboBox *subfolderPicker() const { return m_subfolder; }
    QPushButton *browseSourceButton() const { return m_browseSource; }
    QPushButton *browseDestButton() const { return m_browseDest; }
    QLabel *sourcePath() const { return m_sourcePath; }
    QLabel *destPath() const { return m_destPath; }

private:
    QWidget *buildFolders();
    QWidget *buildNaming();
    QWidget *buildPreview(QWidget *parent);
    void retranslate();
    void showFolders();
    void showTemplate();
    void showSubfolderRule();
    void updatePreview();

    AppViewModel &m_model;
    const SettingsHooks &m_hooks;
    QLabel *m_sourceTitle = nullptr;
    QLabel *m_destTitle = nullptr;
    QLabel *m_sourcePath = nullptr;
    QLabel *m_destPath = nullptr;
    QPushButton *m_browseSource = nullptr;
    QPushButton *m_browseDest = nullptr;
    QLabel *m_namingTitle = nullptr;
    QLabel *m_templateTitle = nullptr;
    QLineEdit *m_template = nullptr;
    QLabel *m_help = nullptr;
    QList<QPushButton *> m_chips;
    QLabel *m_previewTitle = nullptr;
    QLabel *m_preview = nullptr;
    QLabel *m_warning = nullptr;
    QLabel *m_subfolderTitle = nullptr;
    QComboBox *m_subfolder = nullptr;
};

} // namespace orvanta
