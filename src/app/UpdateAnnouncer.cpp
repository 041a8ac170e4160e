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

struct Texts
{
    QStringView code;
    QStringView availableTitle; // %1 new version
    QStringView availableBody; // %1 new version, %2 current version
    QStringView openPage;
    QStringView later;
    QStringView upToDateTitle;
    QStringView upToDateBody; // %1 current version
    QStringView failedTitle;
};

// The updater's own dialogs carry their own texts, as an update framework's
// dialogs do; they are few and fixed.
constexpr Texts kTexts[] = {
    { u"en", u"Orvanta %1 is available",
      u"A new version of Orvanta is ready to download. You have %2.", u"Open Download Page",
      u"Later", u"You're up to date", u"Orvanta %1 is the newest version available.",
      u"The update check failed" },
    { u"zh-Hans", u"Orvanta %1 现已推出", u"新版 Orvanta 已可下载。当前版本为 %2。",
      u"打开下载页面", u"稍后", u"已是最新版本", u"Orvanta %1 是目前的最新版本。",
      u"检查更新失败" },
    { u"zh-Hant", u"Orvanta %1 現已推出", u"新版 Orvanta 已可下載。目前版本為 %2。",
      u"開啟下載頁面", u"稍後", u"已是最新版本", u"Orvanta %1 是目前的最新版本。",
      u"檢查更新失敗" },
    { u"ja", u"Orvanta %1 が利用可能です",
      u"新しいバージョンの Orvanta をダウンロードできます。現在のバージョンは %2 です。",
      u"ダウンロードページを開く", u"後で", u"最新の状態です", u"Orvanta %1 が最新バージョンです。",
      u"アップデートの確認に失敗しました" },
    { u"de", u"Orvanta %1 ist verfügbar",
      u"Eine neue Version von Orvanta steht zum Download bereit. Installiert ist %2.",
      u"Download-Seite öffnen", u"Später", u"Orvanta ist aktuell",
      u"Orvanta %1 ist die neueste verfügbare Version.",
      u"Die Suche nach Updates ist fehlgeschlagen" },
    { u"fr", u"Orvanta %1 est disponible",
      u"Une nouvelle version d’Orvanta est prête à être téléchargée. Vous utilisez la version %2.",
      u"Ouvrir la page de téléchargement", u"Plus tard", u"Orvanta est à jour",
      u"Orvanta %1 est la version la plus récente.", u"La recherche de mises à jour a échoué" },
    { u"es", u"Orvanta %1 está disponible",
      u"Hay una nueva versión de Orvanta lista para descargar. Tienes la %2.",
      u"Abrir página de descarga", u"Más tarde", u"Orvanta está actualizado",
      u"Orvanta %1 es la versión más reciente.", u"No se pudo buscar actualizaciones" },
};

const Texts &textsFor(const QString &code)
{
    for (const Texts &t : kTexts)
        if (t.code == code)
            return t;
    return kTexts[0];
}

} // namespace

QString UpdateAnnouncer::text(const QString &languageCode, QStringView key)
{
    const Texts &t = textsFor(languageCode);
    if (key == u"available_title")
        return t.availableTitle.toString();
    if (key == u"available_body")
        return t.availableBody.toString();
    if (key == u"open_page")
        return t.openPage.toString();
    if (key == u"later")
        return t.later.toString();
    if (key == u"up_to_date_title")
        return t.upToDateTitle.toString();
    if (key == u"up_to_date_body")
        return t.upToDateBody.toString();
    if (key == u"failed_title")
        return t.failedTitle.toString();
    return key.toString();
}

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
    const QString code = LocalizationService::shared().effectiveLanguageCode();
    const QString current = QCoreApplication::applicationVersion();

    auto *box = new QMessageBox(m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(t("menu_check_updates"));
    switch (result.outcome) {
    case Outcome::UpdateAvailable: {
        box->setIcon(QMessageBox::Information);
        box->setText(text(code, u"available_title").arg(result.item.displayVersion()));
        box->setInformativeText(
            text(code, u"available_body").arg(result.item.displayVersion(), current));
        QPushButton *open = box->addButton(text(code, u"open_page"), QMessageBox::AcceptRole);
        box->addButton(text(code, u"later"), QMessageBox::RejectRole);
        const QUrl page = result.pageUrl();
        connect(open, &QPushButton::clicked, box, [page] { QDesktopServices::openUrl(page); });
        break;
    }
    case Outcome::UpToDate:
        box->setIcon(QMessageBox::Information);
        box->setText(text(code, u"up_to_date_title"));
        box->setInformativeText(text(code, u"up_to_date_body").arg(current));
        box->addButton(t("btn_ok"), QMessageBox::AcceptRole);
        break;
    case Outcome::Failed:
        box->setIcon(QMessageBox::Warning);
        box->setText(text(code, u"failed_title"));
        box->setInformativeText(result.error);
        box->addButton(t("btn_ok"), QMessageBox::AcceptRole);
        break;
    }
    box->open();
}

} // namespace orvanta
