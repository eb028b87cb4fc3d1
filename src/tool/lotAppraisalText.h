// SPDX-License-Identifier: GPL-3.0-or-later
//
// The computed project as a readable appraisal in plain text: measures, units, costs by group and section, finance, and
// the cashflow by year.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"

#include <string>

[[nodiscard]] std::string AppraisalText(const TlotProject& project, const TNumberLocale& locale);
