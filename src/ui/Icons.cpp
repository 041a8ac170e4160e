// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/Icons.h"

#include "ui/Theme.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

namespace orvanta::icons {

using namespace Qt::StringLiterals;

namespace {

QString resourcePath(const QString &symbol)
{
    return u":/icons/"_s + symbol + u".svg"_s;
}

// The drawings use "currentColor"; the tint is put in before rendering, so
// one file serves every colour.
QByteArray svgSource(const QString &symbol)
{
    static QHash<QString, QByteArray> cache;
    auto it = cache.constFind(symbol);
    if (it != cache.constEnd())
        return *it;
    QFile file(resourcePath(symbol));
    QByteArray data;
    if (file.open(QIODevice::ReadOnly))
        data = file.readAll();
    cache.insert(symbol, data);
    return data;
}

} // namespace

bool has(const QString &symbol)
{
    return QFile::exists(resourcePath(symbol));
}

QPixmap pixmap(const QString &symbol, const QColor &color, int size, qreal dpr)
{
    QByteArray source = svgSource(symbol);
    if (source.isEmpty() || size <= 0)
        return {};
    source.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
    QSvgRenderer renderer(source);
    if (!renderer.isValid())
        return {};
    const int device = qRound(size * dpr);
    QPixmap pm(device, device);
    pm.fill(Qt::transparent);
    {
        QPainter painter(&pm);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(color.alphaF());
        renderer.render(&painter, QRectF(0, 0, device, device));
    }
    pm.setDevicePixelRatio(dpr);
    return pm;
}

QIcon icon(const QString &symbol, const QColor &color)
{
    QIcon result;
    for (int size : { 16, 20, 24, 32, 48 }) {
        for (qreal dpr : { 1.0, 2.0 }) {
            result.addPixmap(pixmap(symbol, color, size, dpr), QIcon::Normal);
            result.addPixmap(pixmap(symbol, theme::kTextTertiary, size, dpr), QIcon::Disabled);
        }
    }
    return result;
}

} // namespace orvanta::icons
