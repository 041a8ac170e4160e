// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The small sheet that asks for a recipe's name when one is saved or renamed.
// Main thread.
#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace orvanta {

class RecipeNameDialog : public QDialog
{
    Q_OBJECT
public:
    RecipeNameDialog(const QString &title, const QString &placeholder, const QString &saveText,
                     const QString &cancelText, QWidget *parent = nullptr);

    QString name() const;
    void setName(const QString &name);
    QLineEdit *field() const { return m_field; }
    QPushButton *saveButton() const { return m_save; }

private:
    QLineEdit *m_field = nullptr;
    QPushButton *m_save = nullptr;
};

} // namespace orvanta
