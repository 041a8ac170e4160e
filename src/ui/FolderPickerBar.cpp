// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/FolderPickerBar.h"

#include "ui/FolderField.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QLabel *sectionLabel(QWidget *parent)
{
    auto *l = new QLabel(parent);
    l->setProperty("role", u"section"_s);
    return l;
}

void setRole(QWidget *w, const QString &role)
{
    if (w->property("role").toString() == role)
        return;
    w->setProperty("role", role);
    w->style()->unpolish(w);
    w->style()->polish(w);
}

} // namespace

FolderPickerBar::FolderPickerBar(AppViewModel &model, AppViewModel::FolderChooser chooser,
                                 QWidget *parent)
    : QFrame(parent)
    , m_model(model)
    , m_chooser(std::move(chooser))
{
    setObjectName(u"folderBar"_s);
    setProperty("role", u"card"_s);

    m_settingsArea = new QWidget(this);
    m_source = new FolderField(true, m_settingsArea);
    m_source->setObjectName(u"sourceField"_s);
    m_dest = new FolderField(false, m_settingsArea);
    m_dest->setObjectName(u"destField"_s);

    auto *grid = new QGridLayout(m_settingsArea);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(14);
    grid->addWidget(m_source, 0, 0, 1, 2);
    grid->addWidget(m_dest, 0, 2, 1, 2);
    grid->addWidget(buildStyleColumn(), 1, 0, 1, 2);
    grid->addWidget(buildOptionsColumn(), 1, 2);
    grid->addWidget(buildFilterColumn(), 1, 3);
    for (int c = 0; c < 4; ++c)
        grid->setColumnStretch(c, 1);

    m_run = new QPushButton(this);
    m_run->setObjectName(u"runButton"_s);
    m_run->setCursor(Qt::PointingHandCursor);
    m_run->setIconSize(QSize(14, 14));
    m_run->setMinimumHeight(36);
    // Beside Stop while a batch runs.
    m_pause = new QPushButton(this);
    m_pause->setObjectName(u"pauseButton"_s);
    m_pause->setCursor(Qt::PointingHandCursor);
    m_pause->setIconSize(QSize(14, 14));
    m_pause->setMinimumHeight(36);
    auto *runRow = new QHBoxLayout;
    runRow->addStretch(1);
    runRow->addWidget(m_pause);
    runRow->addWidget(m_run);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 14, 18, 14);
    layout->setSpacing(10);
    layout->addWidget(m_settingsArea);
    layout->addLayout(runRow);

    connect(m_source, &FolderField::browseRequested, this,
            [this] { m_model.selectSourceFolder(m_chooser); });
    connect(m_dest, &FolderField::browseRequested, this,
            [this] { m_model.selectDestFolder(m_chooser); });
    connect(m_source, &FolderField::urlsDropped, this,
            [this](const QList<QUrl> &urls) { m_model.handleDroppedURLs(urls); });
    connect(m_run, &QPushButton::clicked, this, &FolderPickerBar::onRunClicked);
    connect(m_pause, &QPushButton::clicked, this,
            [this] { m_model.setBatchPaused(!m_model.isPaused()); });

    connect(m_profile, &QComboBox::activated, this, [this](int index) {
        m_model.setSelectedProfile(allStyleProfiles().value(index, StyleProfile::Default));
    });
    connect(m_backlit, &QCheckBox::toggled, &m_model, &AppViewModel::setEnableBacklitFill);
    connect(m_force, &QCheckBox::toggled, &m_model, &AppViewModel::setForceReprocess);
    connect(m_dryRun, &QCheckBox::toggled, &m_model, &AppViewModel::setDryRunMode);
    connect(m_watch, &QCheckBox::toggled, &m_model, &AppViewModel::setWatchFolder);
    connect(m_rating, &QComboBox::activated, this,
            [this](int index) { m_model.setMinRating(index); });
    connect(m_stem, &QLineEdit::textEdited, &m_model, &AppViewModel::setTargetStem);

    for (auto signal :
         { &AppViewModel::sourceDirChanged, &AppViewModel::destDirChanged,
           &AppViewModel::selectedProfileChanged, &AppViewModel::enableBacklitFillChanged,
           &AppViewModel::forceReprocessChanged, &AppViewModel::dryRunModeChanged,
           &AppViewModel::watchFolderChanged, &AppViewModel::minRatingChanged,
           &AppViewModel::targetStemChanged })
        connect(&m_model, signal, this, &FolderPickerBar::syncFromModel);
    for (auto signal : { &AppViewModel::isRunningChanged, &AppViewModel::isStoppingChanged,
                         &AppViewModel::isPausedChanged })
        connect(&m_model, signal, this, &FolderPickerBar::updateRunButton);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &FolderPickerBar::retranslate);

    retranslate();
}

