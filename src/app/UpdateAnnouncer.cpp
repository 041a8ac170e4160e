// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdateAnnouncer.h"

#include "i18n/LocalizationService.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// What went wrong, in the user's words; the English detail stays for the
// "Show Details" part of the box.
QString failureText(UpdateCheckResult::Failure failure)
{
    using Failure = UpdateCheckResult::Failure;
    switch (failure) {
    case Failure::Network:
        return t("update_failed_network");
    case Failure::UnsignedFeed:
    case Failure::BadSignature:
        return t("update_failed_signature");
    case Failure::MalformedFeed:
    case Failure::None:
        break;
    }
    return t("update_failed_feed");
}

} // namespace

UpdateAnnouncer::UpdateAnnouncer(Updater &updater, QWidget *window)
    : QObject(&updater)
    , m_window(window)
{
    connect(&updater, &Updater::checkFinished, this, &UpdateAnnouncer::announce);
}

void UpdateAnnouncer::announce(const UpdateCheckResult &result)
{
    using Outcome = UpdateCheckResult::Outcome;
    if (result.outcome != Outcome::UpdateAvailable && !result.userInitiated)
        return; // scheduled checks stay silent unless there is news
    const QString current = QCoreApplication::applicationVersion();

    auto *box = new QMessageBox(m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(t("menu_check_updates"));
    box->setIcon(QMessageBox::Information);
    switch (result.outcome) {
    case Outcome::UpdateAvailable: {
        const QString version = result.item.displayVersion();
        box->setText(t("update_available_title", { version }));
        box->setInformativeText(t("update_available_body", { current }));
        QPushButton *open = box->addButton(t("update_open_page"), QMessageBox::AcceptRole);
        box->addButton(t("update_later"), QMessageBox::RejectRole);
        const QUrl page = result.pageUrl();
        connect(open, &QPushButton::clicked, box, [page] { QDesktopServices::openUrl(page); });
        break;
    }
    case Outcome::UpToDate:
        box->setText(t("update_up_to_date_title"));
        box->setInformativeText(t("update_up_to_date_body", { current }));
        box->addButton(t("btn_ok"), QMessageBox::AcceptRole);
        break;
    case Outcome::PackageManaged:
        box->setText(t("update_packaged_title"));
        box->setInformativeText(t("update_packaged_body"));
        box->addButton(t("btn_ok"), QMessageBox::AcceptRole);
        break;
    case Outcome::Failed:
        box->setIcon(QMessageBox::Warning);
        box->setText(t("update_failed_title"));
        box->setInformativeText(failureText(result.failure));
        box->setDetailedText(result.error);
        box->addButton(t("btn_ok"), QMessageBox::AcceptRole);
        break;
    }
    box->open();
}

} // namespace orvanta
