// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fonts that reports are set in, which the program carries with it, and the ground to make reports on where there
// is no window.
#pragma once

#include <QString>
#include <memory>

class QGuiApplication;

namespace report {

/// The family of all report texts. Registers the fonts at the first call, which needs an application object.
[[nodiscard]] const QString& ReportFontFamily();

/// An application object without a display, made where the process has none yet; it lives as long as this does.
class TReportGround {
public:
    TReportGround();
    TReportGround(const TReportGround&) = delete;
    TReportGround& operator=(const TReportGround&) = delete;
    ~TReportGround();

private:
    std::unique_ptr<QGuiApplication> FApplication;
};

} // namespace report
