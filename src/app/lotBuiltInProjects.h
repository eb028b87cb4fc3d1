// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two projects that the program carries in itself: what a new project starts from where a firm has no template, and
// the sample data.
#pragma once

#include "model/lotProject.h"
#include "persistence/lotOptions.h"

/// Adds the built-in sections, and takes the interest rate, target profit and rental period from the options.
void FillDefaultProject(TlotProject& project, const TlotOptions& options);

/// Fills a cleared project with the sample units and sections.
void FillTestProject(TlotProject& project);
