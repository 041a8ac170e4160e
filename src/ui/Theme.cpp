// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/Theme.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QStyleFactory>

namespace orvanta::theme {

using namespace Qt::StringLiterals;

QString css(const QColor &color)
{
    if (color.alpha() == 255)
        return color.name(QColor::HexRgb);
    return u"rgba(%1, %2, %3, %4)"_s.arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

QString literal(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

QString fontFamilyFor(const QString &languageCode)
{
    QString family;
    if (languageCode == u"ja")
        family = u"Noto Sans CJK JP"_s;
    else if (languageCode == u"zh-Hans")
        family = u"Noto Sans CJK SC"_s;
    else if (languageCode == u"zh-Hant")
        family = u"Noto Sans CJK TC"_s;
    if (!family.isEmpty() && QFontDatabase::hasFamily(family))
        return family;
    return QString();
}

namespace {

QPalette darkPalette()
{
    QPalette p;
    p.setColor(QPalette::Window, kWindow);
    p.setColor(QPalette::WindowText, kTextPrimary);
    p.setColor(QPalette::Base, kSurfaceSunken);
    p.setColor(QPalette::AlternateBase, kSurface);
    p.setColor(QPalette::ToolTipBase, kSurfaceRaised);
    p.setColor(QPalette::ToolTipText, kTextPrimary);
    p.setColor(QPalette::PlaceholderText, kTextTertiary);
    p.setColor(QPalette::Text, kTextPrimary);
    p.setColor(QPalette::Button, kSurfaceRaised);
    p.setColor(QPalette::ButtonText, kTextPrimary);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Highlight, kAccent);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, kAccent);
    p.setColor(QPalette::Light, kBorder.lighter(130));
    p.setColor(QPalette::Midlight, kBorder);
    p.setColor(QPalette::Mid, kSurfaceRaised);
    p.setColor(QPalette::Dark, kSurfaceSunken);
    p.setColor(QPalette::Shadow, Qt::black);
    for (auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        p.setColor(QPalette::Disabled, role, kTextTertiary);
    return p;
}

QString styleSheet()
{
    // Object names and dynamic properties ("role", "tone") select the looks;
    // widgets never carry inline style sheets of their own.
    QString s = uR"(
QToolTip { background: @raised; color: @text; border: 1px solid @border; padding: 4px 6px; }
QMenuBar { background: @window; border-bottom: 1px solid @border; }
QMenuBar::item { padding: 4px 10px; background: transparent; border-radius: 4px; }
QMenuBar::item:selected { background: @raised; }
QMenu { background: @raised; border: 1px solid @border; padding: 4px; }
QMenu::item { padding: 5px 24px 5px 22px; border-radius: 4px; }
QMenu::item:selected { background: @accent; color: white; }
QMenu::item:disabled { color: @tertiary; }
QMenu::separator { height: 1px; background: @border; margin: 4px 6px; }
QMenu::indicator { width: 14px; height: 14px; left: 4px; }

QFrame[role="card"] { background: @surface; border: 1px solid @border; border-radius: 12px; }
QFrame[role="inset"] { background: @sunken; border: 1px solid @border; border-radius: 8px; }
QFrame[role="dropTarget"] { background: rgba(47, 140, 255, 0.14); border: 1px dashed @accent; border-radius: 8px; }
QFrame[role="divider"] { background: @border; max-height: 1px; min-height: 1px; border: none; }

QLabel[role="title"] { font-size: 15pt; font-weight: 600; }
QLabel[role="subtitle"] { color: @secondary; }
QLabel[role="section"] { color: @secondary; font-size: 8pt; font-weight: 600; letter-spacing: 0.5px; }
QLabel[role="secondary"] { color: @secondary; }
QLabel[role="tertiary"] { color: @tertiary; }
QLabel[role="path"] { color: @text; }
QLabel[role="placeholder"] { color: @tertiary; font-style: italic; }
QLabel[role="cardTitle"] { font-size: 12pt; font-weight: 600; }
QLabel[role="kpiValue"] { font-size: 15pt; font-weight: 600; }
QLabel[role="kpiLabel"] { color: @secondary; font-size: 8pt; }

QPushButton, QToolButton { background: @raised; border: 1px solid @border; border-radius: 7px; padding: 5px 12px; }
QPushButton:hover, QToolButton:hover { background: #32353b; }
QPushButton:pressed, QToolButton:pressed { background: #24262a; }
QPushButton:disabled, QToolButton:disabled { color: @tertiary; background: @surface; }
QToolButton[flat="true"] { background: transparent; border: 1px solid transparent; padding: 4px 6px; }
QToolButton[flat="true"]:hover { background: @raised; border-color: @border; }
QToolButton::menu-indicator { image: none; width: 0; }
QToolButton:checked, QToolButton[active="true"] { background: #243a57; border-color: @accent; }

QToolButton[role="tab"] { background: transparent; border: 1px solid transparent; border-radius: 8px; padding: 5px 12px; color: @secondary; }
QToolButton[role="tab"]:hover { color: @text; background: @surface; }
QToolButton[role="tab"]:checked { background: @raised; border-color: @border; color: @text; }
QSplitter::handle { background: transparent; }
QFrame[role="footer"] { background: #111214; border: none; border-top: 1px solid @border; }
QScrollArea#livePage, QScrollArea#livePage > QWidget > QWidget#progressCard { background: transparent; }

QPushButton[role="primary"] { background: @accent; border: none; color: white; font-weight: 600; border-radius: 9px; padding: 8px 18px; }
QPushButton[role="primary"]:hover { background: #4a9bff; }
QPushButton[role="primary"]:pressed { background: #2374db; }
QPushButton[role="danger"] { background: #d9453a; border: none; color: white; font-weight: 600; border-radius: 9px; padding: 8px 18px; }
QPushButton[role="danger"]:hover { background: #e8554a; }
QPushButton[role="danger"]:disabled { background: #5a2e2b; color: #d8b8b5; }

QLineEdit, QComboBox { background: @sunken; border: 1px solid @border; border-radius: 7px; padding: 4px 8px; selection-background-color: @accent; }
QLineEdit:focus, QComboBox:focus { border-color: @accent; }
QComboBox::drop-down { border: none; width: 20px; }
QComboBox::down-arrow { image: url(:/icons/chevron.down.svg); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: @raised; border: 1px solid @border; selection-background-color: @accent; outline: none; padding: 2px; }

QCheckBox { spacing: 7px; }
QCheckBox::indicator { width: 16px; height: 16px; border-radius: 4px; border: 1px solid #50545c; background: @sunken; }
QCheckBox::indicator:hover { border-color: @accent; }
QCheckBox::indicator:checked { background: @accent; border-color: @accent; image: url(:/icons/checkmark-white.svg); }
QCheckBox:disabled { color: @tertiary; }

QTabBar::tab { background: transparent; color: @secondary; padding: 7px 16px; margin-right: 4px; border-radius: 8px; }
QTabBar::tab:selected { background: @raised; color: @text; }
QTabBar::tab:hover:!selected { color: @text; }

QListView, QTreeView, QTableView { background: @sunken; border: none; outline: none; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 2px; }
QScrollBar::handle:vertical { background: #3c3f46; border-radius: 3px; min-height: 24px; }
QScrollBar::handle:vertical:hover { background: #50545c; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QScrollBar:horizontal { background: transparent; height: 10px; margin: 2px; }
QScrollBar::handle:horizontal { background: #3c3f46; border-radius: 3px; min-width: 24px; }
QProgressBar { background: @sunken; border: none; border-radius: 3px; max-height: 6px; min-height: 6px; }
QProgressBar::chunk { background: @accent; border-radius: 3px; }
QDialog { background: @window; }

/* Keyboard focus: a clear accent ring on every control that can take it. */
QPushButton:focus, QToolButton:focus, QToolButton[flat="true"]:focus, QToolButton[role="tab"]:focus { border: 1px solid @focus; }
QPushButton[role="primary"]:focus, QPushButton[role="danger"]:focus { border: 2px solid white; padding: 6px 16px; }
QCheckBox:focus { color: @text; }
QCheckBox::indicator:focus { border: 1px solid @focus; }
QTableView:focus, QListView:focus, QTreeView:focus { border: 1px solid @focus; }
QSlider:focus { border: 1px solid @focus; border-radius: 4px; }
)"_s;
    s.replace(u"@window"_s, css(kWindow));
    s.replace(u"@surface"_s, css(kSurface));
    s.replace(u"@raised"_s, css(kSurfaceRaised));
    s.replace(u"@sunken"_s, css(kSurfaceSunken));
    s.replace(u"@border"_s, css(kBorder));
    s.replace(u"@tertiary"_s, css(kTextTertiary));
    s.replace(u"@secondary"_s, css(kTextSecondary));
    s.replace(u"@text"_s, css(kTextPrimary));
    s.replace(u"@accent"_s, css(kAccent));
    s.replace(u"@focus"_s, css(kFocusRing));
    return s;
}

} // namespace

void apply(QApplication &app, const QString &languageCode)
{
    // Fusion draws every control from the palette and the style sheet, so
    // the look is the same whatever desktop theme the user runs.
    if (QStyle *fusion = QStyleFactory::create(u"Fusion"_s))
        app.setStyle(fusion);
    app.setPalette(darkPalette());
    app.setStyleSheet(styleSheet());
    applyLanguageFont(languageCode);
}

void applyLanguageFont(const QString &languageCode)
{
    static const QString defaultFamily = QGuiApplication::font().family();
    QFont font = QGuiApplication::font();
    const QString family = fontFamilyFor(languageCode);
    font.setFamilies({ family.isEmpty() ? defaultFamily : family });
    font.setPointSizeF(9.5);
    if (font != QGuiApplication::font())
        QApplication::setFont(font);
}

} // namespace orvanta::theme
