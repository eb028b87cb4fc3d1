// SPDX-License-Identifier: GPL-3.0-or-later
//
// The project's two sensitivity models: the present one, and the older one of five by five steps.
//
// A scenario runs in a fixed order, since later values depend on earlier ones: rents from the areas; shifts of ERV,
// rates and yields; capital values; shifts of sale values, costs, rates and the site value; the pass from its clearing
// on; and last a search for the site value, where a profit on cost is wanted. TlotSAPlace is that order.
#pragma once

#include "model/lotMeasures.h"
#include "model/lotProjectState.h"
#include "sensitivity/SAMain.h"

#include <memory>
#include <string>

/// Runs a scenario on the live project, and leaves it after a table as it was, bit for bit.
class TlotSAProjectCalc final : public TSACalc {
public:
    explicit TlotSAProjectCalc(TlotProject& project) : FProject(project) {}

    void Calculate(const TSAAxis& columns, const TSAAxis& rows) override;
    void Start() override;
    void Finish() override;

private:
    TlotProject& FProject;
    std::unique_ptr<TlotProjectState> FState;
    double FSiteValue = 0;
    double FProfitOnCost = 0;
};

/// A measure of the computed project; of NPV and IRR the equity's.
class TlotSAResultProject final : public TSAResult {
public:
    /// Decimals and percent sign are those of the measure's mask. The project must outlive it.
    TlotSAResultProject(std::string name, TSACalc& calc, const TlotProject& project, const TlotMeasureInfo& measure);

    [[nodiscard]] std::string Text(const TSAAxis& columns, const TSAAxis& rows,
                                   const TNumberLocale& locale) const override;

private:
    const TlotProject& FProject;
    const TlotMeasureInfo& FMeasure;
};

class TlotSAModelNew final : public TSAModel {
public:
    /// The project must outlive it.
    TlotSAModelNew(TlotProject& project, const TNumberLocale& locale);
};

/// The older model: five steps on every axis, no costs, no NPV or IRR, and a search between 0 and a milliard only.
class TlotSAModelOld final : public TSAModel {
public:
    TlotSAModelOld(TlotProject& project, const TNumberLocale& locale);

    /// Has all items of all categories take part again, as for another project.
    void Clear();
};
