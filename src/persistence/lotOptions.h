// SPDX-License-Identifier: GPL-3.0-or-later
//
// The options that all users of an installation share, with the figures that hold where nothing was ever set.
#pragma once

#include "model/lotUnit.h"

struct TlotOptions {
    double PurchasersCosts = 5.75; ///< New unit, percent.
    double TargetProfit = 15;      ///< New project, percent on cost; 0 means no residual target.
    double InterestRate = 6;       ///< New project, percent a year.
    TlotRentalValues RentalValues = TlotRentalValues::Annual;
    TlotYPFrequency YPFrequency = TlotYPFrequency::AnnuallyInArrears;
    TlotDimensions Dimensions = TlotDimensions::SquareFeet;
};
