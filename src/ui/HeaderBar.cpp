// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/HeaderBar.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QSvgRenderer>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QPixmap appIcon(int size, qreal dpr)
{
    QSvgRenderer renderer(u":/orvanta.svg"_s);
    QPixmap pm(QSize(size, size) * dpr);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    renderer.render(&p);
    p.end();
    pm.setDevicePixelRatio(dpr);
    return pm;
}

} // namespace

HeaderBar::HeaderBar(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setObjectName(u"header"_s);
    auto *icon = new QLabel(this);
    icon->setPixmap(appIcon(44, devicePixelRatioF()));
    m_title = new QLabel(this);
    m_title->setObjectName(u"appTitle"_s);
    m_title->setProperty("role", u"title"_s);
    m_subtitle = new QLabel(this);
    m_subtitle->setObjectName(u"appSubtitle"_s);
    m_subtitle->setProperty("role", u"subtitle"_s);
    auto *titles = new QVBoxLayout;
    titles->setSpacing(0);
    titles->addStretch(1);
    titles->addWidget(m_title);
    titles->addWidget(m_subtitle);
    titles->addStretch(1);

    m_env = new QWidget(this);
    m_env->setObjectName(u"environmentState"_s);
    m_envIcon = new QLabel(m_env);
    // A long problem (an engine path) shortens in the middle when the window
    // is narrow, rather than widening the header past a small screen.
    m_envText = new ElidedLabel(m_env);
    m_envText->setObjectName(u"environmentText"_s);
    m_envText->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    m_envText->setMaximumWidth(320);
    auto *envLayout = new QHBoxLayout(m_env);
    envLayout->setContentsMargins(0, 0, 0, 0);
    envLayout->setSpacing(6);
    envLayout->addWidget(m_envIcon);
    envLayout->addWidget(m_envText);

    m_language = new QToolButton(this);
    m_language->setObjectName(u"languageButton"_s);
    m_language->setProperty("flat", true);
    m_language->setIcon(icons::icon(u"globe"_s, theme::kTextSecondary));
    m_language->setIconSize(QSize(18, 18));
    m_language->setPopupMode(QToolButton::InstantPopup);
    m_languageMenu = new QMenu(m_language);
    m_language->setMenu(m_languageMenu);

    m_settings = new QToolButton(this);
    m_settings->setObjectName(u"settingsButton"_s);
    m_settings->setProperty("flat", true);
    m_settings->setIcon(icons::icon(u"gearshape"_s, theme::kTextSecondary));
    m_settings->setIconSize(QSize(18, 18));
    connect(m_settings, &QToolButton::clicked, this,
            [this] { m_model.setIsShowingSettings(true); });

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(20, 14, 16, 10);
    layout->setSpacing(12);
    layout->addWidget(icon);
    layout->addLayout(titles, 1);
    layout->addWidget(m_env);
    layout->addSpacing(6);
    layout->addWidget(m_language);
    layout->addWidget(m_settings);

    for (auto signal : { &AppViewModel::isEnvironmentHealthyChanged,
                         &AppViewModel::missingDependencyMessageChanged })
        connect(&m_model, signal, this, &HeaderBar::updateEnvironment);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &HeaderBar::retranslate);
    retranslate();
}

void HeaderBar::retranslate()
{
    m_title->setText(m_model.t("app_title"));
    m_subtitle->setText(m_model.t("app_subtitle"));
    m_language->setToolTip(m_model.t("action_switch_language"));
    m_settings->setToolTip(m_model.t("btn_settings"));
    rebuildLanguageMenu();
    updateEnvironment();
}

void HeaderBar::rebuildLanguageMenu()
{
    m_languageMenu->clear();
    m_languageMenu->addSection(m_model.t("action_switch_language"));
    auto *group = new QActionGroup(m_languageMenu);
    for (AppLanguage language : allAppLanguages()) {
        // The automatic entry has its own fixed name here; every language
        // keeps its own name whatever the interface language is.
        const QString name
            = language == AppLanguage::System ? u"Auto (System)"_s : displayName(language);
        QAction *action = m_languageMenu->addAction(theme::literal(name));
        action->setCheckable(true);
        action->setChecked(language == m_model.currentLanguage());
        action->setData(rawValue(language));
        group->addAction(action);
        // Queued: the menu that holds this action is rebuilt by the switch.
        connect(action, &QAction::triggered, this, [this, language] {
            QMetaObject::invokeMethod(
                this, [this, language] { m_model.setCurrentLanguage(language); },
                Qt::QueuedConnection);
        });
    }
}

void HeaderBar::updateEnvironment()
{
    const bool healthy = m_model.isEnvironmentHealthy();
    m_envIcon->setPixmap(
        icons::pixmap(healthy ? u"checkmark.circle.fill"_s : u"exclamationmark.triangle.fill"_s,
                      healthy ? theme::kGreen : theme::kOrange, 15, devicePixelRatioF()));
    // The problem itself (which engine path, which libraries) rather than a
    // bare "missing"; the label shortens it in the middle where it must.
    const QString problem = m_model.missingDependencyMessage();
    m_envText->setText(healthy || problem.isEmpty()
                           ? m_model.t(healthy ? "status_env_ready" : "status_env_missing")
                           : problem);
    QPalette pal = m_envText->palette();
    pal.setColor(QPalette::WindowText, healthy ? theme::kTextSecondary : theme::kOrange);
    m_envText->setPalette(pal);
    m_env->setToolTip(healthy ? QString() : m_model.missingDependencyMessage());
}

} // namespace orvanta
