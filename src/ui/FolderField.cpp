// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/FolderField.h"

#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QDragEnterEvent>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

ElidedLabel::ElidedLabel(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ElidedLabel::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    setToolTip(text);
    updateGeometry();
    update();
}

QSize ElidedLabel::sizeHint() const
{
    // Rounded up: elidedText() works in fractional widths and shortens a
    // text that is a fraction of a pixel wider than its integer advance.
    const qreal advance = QFontMetricsF(font()).horizontalAdvance(m_text);
    return { int(std::ceil(advance)) + 1, fontMetrics().height() };
}

QSize ElidedLabel::minimumSizeHint() const
{
    return { fontMetrics().averageCharWidth() * 6, fontMetrics().height() };
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setPen(palette().color(foregroundRole()));
    const QString shown = fontMetrics().elidedText(m_text, Qt::ElideMiddle, width());
    p.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft, shown);
}

FolderField::FolderField(bool dropTarget, QWidget *parent)
    : QWidget(parent)
{
    setAcceptDrops(dropTarget);
    m_caption = new QLabel(this);
    m_caption->setProperty("role", u"section"_s);
    m_box = new QFrame(this);
    m_box->setProperty("role", u"inset"_s);
    m_icon = new QLabel(m_box);
    m_path = new ElidedLabel(m_box);
    m_browse = new QPushButton(m_box);
    m_browse->setCursor(Qt::PointingHandCursor);

    auto *row = new QHBoxLayout(m_box);
    row->setContentsMargins(10, 4, 4, 4);
    row->setSpacing(8);
    row->addWidget(m_icon);
    row->addWidget(m_path, 1);
    row->addWidget(m_browse);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_caption);
    layout->addWidget(m_box);

    connect(m_browse, &QPushButton::clicked, this, &FolderField::browseRequested);
    updatePathDisplay();
}

void FolderField::setTexts(const QString &caption, const QString &placeholder,
                           const QString &browse, const QString &browseHelp,
                           const QString &dropHint)
{
    m_caption->setText(caption.toUpper());
    m_placeholder = placeholder;
    m_browse->setText(theme::literal(browse));
    m_browse->setToolTip(browseHelp);
    m_dropHint = dropHint;
    updatePathDisplay();
}

void FolderField::setPath(const QString &path)
{
    m_pathText = path;
    updatePathDisplay();
}

QString FolderField::displayedText() const
{
    return m_path->text();
}

void FolderField::updatePathDisplay()
{
    QString symbol = u"folder.fill"_s;
    QColor tint = theme::kAccent;
    QColor text = theme::kTextPrimary;
    if (m_dragging) {
        symbol = u"arrow.down.doc.fill"_s;
        m_path->setText(m_dropHint);
        text = theme::kAccent.lighter(130);
    } else if (m_pathText.isEmpty()) {
        m_path->setText(m_placeholder);
        tint = theme::kTextTertiary;
        text = theme::kTextTertiary;
    } else {
        m_path->setText(m_pathText);
    }
    m_icon->setPixmap(icons::pixmap(symbol, tint, 16, devicePixelRatioF()));
    QPalette pal = m_path->palette();
    pal.setColor(QPalette::WindowText, text);
    m_path->setPalette(pal);
}

QList<QUrl> FolderField::localFileUrls(const QMimeData *mime)
{
    QList<QUrl> urls;
    if (!mime || !mime->hasUrls())
        return urls;
    for (const QUrl &url : mime->urls())
        if (url.isLocalFile())
            urls << url;
    return urls;
}

void FolderField::setDragging(bool dragging)
{
    if (m_dragging == dragging)
        return;
    m_dragging = dragging;
    m_box->setProperty("role", dragging ? u"dropTarget"_s : u"inset"_s);
    m_box->style()->unpolish(m_box);
    m_box->style()->polish(m_box);
    updatePathDisplay();
}

void FolderField::dragEnterEvent(QDragEnterEvent *event)
{
    if (localFileUrls(event->mimeData()).isEmpty())
        return event->ignore();
    event->acceptProposedAction();
    setDragging(true);
}

void FolderField::dragLeaveEvent(QDragLeaveEvent *)
{
    setDragging(false);
}

void FolderField::dropEvent(QDropEvent *event)
{
    setDragging(false);
    const QList<QUrl> urls = localFileUrls(event->mimeData());
    if (urls.isEmpty())
        return event->ignore();
    event->acceptProposedAction();
    Q_EMIT urlsDropped(urls);
}

} // namespace orvanta
