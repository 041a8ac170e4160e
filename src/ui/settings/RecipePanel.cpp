// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/RecipePanel.h"

#include "core/AppViewModel.h"
#include "styles/RecipeService.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace settingsui;

RecipePanel::RecipePanel(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_hooks(hooks)
{
    QVBoxLayout *box = nullptr;
    QFrame *frame = card(this, &box);
    auto *header = new QHBoxLayout;
    m_title = label(u"cardTitle"_s, frame);
    m_save = new QPushButton(frame);
    m_save->setObjectName(u"saveRecipe"_s);
    m_save->setProperty("role", u"primary"_s);
    header->addWidget(m_title, 1);
    header->addWidget(m_save, 0, Qt::AlignTop);
    box->addLayout(header);

    m_emptyHint = label(u"placeholder"_s, frame);
    m_emptyHint->setObjectName(u"recipesEmptyHint"_s);
    box->addWidget(m_emptyHint);
    m_rowsLayout = new QVBoxLayout;
    m_rowsLayout->setSpacing(6);
    box->addLayout(m_rowsLayout);

    m_export = new QPushButton(frame);
    m_export->setObjectName(u"exportRecipes"_s);
    m_export->setIcon(icons::icon(u"square.and.arrow.up"_s, theme::kTextPrimary));
    m_import = new QPushButton(frame);
    m_import->setObjectName(u"importRecipes"_s);
    m_import->setIcon(icons::icon(u"square.and.arrow.down"_s, theme::kTextPrimary));
    auto *transfer = new QHBoxLayout;
    transfer->addWidget(m_export);
    transfer->addWidget(m_import);
    transfer->addStretch(1);
    box->addSpacing(4);
    box->addLayout(transfer);
    m_message = label(QString(), frame);
    m_message->setObjectName(u"recipesMessage"_s);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message->hide();
    box->addWidget(m_message);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);

    connect(m_save, &QPushButton::clicked, this, &RecipePanel::saveAsRecipe);
    connect(m_export, &QPushButton::clicked, this, &RecipePanel::exportRecipes);
    connect(m_import, &QPushButton::clicked, this, &RecipePanel::importRecipes);
    connect(&m_model, &AppViewModel::userRecipesChanged, this, &RecipePanel::rebuildRows);
    connect(&m_model, &AppViewModel::activeRecipeIdChanged, this, &RecipePanel::rebuildRows);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &RecipePanel::retranslate);
    retranslate();
}

void RecipePanel::retranslate()
{
    m_title->setText(m_model.t("recipes_title"));
    m_save->setText(theme::literal(m_model.t("recipes_save_as")));
    m_emptyHint->setText(m_model.t("recipes_empty_hint"));
    m_export->setText(theme::literal(m_model.t("recipes_export_all")));
    m_import->setText(theme::literal(m_model.t("recipes_import")));
    rebuildRows();
}

