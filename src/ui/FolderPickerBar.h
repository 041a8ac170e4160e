// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The set-up panel of the main window: source and delivery folders (the
// source also takes drops), the style preset with its description, the run
// options, and the start / stop button. Bound to the model. Main thread.
#pragma once

#include "core/AppViewModel.h"

#include <QFrame>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orvanta {

class FolderField;

class FolderPickerBar : public QFrame
{
    Q_OBJECT
public:
    FolderPickerBar(AppViewModel &model, AppViewModel::FolderChooser chooser,
                    QWidget *parent = nullptr);

    FolderField *sourceField() const { return m_source; }
    FolderField *destField() const { return m_dest; }
    QPushButton *runButton() const { return m_run; }
    QPushButton *pauseButton() const { return m_pause; }

private:
    QWidget *buildStyleColumn();
    QWidget *buildOptionsColumn();
    QWidget *buildFilterColumn();
    void retranslate();
    void syncFromModel();
    void updateRunButton();
    void onRunClicked();

    AppViewModel &m_model;
    AppViewModel::FolderChooser m_chooser;
    FolderField *m_source = nullptr;
    FolderField *m_dest = nullptr;
    QLabel *m_styleTitle = nullptr;
    QComboBox *m_profile = nullptr;
    QLabel *m_profileDescription = nullptr;
    QLabel *m_optionsTitle = nullptr;
    QCheckBox *m_backlit = nullptr;
    QCheckBox *m_force = nullptr;
    QCheckBox *m_dryRun = nullptr;
    QCheckBox *m_watch = nullptr;
    QLabel *m_ratingLabel = nullptr;
    QComboBox *m_rating = nullptr;
    QLabel *m_stemLabel = nullptr;
    QLineEdit *m_stem = nullptr;
    QPushButton *m_run = nullptr;
    QPushButton *m_pause = nullptr;
    QWidget *m_settingsArea = nullptr;
};

} // namespace orvanta
