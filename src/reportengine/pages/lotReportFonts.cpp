// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotReportFonts.h"

#include "common/vipErrors.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <array>
#include <clocale>
#include <string>

// Resources of a static library are linked in only where they are asked for, from outside any namespace.
static void InitFonts() {
    Q_INIT_RESOURCE(fonts);
}

namespace report {

namespace {

QString RegisterFonts() {
    InitFonts();
    QString family;
    for (const char* const style : {"Regular", "Semibold", "Italic", "SemiboldItalic"}) {
        const int id = QFontDatabase::addApplicationFont(QString(":/fonts/OpenSans-%1.ttf").arg(style));
        if (id < 0) {
            throw ELotError(std::string("The report font ") + style + " cannot be loaded.");
        }
        if (family.isEmpty()) {
            family = QFontDatabase::applicationFontFamilies(id).value(0);
        }
    }
    return family;
}

} // namespace

const QString& ReportFontFamily() {
    static const QString family = RegisterFonts();
    return family;
}

TReportGround::TReportGround() {
    if (QGuiApplication::instance() != nullptr) {
        return;
    }
    // Offscreen even where there is a display: reports need none.
    static int count = 3;
    static std::array<char, 8> name{"lotcalc"};
    static std::array<char, 10> option{"-platform"};
    static std::array<char, 10> platform{"offscreen"};
    static std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
    // The toolkit warns where XDG_RUNTIME_DIR is missing, as in batch runs; nothing here needs it, so drop the warning.
    static QtMessageHandler before = nullptr;
    before = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (!text.startsWith("QStandardPaths:")) {
            before(type, context, text);
        }
    });
    FApplication = std::make_unique<QGuiApplication>(count, arguments.data());
    qInstallMessageHandler(before);
    std::setlocale(LC_NUMERIC, "C");
}

TReportGround::~TReportGround() = default;

} // namespace report
