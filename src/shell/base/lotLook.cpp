// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotLook.h"

#include "shell/base/lotLineIcon.h"

#include <QApplication>
#include <QFrame>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>
#include <QWidget>

namespace look {

namespace {

constexpr QRgb TextColour = 0xFF1E272E;
constexpr QRgb WindowColour = 0xFFF1F4F5;
constexpr QRgb FaintColour = 0xFFA3ADB3; // text of what can't be used

QPalette LightPalette() {
    const QColor text = QColor::fromRgb(TextColour);
    const QColor window = QColor::fromRgb(WindowColour);
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, Band());
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0x86, 0x91, 0x98));
    palette.setColor(QPalette::Button, QColor(0xF7, 0xF9, 0xFA));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Midlight, QColor(0xE6, 0xEA, 0xEC));
    palette.setColor(QPalette::Mid, QColor(0xB9, 0xC2, 0xC7));
    palette.setColor(QPalette::Dark, QColor(0x93, 0x9E, 0xA4));
    palette.setColor(QPalette::Shadow, QColor(0x5F, 0x6B, 0x72));
    palette.setColor(QPalette::Highlight, Accent());
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, Accent());
    palette.setColor(QPalette::LinkVisited, Accent());
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, text);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText, QPalette::Link}) {
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(FaintColour));
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xF7, 0xF8, 0xF9));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xD9, 0xDF, 0xE2));
    return palette;
}

// Only what Fusion's own drawing makes heavy: its gradients on buttons, the sunken group boxes, the dark bar in menus.
// Fields, lists, tabs and scroll bars stay Fusion's. %1 accent, %2 its tint, %3 rule, %4 border of a button, %5 faint
// text, %6 a pale ground, %7 the accent pressed.
constexpr auto StyleSheet = R"(
QPushButton { background: white; border: 1px solid %4; border-radius: 4px; padding: 4px 14px; min-height: 18px; }
QPushButton:hover { background: %2; border-color: %1; }
QPushButton:pressed, QPushButton:checked { background: %3; border-color: %1; }
QPushButton:focus { border-color: %1; }
QPushButton:default { background: %1; border-color: %1; color: white; }
QPushButton:default:hover, QPushButton:default:pressed { background: %7; }
QPushButton:default:focus { border-color: %7; }
QPushButton:disabled { background: %6; border-color: %3; color: %5; }

QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 3px; }
QToolButton:hover { background: %2; }
QToolButton:pressed, QToolButton:checked { background: %2; border-color: %1; }
QToolButton:focus { border-color: %1; }
QToolButton[popupMode="1"] { padding-right: 18px; }
QToolButton::menu-button { border: none; width: 16px; }

QGroupBox { border: 1px solid %3; border-radius: 6px; margin-top: 9px; padding: 10px 4px 4px 4px; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: 10px; padding: 0 4px; color: %1; }
QGroupBox::title:disabled { color: %5; }

QMenuBar { background: white; border-bottom: 1px solid %3; }
QMenuBar::item { background: transparent; padding: 5px 10px; border-radius: 4px; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: %2; color: %1; }
QMenu { background: white; border: 1px solid %4; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 10px; border-radius: 4px; }
QMenu::item:selected { background: %2; color: %1; }
QMenu::item:disabled { background: transparent; color: %5; }
QMenu::icon { padding-left: 8px; }
QMenu::separator { height: 1px; background: %3; margin: 4px 8px; }

QToolTip { background: white; color: #1E272E; border: 1px solid %4; padding: 3px 6px; }
QStatusBar::item { border: none; }

QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }

QFrame[card="plain"] { background: white; border: 1px solid %3; border-radius: 8px; }
QFrame[card="tinted"] { background: %6; border: none; border-radius: 8px; }
)";

QString FilledStyleSheet() {
    const QString border = QColor(0xB9, 0xC2, 0xC7).name();
    return QString(StyleSheet)
        .arg(Accent().name(), AccentTint().name(), Rule().name(), border, QColor::fromRgb(FaintColour).name(),
             Band().name(), Accent().darker(125).name());
}

} // namespace

QFont TextFont() {
    QFont font;
    font.setFamilies({"Open Sans", "Noto Sans", "Segoe UI", "Helvetica Neue", "DejaVu Sans"});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(9.5);
    return font;
}

QFont HeadingFont() {
    QFont font = TextFont();
    font.setPointSizeF(14);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont FigureFont() {
    // The digits of each of the text's families are of one width already; kerning would move them.
    QFont font = TextFont();
    font.setKerning(false);
    return font;
}

QIcon Icon(const QString& name) {
    return LineIcon(name);
}

QIcon ProgramIcon() {
    // Below 24 pixels the drawing of the plot turns to mud; the small one stands in for it.
    QIcon icon;
    for (const int size : {16, 20, 24}) {
        icon.addPixmap(LineIcon("lotmaster-small").pixmap(QSize(size, size), 1.0));
    }
    for (const int size : {32, 48, 64, 128, 256}) {
        icon.addPixmap(LineIcon("lotmaster").pixmap(QSize(size, size), 1.0));
    }
    return icon;
}

void SetTextColour(QWidget& widget, const QColor& colour) {
    // Without a role of its own a widget takes the one that goes with its parent's ground.
    widget.setForegroundRole(QPalette::WindowText);
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, colour);
    widget.setPalette(palette);
}

void MakeCard(QFrame& frame, bool tinted) {
    frame.setProperty("card", tinted ? "tinted" : "plain");
}

void Apply(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(LightPalette());
    QApplication::setFont(TextFont());
    QToolTip::setPalette(LightPalette());
    QToolTip::setFont(TextFont());
    application.setStyleSheet(FilledStyleSheet());
    application.setWindowIcon(ProgramIcon());
}

} // namespace look
