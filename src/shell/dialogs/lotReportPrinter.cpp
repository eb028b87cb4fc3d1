// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/lotReportPrinter.h"

#include "common/vipErrors.h"
#include "reportengine/pages/lotReportPainter.h"

#include <QPainter>
#include <algorithm>

void SetPrinterPage(QPrinter& printer, const report::TPreparedReport& report, std::size_t page) {
    const QSizeF size = report.Pages.at(page).Size / report::TwipsPerPoint;
    const bool landscape = size.width() > size.height();
    const QPageSize paper(landscape ? size.transposed() : size, QPageSize::Point, {}, QPageSize::FuzzyMatch);
    printer.setFullPage(true);
    printer.setPageSize(paper);
    printer.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void PrintReport(QPrinter& printer, const report::TPreparedReport& report) {
    const auto count = static_cast<int>(report.Pages.size());
    const bool range = printer.printRange() == QPrinter::PageRange;
    const int first = range ? std::clamp(printer.fromPage(), 1, count) : 1;
    const int last = range ? std::clamp(printer.toPage(), first, count) : count;
    QPainter painter;
    for (int page = first; page <= last; ++page) {
        const auto index = static_cast<std::size_t>(page - 1);
        SetPrinterPage(printer, report, index);
        if (page == first ? !painter.begin(&printer) : !printer.newPage()) {
            throw ELotError("The report cannot be printed.");
        }
        painter.resetTransform();
        painter.scale(printer.logicalDpiX() / report::TwipsPerInch, printer.logicalDpiY() / report::TwipsPerInch);
        report::PaintPage(painter, report, report.Pages[index]);
    }
    if (!painter.end()) {
        throw ELotError("The report cannot be printed.");
    }
}
