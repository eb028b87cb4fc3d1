// SPDX-License-Identifier: GPL-3.0-or-later
//
// The project's two sensitivity models: the present one, and the older one of five by five steps.
//
// A scenario runs in a fixed order, since later values depend on earlier ones: rents from the areas; shifts of ERV,
// rates and yields; capital values; shifts of sale values, costs, rates and the site value; the pass from its clearing
// on; and last a search for the site value, where a profit on cost is wanted.
#pragma once

#include "model/lotProject.h"
#include "model/lotProjectState.h"
#include "sensitivity/SAMain.h"

#include <functional>
#include <memory>
#include <span>
#include <string_view>

/// Runs a scenario on the live project, and leaves it after a table as it was, bit for bit.
class TlotSAProjectCalc final : public TSACalc {
public:
    explicit TlotSAProjectCalc(TlotProject& project) : FProject(project) {}

    void Calculate(const TSAAxis& axis1, const TSAAxis& axis2) override;
    void Start() override;
    void Finish() override;

private:
    TlotProject& FProject;
    std::unique_ptr<TlotProjectState> FState;
    double FSiteValue = 0;
    double FProfitOnCost = 0;
};

/// A figure of the computed project.
class TlotSAResultProject final : public TSAResult {
public:
    TlotSAResultProject(std::string name, TSACalc& calc, std::int32_t decimals, bool percentage, const double& figure)
        : TSAResult(std::move(name), calc, decimals, percentage), FFigure(figure) {}

    [[nodiscard]] std::string Text(const TSAAxis& axis1, const TSAAxis& axis2,
                                   const TNumberLocale& locale) const override;

private:
    const double& FFigure;
};

class TlotSAModelNew final : public TSAModel {
public:
    /// The project must outlive it.
    TlotSAModelNew(TlotProject& project, const TNumberLocale& locale);
};

/// The older model: five steps on every axis, no costs, no NPV or IRR, and a search of its own range.
class TlotSAModelOld final : public TSAModel {
public:
    TlotSAModelOld(TlotProject& project, const TNumberLocale& locale);

    /// Forgets what took part, as for another project.
    void Clear();
};