void RecipePanel::rebuildRows()
{
    // Later, not now: the click that changed the list may come from a
    // button of one of these rows.
    for (QWidget *row : std::as_const(m_rows)) {
        m_rowsLayout->removeWidget(row);
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
    const QList<UserRecipe> recipes = m_model.userRecipes();
    m_emptyHint->setVisible(recipes.isEmpty());
    for (const UserRecipe &recipe : recipes) {
        QWidget *row = buildRow(recipe);
        m_rowsLayout->addWidget(row);
        m_rows.append(row);
    }
}

QWidget *RecipePanel::buildRow(const UserRecipe &recipe)
{
    const bool active = recipe.id == m_model.activeRecipeId();
    auto *row = new QFrame(this);
    row->setProperty("role", u"inset"_s);
    row->setProperty("recipeId", recipe.id);
    row->setProperty("active", active);

    auto *mark = new QLabel(row);
    mark->setFixedSize(18, 18);
    if (active)
        mark->setPixmap(
            icons::pixmap(u"checkmark.circle.fill"_s, theme::kGreen, 16, devicePixelRatioF()));
    auto *name = label(u"cardTitle"_s, row, false);
    name->setText(recipe.name);
    name->setTextFormat(Qt::PlainText);
    name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    name->setToolTip(recipe.name);
    auto *summary = label(u"tertiary"_s, row);
    summary->setText(recipe.summaryDescription());
    summary->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    auto makeButton = [&](const char *key, const QString &objectName) {
        auto *button = new QPushButton(theme::literal(m_model.t(key)), row);
        button->setObjectName(objectName);
        return button;
    };
    QPushButton *apply = makeButton("recipes_apply", u"applyRecipe"_s);
    QPushButton *rename = makeButton("recipes_rename", u"renameRecipe"_s);
    QPushButton *remove = makeButton("recipes_delete", u"deleteRecipe"_s);
    remove->setIcon(icons::icon(u"trash"_s, theme::kRed));

    // Name and buttons on the first line, the values under them across the
    // whole row: the buttons' texts are long in some languages and would
    // otherwise squeeze the summary into a narrow column.
    auto *top = new QHBoxLayout;
    top->setSpacing(8);
    top->addWidget(mark, 0, Qt::AlignVCenter);
    top->addWidget(name, 1, Qt::AlignVCenter);
    top->addWidget(apply);
    top->addWidget(rename);
    top->addWidget(remove);
    summary->setContentsMargins(26, 0, 0, 0);

    auto *layout = new QVBoxLayout(row);
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(4);
    layout->addLayout(top);
    layout->addWidget(summary);

    connectRow(recipe.id, apply, rename, remove);
    return row;
}

void RecipePanel::connectRow(const QUuid &id, QPushButton *apply, QPushButton *rename,
                             QPushButton *remove)
{
    // Rows are rebuilt whenever the list changes, so the handlers look the
    // recipe up again by id in the model's current list.
    connect(apply, &QPushButton::clicked, this, [this, id] {
        for (const UserRecipe &r : m_model.userRecipes()) {
            if (r.id == id) {
                m_model.applyRecipe(r);
                return;
            }
        }
    });
    connect(rename, &QPushButton::clicked, this, [this, id] { renameRecipe(id); });
    connect(remove, &QPushButton::clicked, this, [this, id] { m_model.deleteRecipe(id); });
}

void RecipePanel::saveAsRecipe()
{
    const std::optional<QString> name
        = m_hooks.askRecipeName(m_model.t("recipes_save_dialog_title"), QString());
    if (name)
        m_model.saveCurrentAsRecipe(*name);
}

void RecipePanel::renameRecipe(const QUuid &id)
{
    QString current;
    for (const UserRecipe &r : m_model.userRecipes())
        if (r.id == id)
            current = r.name;
    const std::optional<QString> name
        = m_hooks.askRecipeName(m_model.t("recipes_rename_dialog_title"), current);
    if (name)
        m_model.renameRecipe(id, *name);
}

void RecipePanel::exportRecipes()
{
    const QString path
        = m_hooks.chooseExportFile(m_model.t("recipes_export_all"), u"orvanta_recipes.json"_s);
    if (path.isEmpty())
        return;
    const QString error = m_model.exportRecipes(path);
    if (error.isEmpty())
        showMessage(m_model.t("recipes_exported_success"), true);
    else
        showMessage(m_model.t("recipes_export_failed", { error }), false);
}

void RecipePanel::importRecipes()
{
    const QString path = m_hooks.chooseImportFile(m_model.t("recipes_import"));
    if (path.isEmpty())
        return;
    const RecipeImport result = m_model.importRecipes(path);
    if (result.ok())
        showMessage(m_model.t("recipes_imported_success", { result.added }), true);
    else
        showMessage(m_model.t("recipes_import_failed", { result.error }), false);
}

void RecipePanel::showMessage(const QString &text, bool ok)
{
    m_messageOk = ok;
    QPalette palette = m_message->palette();
    palette.setColor(QPalette::WindowText, ok ? theme::kGreen : theme::kRed);
    m_message->setPalette(palette);
    m_message->setText(text);
    m_message->show();
}

} // namespace orvanta
