// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One folder row of the folder bar: a caption, the path (or a placeholder),
// a Browse button, and optionally a drop target that shows a hint while
// something is dragged over it. Main thread.
#pragma once

#include <QFrame>
#include <QList>
#include <QUrl>

class QLabel;
class QMimeData;
class QPushButton;

namespace orvanta {

// A label that elides its text in the middle, so both the start and the
// folder name of a long path stay visible.
class ElidedLabel : public QWidget
{
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget *parent = nullptr);
    void setText(const QString &text);
    QString text() const { return m_text; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
};

class FolderField : public QWidget
{
    Q_OBJECT
public:
    explicit FolderField(bool dropTarget, QWidget *parent = nullptr);

    void setTexts(const QString &caption, const QString &placeholder, const QString &browse,
                  const QString &browseHelp, const QString &dropHint);
    void setPath(const QString &path);
    QString displayedText() const;
    bool isShowingDropHint() const { return m_dragging; }
    QPushButton *browseButton() const { return m_browse; }

    // The local file URLs a drag carries; empty when it carries none.
    static QList<QUrl> localFileUrls(const QMimeData *mime);

Q_SIGNALS:
    void browseRequested();
    void urlsDropped(const QList<QUrl> &urls);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setDragging(bool dragging);
    void updatePathDisplay();

    QLabel *m_caption = nullptr;
    QFrame *m_box = nullptr;
    QLabel *m_icon = nullptr;
    ElidedLabel *m_path = nullptr;
    QPushButton *m_browse = nullptr;
    QString m_pathText;
    QString m_placeholder;
    QString m_dropHint;
    bool m_dragging = false;
};

} // namespace orvanta
