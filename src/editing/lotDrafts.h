// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a dialog edits until OK: a copy of the inputs of one thing. Nothing reaches the model before Store, and what was
// not touched is stored as it was.
#pragma once

#include "model/lotProject.h"
#include "persistence/lotOptions.h"

#include <string>

/// The project's own inputs, its site value, its equity and its inflation. Neither units, costs nor loans.
class TlotProjectDraft {
public:
    explicit TlotProjectDraft(const TlotProject& project);

    TlotProjectTerms Terms;
    double SiteValue = 0;
    std::string EquitySource;
    TlotEquityTerms Equity;
    TlotInflationTerms Inflation;

    /// Nothing is recalculated.
    void Store(TlotProject& project) const;

    friend bool operator==(const TlotProjectDraft&, const TlotProjectDraft&) = default;
};

/// The options, which a dialog loads from disk and saves itself.
class TlotOptionsDraft {
public:
    explicit TlotOptionsDraft(const TlotOptions& options) : Options(options) {}

    TlotOptions Options; ///< Its zoning as a grid edits it, with rows that hold nothing.

    /// Rows of the zoning with neither a name nor a percentage are left out.
    void Store(TlotOptions& options) const;
};

/// One unit as a working copy, which computes as a unit does.
class TlotUnitDraft {
public:
    /// Simplifies the months of the unit's build and sales first, in the unit itself: a plain shape is edited as Start
    /// and Period. A unit without areas gets an empty row to type in.
    explicit TlotUnitDraft(TlotUnit& unit);

    TlotUnit Unit;

    /// Whether the months of a line were laid out in the timescale, so that no Start and Period tell them.
    [[nodiscard]] static bool IsOverridden(const TlotCashflowItem& line) { return !line.Portions.IsEmpty(); }

    /// Values the working copy as a unit of the project in place of `original`: with the project's total rent less the
    /// original's and with the copy's own. Nothing for a unit that isn't capitalised.
    void RefreshValuation(const TlotProject& project, const TlotUnit& original);

    /// The unit becomes the working copy, empty rows of areas left out.
    void Store(TlotUnit& unit) const { unit.Assign(Unit); }
};
