// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cost sections as rows of a table, for the projects that the program makes itself.
#pragma once

#include "model/lotProject.h"

#include <span>

struct TItemRow {
    const char* Name;
    double Amount; ///< Money, or percent.
    bool Percentage;
    const char* BaseFormula;
    bool Link;
};

struct TSectionRow {
    const char* Name;
    const char* Group;
    const char* DefaultBase;
    bool Income;
    std::span<const TItemRow> Items;
};

/// Adds the sections with their items at the end of the project's.
void AddSections(TlotProject& project, std::span<const TSectionRow> sections);