QWidget *FolderPickerBar::buildStyleColumn()
{
    auto *column = new QWidget(m_settingsArea);
    m_styleTitle = sectionLabel(column);
    m_profile = new QComboBox(column);
    m_profile->setObjectName(u"profilePicker"_s);
    m_profile->setIconSize(QSize(16, 16));
    m_profileDescription = new QLabel(column);
    m_profileDescription->setObjectName(u"profileDescription"_s);
    m_profileDescription->setProperty("role", u"secondary"_s);
    m_profileDescription->setWordWrap(true);
    m_profileDescription->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_styleTitle);
    layout->addWidget(m_profile);
    layout->addWidget(m_profileDescription, 1);
    return column;
}

QWidget *FolderPickerBar::buildOptionsColumn()
{
    auto *column = new QWidget(m_settingsArea);
    m_optionsTitle = sectionLabel(column);
    m_backlit = new QCheckBox(column);
    m_backlit->setObjectName(u"optBacklit"_s);
    m_force = new QCheckBox(column);
    m_force->setObjectName(u"optForce"_s);
    m_dryRun = new QCheckBox(column);
    m_dryRun->setObjectName(u"optDryRun"_s);
    m_watch = new QCheckBox(column);
    m_watch->setObjectName(u"optWatch"_s);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(7);
    layout->addWidget(m_optionsTitle);
    layout->addWidget(m_backlit);
    layout->addWidget(m_force);
    layout->addWidget(m_dryRun);
    layout->addWidget(m_watch);
    layout->addStretch(1);
    return column;
}

QWidget *FolderPickerBar::buildFilterColumn()
{
    auto *column = new QWidget(m_settingsArea);
    m_ratingLabel = sectionLabel(column);
    m_rating = new QComboBox(column);
    m_rating->setObjectName(u"ratingFilter"_s);
    m_stemLabel = sectionLabel(column);
    m_stem = new QLineEdit(column);
    m_stem->setObjectName(u"singleTarget"_s);
    m_stem->setClearButtonEnabled(true);
    // A dragged file belongs to the drop targets, not into this text.
    m_stem->setAcceptDrops(false);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_ratingLabel);
    layout->addWidget(m_rating);
    layout->addSpacing(4);
    layout->addWidget(m_stemLabel);
    layout->addWidget(m_stem);
    layout->addStretch(1);
    return column;
}

