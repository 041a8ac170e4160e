// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The folder half of AppViewModel: choosing the source and delivery folders
// and applying a drop of folders or photo files. Main thread.
#include "core/AppViewModel.h"

#include <QFileInfo>
#include <QSet>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// A dropped folder's URL often ends in "/"; the folder's own name is what the
// status line shows, so the slash goes (but "/" itself stays).
QString normalizedPath(const QUrl &url)
{
    QString path = url.isLocalFile() ? url.toLocalFile() : url.path();
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

// The name without its last extension: "A.ARW" -> "A", "x.tar.gz" -> "x.tar".
// A leading dot starts a hidden name, not an extension.
QString stemOf(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.left(dot) : name;
}

} // namespace

void AppViewModel::selectSourceFolder(const FolderChooser &chooseFolder)
{
    if (isRunning() || !chooseFolder)
        return;
    const QString path = chooseFolder(t("dialog_select_folder"), sourceDir());
    if (path.isEmpty())
        return;
    setSourceDir(path);
    appendLog(u"📂 Source directory selected: "_s + path);
}

void AppViewModel::selectDestFolder(const FolderChooser &chooseFolder)
{
    if (isRunning() || !chooseFolder)
        return;
    const QString path = chooseFolder(t("dialog_select_folder"), destDir());
    if (path.isEmpty())
        return;
    setDestDir(path);
    appendLog(u"📁 Destination directory selected: "_s + path);
}

void AppViewModel::handleDroppedURLs(const QList<QUrl> &urls)
{
    if (isRunning() || urls.isEmpty())
        return;

    QStringList folders;
    QStringList files;
    for (const QUrl &url : urls) {
        const QString path = normalizedPath(url);
        const QFileInfo info(path);
        if (path.isEmpty() || !info.exists())
            continue;
        (info.isDir() ? folders : files) << path;
    }
    if (folders.isEmpty() && files.isEmpty())
        return;

    if (!folders.isEmpty()) {
        // The first folder wins; files dropped with it are ignored.
        const QString folder = folders.constFirst();
        setSourceDir(folder);
        setTargetStem(QString());
        setSelectedTab(0);
        updateVolumeInfo();
        checkEnvironment();
        appendLog(u"📥 "_s + t("drop_success_folder", { folder }));
        setStatus(u"drop_success_folder"_s, { QFileInfo(folder).fileName() });
        return;
    }

    setSourceDir(QFileInfo(files.constFirst()).absolutePath());
    // A RAW and a JPG of one shot share a stem; the first occurrence keeps its place.
    QStringList stems;
    QSet<QString> seen;
    for (const QString &file : std::as_const(files)) {
        const QString stem = stemOf(file);
        if (!seen.contains(stem)) {
            seen.insert(stem);
            stems << stem;
        }
    }
    const QString joined = stems.join(u", "_s);
    setTargetStem(joined);
    setSelectedTab(0);
    updateVolumeInfo();
    checkEnvironment();
    const FormatArgs args { qint64(stems.size()), joined };
    appendLog(u"📥 "_s + t("drop_success_photos", args));
    setStatus(u"drop_success_photos"_s, args);
}

} // namespace orvanta
