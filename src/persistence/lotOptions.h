// SPDX-License-Identifier: GPL-3.0-or-later
//
// The options that all users of an installation share, with the figures that hold where nothing was ever set, and their
// file, which administrators edit too. Saved by whoever changed them, never as a matter of course.
#pragma once

#include "common/vipNumber.h"
#include "model/lotArea.h"
#include "model/lotUnit.h"

#include <cstdint>
#include <string>
#include <vector>

struct TlotOptions {
    double PurchasersCosts = 5.75; ///< New unit, percent.
    double TargetProfit = 15;      ///< New project, percent on cost; 0 means no residual target.
    double InterestRate = 6;       ///< New project, percent a year.
    TlotRentalValues RentalValues = TlotRentalValues::Annual;
    TlotYPFrequency YPFrequency = TlotYPFrequency::AnnuallyInArrears;
    TlotDimensions Dimensions = TlotDimensions::SquareFeet;

    std::string Logo; ///< Picture file of the reports.
    std::string Footer = "This appraisal does not constitute a formal valuation";

    bool Designer = false;     ///< The preview offers the Design command.
    bool ColourBanding = true; ///< Banded rows in the grids.

    // Blue, green and red, from the high byte down.
    std::int32_t GradientStartColour = 0xFFFFFF;
    std::int32_t GradientEndColour = 0xC0DCC0;
    std::int32_t SensitivityReportColour = 0xC0DCC0;

    TlotZoning Zoning = DefaultZoning();
    std::vector<std::string> Company; ///< Lines that head the reports; not part of the options file.

    /// Takes everything from the two files; what is missing or makes no sense there gets its default. Never throws on
    /// account of a file. `locale` is the user's.
    void Load(const std::string& optionsFile, const std::string& companyFile, const TNumberLocale& locale);
    /// Writes every key and the zoning table into the options file, keeping whatever else is in it. Throws EFileError.
    void Save(const std::string& optionsFile, const TNumberLocale& locale) const;
};
