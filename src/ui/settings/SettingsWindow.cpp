// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/SettingsWindow.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/WindowPlacement.h"
#include "ui/settings/AboutTab.h"
#include "ui/settings/PathsTab.h"
#include "ui/settings/PerformanceTab.h"
#include "ui/settings/SafetyTab.h"
#include "ui/settings/SettingsWidgets.h"
#include "ui/settings/StyleTab.h"
#include "ui/settings/UpdatesTab.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct TabInfo
{
    const char *key;
    const char16_t *symbol;
    const char16_t *objectName;
};

constexpr TabInfo kTabs[SettingsWindow::TabCount] = {
    { "settings_tab_perf", u"cpu", u"tabPerformance" },
    { "settings_tab_paths", u"folder.fill", u"tabPaths" },
    { "settings_tab_safety", u"shield.checkerboard", u"tabSafety" },
    { "settings_tab_styles", u"sparkles", u"tabStyles" },
    { "settings_tab_updates", u"arrow.triangle.2.circlepath", u"tabUpdates" },
    { "settings_tab_about", u"info.circle", u"tabAbout" },
};

} // namespace

SettingsWindow::SettingsWindow(AppViewModel &model, Updater *updater, SettingsHooks hooks,
                               QWidget *parent)
    : QDialog(parent)
    , m_model(model)
    , m_hooks(std::move(hooks))
{
    setObjectName(u"settingsWindow"_s);
    m_hooks.completeWithDefaults(this, [this](const char *key) { return m_model.t(key); });
    setMinimumSize(760, 520);

    m_performance = new PerformanceTab(m_model, this);
    m_paths = new PathsTab(m_model, m_hooks, this);
    m_safety = new SafetyTab(m_model, m_hooks, this);
    m_style = new StyleTab(m_model, m_hooks, this);
    m_updates = new UpdatesTab(m_model, updater, this);
    m_about = new AboutTab(m_model, updater, this);

    m_pages = new QStackedWidget(this);
    for (QWidget *page : { static_cast<QWidget *>(m_performance), static_cast<QWidget *>(m_paths),
                           static_cast<QWidget *>(m_safety), static_cast<QWidget *>(m_style),
                           static_cast<QWidget *>(m_updates), static_cast<QWidget *>(m_about) }) {
        auto *content = new QWidget;
        auto *box = new QVBoxLayout(content);
        box->setContentsMargins(22, 20, 22, 20);
        box->addWidget(page);
        m_pages->addWidget(settingsui::scrollPage(content, m_pages));
    }

    m_done = new QPushButton(this);
    m_done->setObjectName(u"settingsDone"_s);
    m_done->setProperty("role", u"primary"_s);
    m_done->setDefault(true);
    connect(m_done, &QPushButton::clicked, this, &QDialog::accept);
    auto *footer = new QHBoxLayout;
    footer->setContentsMargins(22, 10, 22, 16);
    footer->addStretch(1);
    footer->addWidget(m_done);

    auto *right = new QVBoxLayout;
    right->setContentsMargins(0, 0, 0, 0);
    right->setSpacing(0);
    right->addWidget(m_pages, 1);
    right->addLayout(footer);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(buildSidebar());
    layout->addLayout(right, 1);

    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &SettingsWindow::retranslate);
    // The pressure description is stored as text: read it again in the new
    // language rather than leave the old one on show.
    connect(&m_model, &AppViewModel::currentLanguageChanged, &m_model,
            &AppViewModel::updateMemoryProbe);
    retranslate();
    showTab(Performance);
    // Where the user left it, else the design size; never beyond the screen
    // (a laptop at 200 % has 960x540 points), with every edge reachable.
    placement::restore(this, u"settings"_s, QSize(980, 700));
    // The probe page shows what the machine has now, not at start-up.
    m_model.updateMemoryProbe();
}

void SettingsWindow::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    placement::save(this, u"settings"_s);
}

QWidget *SettingsWindow::buildSidebar()
{
    auto *bar = new QFrame(this);
    bar->setObjectName(u"settingsSidebar"_s);
    bar->setProperty("role", u"inset"_s);
    auto *box = new QVBoxLayout(bar);
    box->setContentsMargins(10, 16, 10, 16);
    box->setSpacing(4);
    for (int i = 0; i < TabCount; ++i) {
        auto *button = new QToolButton(bar);
        button->setObjectName(QString::fromUtf16(kTabs[i].objectName));
        button->setProperty("role", u"tab"_s);
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIcon(icons::icon(QString::fromUtf16(kTabs[i].symbol), theme::kTextSecondary));
        button->setIconSize(QSize(16, 16));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        button->setCursor(Qt::PointingHandCursor);
        connect(button, &QToolButton::clicked, this, [this, i] { showTab(Tab(i)); });
        box->addWidget(button);
        m_tabButtons.append(button);
    }
    box->addStretch(1);
    return bar;
}

void SettingsWindow::showTab(Tab tab)
{
    m_current = tab;
    m_pages->setCurrentIndex(tab);
    m_tabButtons[tab]->setChecked(true);
    for (int i = 0; i < TabCount; ++i) {
        const QColor tint = i == tab ? theme::kAccent : theme::kTextSecondary;
        m_tabButtons[i]->setIcon(icons::icon(QString::fromUtf16(kTabs[i].symbol), tint));
    }
}

void SettingsWindow::retranslate()
{
    setWindowTitle(m_model.t("settings_title"));
    for (int i = 0; i < TabCount; ++i)
        m_tabButtons[i]->setText(theme::literal(m_model.t(kTabs[i].key)));
    m_done->setText(theme::literal(m_model.t("btn_done")));
}

} // namespace orvanta
