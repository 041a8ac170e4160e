// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/ShareMenu.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>
#include <QProcess>
#include <QUrl>

namespace orvanta {

using namespace Qt::StringLiterals;

QString ShareMenu::sharedFile(const PhotoRecord &record)
{
    for (const auto *path : { &record.outputPath, &record.jpgPath }) {
        if (path->has_value() && !(*path)->isEmpty() && QFileInfo(**path).isFile())
            return **path;
    }
    return {};
}

ShareMenu::ShareMenu(AppViewModel &model, const PhotoRecord &record, QWidget *parent)
    : QMenu(parent)
{
    setObjectName(u"historyShareMenu"_s);
    setTitle(theme::literal(model.t("action_share_sheet")));
    const QString path = sharedFile(record);
    const bool exists = !path.isEmpty();

    QAction *image = addAction(icons::icon(u"photo"_s, theme::kTextPrimary),
                               theme::literal(model.t("share_copy_image")));
    image->setObjectName(u"shareCopyImage"_s);
    connect(image, &QAction::triggered, this, [path] {
        QImageReader reader(path);
        reader.setAutoTransform(true);
        auto *mime = new QMimeData;
        mime->setImageData(reader.read());
        mime->setUrls({ QUrl::fromLocalFile(path) });
        QGuiApplication::clipboard()->setMimeData(mime);
    });
    QAction *copyPath = addAction(icons::icon(u"doc.on.doc"_s, theme::kTextPrimary),
                                  theme::literal(model.t("share_copy_path")));
    copyPath->setObjectName(u"shareCopyPath"_s);
    connect(copyPath, &QAction::triggered, this,
            [path] { QGuiApplication::clipboard()->setText(path); });
    QAction *open
        = addAction(icons::icon(u"arrow.up.left.and.down.right.and.arrow.up.right.and.down.left"_s,
                                theme::kTextPrimary),
                    theme::literal(model.t("share_open_default")));
    open->setObjectName(u"shareOpenDefault"_s);
    connect(open, &QAction::triggered, this,
            [path] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    QAction *mail = addAction(icons::icon(u"square.and.arrow.up"_s, theme::kTextPrimary),
                              theme::literal(model.t("action_airdrop")));
    mail->setObjectName(u"shareEmail"_s);
    connect(mail, &QAction::triggered, this, [path] {
        QProcess::startDetached(u"xdg-email"_s, { u"--attach"_s, path });
    });
    for (QAction *action : { image, copyPath, open, mail })
        action->setEnabled(exists);
}

} // namespace orvanta