void FolderPickerBar::retranslate()
{
    const QString browse = m_model.t("btn_browse");
    m_source->setTexts(m_model.t("folder_source_title"), m_model.t("folder_source_placeholder"),
                       browse, browse + u" (Ctrl+O)"_s, m_model.t("drop_hint_source"));
    m_dest->setTexts(m_model.t("folder_dest_title"), m_model.t("folder_dest_placeholder"), browse,
                     browse + u" (Ctrl+D)"_s, QString());

    m_styleTitle->setText(m_model.t("style_profile_title").toUpper());
    m_profile->clear();
    for (StyleProfile profile : allStyleProfiles())
        m_profile->addItem(icons::icon(iconName(profile), accentColor(profile)),
                           displayName(profile));

    // The options have no caption of their own; the empty one keeps the
    // check boxes level with the other columns' controls.
    m_optionsTitle->setFixedHeight(m_styleTitle->sizeHint().height());
    m_backlit->setText(theme::literal(m_model.t("opt_backlit_fill")));
    m_backlit->setToolTip(m_model.t("opt_backlit_fill_help"));
    m_force->setText(theme::literal(m_model.t("opt_force_reprocess")));
    m_force->setToolTip(m_model.t("opt_force_reprocess_help"));
    m_dryRun->setText(theme::literal(m_model.t("opt_dry_run")));
    m_dryRun->setToolTip(m_model.t("opt_dry_run_help"));
    m_watch->setText(theme::literal(m_model.t("opt_watch_folder")));
    m_watch->setToolTip(m_model.t("opt_watch_folder_help"));

    QString rating = m_model.t("lbl_rating_filter");
    if (rating.endsWith(u':') || rating.endsWith(u'：'))
        rating.chop(1); // French leaves its narrow space before the colon
    m_ratingLabel->setText(rating.trimmed().toUpper());
    m_ratingLabel->setToolTip(m_model.t("lbl_rating_filter_help"));
    m_rating->setToolTip(m_model.t("lbl_rating_filter_help"));
    m_rating->clear();
    m_rating->addItem(m_model.t("filter_rating_all"));
    for (int stars = 1; stars <= 5; ++stars)
        m_rating->addItem(m_model.t(u"filter_rating_%1"_s.arg(stars)));

    QString stem = m_model.t("opt_single_stem");
    if (stem.endsWith(u':') || stem.endsWith(u'：'))
        stem.chop(1);
    m_stemLabel->setText(stem.trimmed().toUpper());
    m_stem->setPlaceholderText(m_model.t("opt_single_stem_placeholder"));
    // The example must stay readable: the layout gives the field its width.
    m_stem->setMinimumWidth(m_stem->fontMetrics().horizontalAdvance(m_stem->placeholderText())
                            + 40);

    syncFromModel();
    updateRunButton();
}

void FolderPickerBar::syncFromModel()
{
    m_source->setPath(m_model.sourceDir());
    m_dest->setPath(m_model.destDir());
    const int profileIndex = int(allStyleProfiles().indexOf(m_model.selectedProfile()));
    m_profile->setCurrentIndex(profileIndex);
    m_profileDescription->setText(subtitle(m_model.selectedProfile()));
    const QSignalBlocker b1(m_backlit), b2(m_force), b3(m_dryRun), b4(m_watch);
    m_backlit->setChecked(m_model.enableBacklitFill());
    m_force->setChecked(m_model.forceReprocess());
    m_dryRun->setChecked(m_model.dryRunMode());
    m_watch->setChecked(m_model.watchFolder());
    m_rating->setCurrentIndex(int(std::clamp<qint64>(m_model.minRating(), 0, 5)));
    if (m_stem->text() != m_model.targetStem())
        m_stem->setText(m_model.targetStem());
}

void FolderPickerBar::updateRunButton()
{
    const bool running = m_model.isRunning();
    const bool stopping = m_model.isStopping();
    m_settingsArea->setEnabled(!running);
    if (!running) {
        setRole(m_run, u"primary"_s);
        m_run->setText(theme::literal(m_model.t("btn_start_batch")));
        m_run->setIcon(icons::pixmap(u"play.fill"_s, Qt::white, 14, devicePixelRatioF()));
        m_run->setToolTip(m_model.t("btn_start_batch") + u" (Ctrl+R)"_s);
        m_run->setEnabled(true);
    } else {
        setRole(m_run, u"danger"_s);
        m_run->setText(theme::literal(m_model.t(stopping ? "status_cancelling" : "btn_stop")));
        m_run->setIcon(icons::pixmap(u"stop.fill"_s, Qt::white, 14, devicePixelRatioF()));
        m_run->setToolTip(m_model.t("btn_stop") + u" (Ctrl+.)"_s);
        m_run->setEnabled(!stopping);
    }
    const bool paused = m_model.isPaused();
    m_pause->setVisible(running);
    m_pause->setEnabled(running && !stopping);
    m_pause->setText(theme::literal(m_model.t(paused ? "btn_resume" : "btn_pause")));
    m_pause->setIcon(icons::pixmap(paused ? u"play.fill"_s : u"pause.fill"_s, theme::kTextPrimary,
                                   14, devicePixelRatioF()));
    m_pause->setToolTip(m_model.t(paused ? "btn_resume" : "btn_pause") + u" (Ctrl+P)"_s);
}

void FolderPickerBar::onRunClicked()
{
    if (m_model.isRunning())
        m_model.stopProcessing();
    else
        m_model.startProcessing();
}

} // namespace orvanta
