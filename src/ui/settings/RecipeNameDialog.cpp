// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/RecipeNameDialog.h"

#include "ui/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

RecipeNameDialog::RecipeNameDialog(const QString &title, const QString &placeholder,
                                   const QString &saveText, const QString &cancelText,
                                   QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"recipeNameDialog"_s);
    setWindowTitle(title);
    setModal(true);
    setMinimumWidth(380);

    auto *heading = new QLabel(title, this);
    heading->setProperty("role", u"cardTitle"_s);
    m_field = new QLineEdit(this);
    m_field->setObjectName(u"recipeNameField"_s);
    m_field->setPlaceholderText(placeholder);
    m_field->setMaxLength(120);

    auto *cancel = new QPushButton(theme::literal(cancelText), this);
    cancel->setObjectName(u"recipeNameCancel"_s);
    m_save = new QPushButton(theme::literal(saveText), this);
    m_save->setObjectName(u"recipeNameSave"_s);
    m_save->setProperty("role", u"primary"_s);
    m_save->setDefault(true);
    m_save->setEnabled(false);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(m_save);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(22, 18, 22, 18);
    layout->setSpacing(12);
    layout->addWidget(heading);
    layout->addWidget(m_field);
    layout->addLayout(buttons);

    // A name of only blanks would be ignored anyway; say so by not offering Save.
    connect(m_field, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_save->setEnabled(!text.trimmed().isEmpty()); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_save, &QPushButton::clicked, this, &QDialog::accept);
}

QString RecipeNameDialog::name() const
{
    return m_field->text();
}

void RecipeNameDialog::setName(const QString &name)
{
    m_field->setText(name);
    m_field->selectAll();
}

} // namespace orvanta
