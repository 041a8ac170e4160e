// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/PathsTab.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/ExportNaming.h"
#include "ui/settings/SettingsWidgets.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace settingsui;

const QList<std::pair<QString, const char *>> &PathsTab::subfolderRules()
{
    static const QList<std::pair<QString, const char *>> rules = {
        { u"none"_s, "subfolder_rule_none" },
        { u"by_date"_s, "subfolder_rule_by_date" },
        { u"by_rating"_s, "subfolder_rule_by_rating" },
        { u"by_profile"_s, "subfolder_rule_by_profile" },
    };
    return rules;
}

PathsTab::PathsTab(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_hooks(hooks)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(buildFolders());
    layout->addWidget(buildNaming());
    layout->addStretch(1);

    connect(&m_model, &AppViewModel::sourceDirChanged, this, &PathsTab::showFolders);
    connect(&m_model, &AppViewModel::destDirChanged, this, &PathsTab::showFolders);
    connect(&m_model, &AppViewModel::exportNamingTemplateChanged, this, &PathsTab::showTemplate);
    connect(&m_model, &AppViewModel::exportSubfolderRuleChanged, this,
            &PathsTab::showSubfolderRule);
    connect(&m_model, &AppViewModel::selectedProfileChanged, this, &PathsTab::updatePreview);
    // The folders of a running batch stay as they are until it ends.
    connect(&m_model, &AppViewModel::isRunningChanged, this, &PathsTab::showFolders);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &PathsTab::retranslate);

    showFolders();
    showTemplate();
    retranslate();
}

QWidget *PathsTab::buildFolders()
{
    QVBoxLayout *box = nullptr;
    QFrame *frame = card(this, &box);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    QLabel **titles[] = { &m_sourceTitle, &m_destTitle };
    QLabel **paths[] = { &m_sourcePath, &m_destPath };
    QPushButton **buttons[] = { &m_browseSource, &m_browseDest };
    const QString symbols[] = { u"folder.fill"_s, u"tray.and.arrow.down.fill"_s };
    for (int i = 0; i < 2; ++i) {
        *titles[i] = label(u"cardTitle"_s, frame);
        *paths[i] = label(u"path"_s, frame, false);
        (*paths[i])->setTextInteractionFlags(Qt::TextSelectableByMouse);
        (*paths[i])->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        *buttons[i] = new QPushButton(frame);
        (*buttons[i])->setIcon(icons::icon(symbols[i], theme::kAccent));
        grid->addWidget(*titles[i], i * 3, 0, 1, 2);
        grid->addWidget(*paths[i], i * 3 + 1, 0);
        grid->addWidget(*buttons[i], i * 3 + 1, 1);
    }
    grid->setRowMinimumHeight(2, 8); // a gap between the two folders
    grid->setColumnStretch(0, 1);
    box->addLayout(grid);
    m_browseSource->setObjectName(u"browseSource"_s);
    m_browseDest->setObjectName(u"browseDest"_s);
    connect(m_browseSource, &QPushButton::clicked, this,
            [this] { m_model.selectSourceFolder(m_hooks.chooseFolder); });
    connect(m_browseDest, &QPushButton::clicked, this,
            [this] { m_model.selectDestFolder(m_hooks.chooseFolder); });
    return frame;
}

QWidget *PathsTab::buildNaming()
{
    QVBoxLayout *box = nullptr;
    QFrame *frame = card(this, &box);
    m_namingTitle = label(u"cardTitle"_s, frame);
    m_templateTitle = label(u"secondary"_s, frame);
    m_template = new QLineEdit(frame);
    m_template->setObjectName(u"namingTemplate"_s);
    m_template->setPlaceholderText(QString::fromUtf16(naming::kFallbackTemplate));
    m_help = label(u"tertiary"_s, frame);

    auto *chips = new QHBoxLayout;
    chips->setSpacing(6);
    for (const QString &placeholder : naming::chipPlaceholders()) {
        auto *chip = new QPushButton(placeholder, frame);
        chip->setObjectName(u"chip_"_s + placeholder.mid(1, placeholder.size() - 2));
        chip->setCursor(Qt::PointingHandCursor);
        connect(chip, &QPushButton::clicked, this, [this, placeholder] {
            m_model.setExportNamingTemplate(
                naming::insertPlaceholder(m_model.exportNamingTemplate(), placeholder));
        });
        chips->addWidget(chip);
        m_chips.append(chip);
    }
    chips->addStretch(1);

    QWidget *previewFrame = buildPreview(frame);

    m_warning = label(QString(), frame);
    m_warning->setObjectName(u"namingWarning"_s);
    QPalette warningPalette = m_warning->palette();
    warningPalette.setColor(QPalette::WindowText, theme::kYellow);
    m_warning->setPalette(warningPalette);

    m_subfolderTitle = label(u"secondary"_s, frame);
    m_subfolder = new QComboBox(frame);
    m_subfolder->setObjectName(u"subfolderRule"_s);

    box->addWidget(m_namingTitle);
    box->addWidget(m_templateTitle);
    box->addWidget(m_template);
    box->addWidget(m_help);
    box->addLayout(chips);
    box->addWidget(previewFrame);
    box->addWidget(m_warning);
    box->addSpacing(4);
    box->addWidget(m_subfolderTitle);
    box->addWidget(m_subfolder);

    connect(m_template, &QLineEdit::textEdited, &m_model, &AppViewModel::setExportNamingTemplate);
    connect(m_subfolder, &QComboBox::activated, this, [this](int index) {
        m_model.setExportSubfolderRule(m_subfolder->itemData(index).toString());
    });
    return frame;
}

