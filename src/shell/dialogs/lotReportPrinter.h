// SPDX-License-Identifier: GPL-3.0-or-later
//
// Prints finished reports.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <QPrinter>

/// Gives the printer the paper of that page of the report.
void SetPrinterPage(QPrinter& printer, const report::TPreparedReport& report, std::size_t page);

/// Prints the pages of the range that the printer was given, all without one. Throws ELotError where it cannot.
void PrintReport(QPrinter& printer, const report::TPreparedReport& report);
