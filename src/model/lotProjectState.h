// SPDX-License-Identifier: GPL-3.0-or-later
//
// Everything that calculations of a project leave behind, kept and put back bit for bit. A pass reads some of what the
// pass before it left (a group's total, the rent, the profit), so computing again is not enough to undo scenarios.
#pragma once

#include "common/lotDoubles.h"
#include "model/lotProject.h"

#include <vector>

class TlotProjectState {
public:
    /// Keeps the state of the project, which must outlive it and keep its units, items and loans.
    explicit TlotProjectState(TlotProject& project);

    void Restore();

private:
    TlotProject& FProject;
    std::vector<double> FFigures;
    std::vector<TlotDoubles> FRows;
};