QWidget *PathsTab::buildPreview(QWidget *parent)
{
    auto *frame = new QFrame(parent);
    frame->setProperty("role", u"inset"_s);
    auto *box = new QVBoxLayout(frame);
    box->setContentsMargins(12, 8, 12, 8);
    box->setSpacing(2);
    m_previewTitle = label(u"section"_s, frame);
    m_preview = label(QString(), frame);
    m_preview->setObjectName(u"namingPreview"_s);
    m_preview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_preview->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->addWidget(m_previewTitle);
    box->addWidget(m_preview);
    return frame;
}

void PathsTab::retranslate()
{
    m_sourceTitle->setText(m_model.t("settings_default_source_dir"));
    m_destTitle->setText(m_model.t("settings_default_dest_dir"));
    m_browseSource->setText(theme::literal(m_model.t("btn_browse")));
    m_browseDest->setText(theme::literal(m_model.t("btn_browse")));
    m_namingTitle->setText(m_model.t("export_naming_title"));
    m_templateTitle->setText(m_model.t("export_naming_template"));
    m_help->setText(m_model.t("export_template_help"));
    m_previewTitle->setText(m_model.t("export_preview_label").toUpper());
    m_subfolderTitle->setText(m_model.t("export_subfolder_rule"));
    m_subfolder->clear();
    for (const auto &[rule, key] : subfolderRules())
        m_subfolder->addItem(m_model.t(key), rule);
    showSubfolderRule();
}

void PathsTab::showFolders()
{
    m_sourcePath->setText(m_model.sourceDir());
    m_sourcePath->setToolTip(m_model.sourceDir());
    m_destPath->setText(m_model.destDir());
    m_destPath->setToolTip(m_model.destDir());
    m_browseSource->setEnabled(!m_model.isRunning());
    m_browseDest->setEnabled(!m_model.isRunning());
}

void PathsTab::showTemplate()
{
    // While the user types, the model echoes the same text: leave the
    // field (and its cursor) alone then.
    if (m_template->text() != m_model.exportNamingTemplate())
        m_template->setText(m_model.exportNamingTemplate());
    updatePreview();
}

void PathsTab::showSubfolderRule()
{
    const QString rule = m_model.exportSubfolderRule();
    int index = m_subfolder->findData(rule);
    if (index < 0) {
        // A rule this version does not know: shown by its name, not replaced.
        m_subfolder->addItem(rule, rule);
        index = m_subfolder->count() - 1;
    }
    m_subfolder->setCurrentIndex(index);
    updatePreview();
}

void PathsTab::updatePreview()
{
    m_preview->setText(naming::previewFileName(
        m_model.exportNamingTemplate(), m_model.exportSubfolderRule(), m_model.selectedProfile()));
    const naming::TemplateIssues issues = naming::templateIssues(m_model.exportNamingTemplate());
    QStringList lines;
    if (!issues.forbiddenCharacters.isEmpty()) {
        // Quoted one by one: a bare ":" or "/" after a colon reads as punctuation.
        QStringList quoted;
        for (const QString &c : issues.forbiddenCharacters)
            quoted << u"“"_s + c + u"”"_s;
        lines << m_model.t("export_warning_forbidden_chars", { quoted.join(u' ') });
    }
    if (!issues.unknownPlaceholders.isEmpty())
        lines << m_model.t("export_warning_unknown_placeholders",
                           { issues.unknownPlaceholders.join(u", "_s) });
    m_warning->setText(lines.isEmpty() ? QString() : u"⚠  "_s + lines.join(u"\n⚠  "_s));
    m_warning->setVisible(!lines.isEmpty());
}

} // namespace orvanta
