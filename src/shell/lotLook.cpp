// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotLook.h"

#include "common/vipErrors.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QStyleFactory>

namespace look {

QColor Missing() {
    return {0xC6, 0x28, 0x28};
}

QColor Accent() {
    return {0x1F, 0x5C, 0x7A};
}

QColor Subdued() {
    return {0x5F, 0x6B, 0x76};
}

QColor Rule() {
    return {0xD5, 0xDB, 0xE0};
}

QColor Band() {
    return {0xF6, 0xF8, 0xFA};
}

QFont TextFont() {
    QFont font("Open Sans");
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
    return TextFont();
}

QIcon Icon(const QString& name) {
    const QString file = ":/icons/" + name + ".svg";
    if (!QFile::exists(file)) {
        throw ELotError("There is no icon " + name.toStdString() + ".");
    }
    return QIcon(file);
}

QIcon ProgramIcon() {
    return Icon("lotmaster");
}

void Apply(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(TextFont());
    application.setWindowIcon(ProgramIcon());
}

} // namespace look
