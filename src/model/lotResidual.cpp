// SPDX-License-Identifier: GPL-3.0-or-later
//
// The residual site value: the pass repeated while the site value is bisected. Interest depends on the site value and
// the measure on interest, and each trial computes both afresh, so nothing but the site value is ever searched.
#include "common/vipBisect.h"
#include "common/vipErrors.h"
#include "model/lotMeasures.h"

namespace {

constexpr int MaximumIterations = 50;
constexpr double SiteValueTolerance = 0.0001;
constexpr double FarSiteValue = 1'000'000'000;

/// Drives `solver` over the project's site value; `figure` is the measure that each trial leaves.
TlotSolution Solve(TlotProject& project, VBisect& solver, const double& figure, TlotPassScope scope) {
    while (solver.Running()) {
        project.BaseValues.SiteValue.Amount = solver.Middle();
        project.Calculate(scope);
        solver.Step(figure);
    }
    return {solver.Found() ? project.BaseValues.SiteValue.Amount : 0, solver.Found()};
}

VBisect FirstStage(double highest, double target) {
    VBisect solver;
    solver.Tolerance = SiteValueTolerance;
    solver.Start(MaximumIterations, target, 0, highest);
    return solver;
}

/// The range of the second stage, from the measure at a site value of 0, at which the project stands calculated.
VBisect SecondStage(const TlotProject& project, double measure, double target) {
    VBisect solver;
    solver.Tolerance = SiteValueTolerance;
    if (measure < 0) {
        // From a hundred times the loss up to the loss. Where the profit is positive all the same (a negative measure
        // of a negative cost), the bounds are the wrong way round, and the search finds nothing: kept so.
        const double profit = project.BaseValues.Profit;
        solver.SignedMode = true;
        solver.Start(MaximumIterations, target, profit * 100, profit);
    } else if (measure < target) {
        solver.SignedMode = true;
        solver.Start(MaximumIterations, target, -FarSiteValue, 0);
    } else {
        solver.Start(MaximumIterations, target, 0, FarSiteValue);
    }
    return solver;
}

/// Where the figure of a keyword lies. Throws EEvaluatorError for a word that is none.
const double& FigureOf(TlotProject& project, std::string_view keyword) {
    const double* const figure = project.BaseValues.Evaluator.FindVar(keyword);
    if (figure == nullptr) {
        throw EEvaluatorError("Parse error: Unknown symbol: '" + std::string(keyword) + "'");
    }
    return *figure;
}

TlotSolution SolveFirstStage(TlotProject& project, const double& figure, double target, double highest,
                             TlotPassScope scope) {
    VBisect solver = FirstStage(highest, target);
    return Solve(project, solver, figure, scope);
}

TlotSolution SolveBothStages(TlotProject& project, std::string_view keyword, double target, TlotPassScope scope) {
    const double& figure = FigureOf(project, keyword);
    const TlotSolution first = SolveFirstStage(project, figure, target, project.MaxSiteValue, scope);
    // An answer of exactly 0 is looked for again, as if it were none; only where nothing else is found does it hold.
    if (first.SiteValue != 0 || !project.CalcNegativeSiteValue) {
        return first;
    }
    project.BaseValues.SiteValue.Amount = 0;
    project.Calculate(scope);
    VBisect solver = SecondStage(project, figure, target);
    const TlotSolution second = Solve(project, solver, figure, scope);
    return second.Found ? second : first;
}

TlotSolution SolveForEquityIRR(TlotProject& project, double target) {
    return SolveFirstStage(project, project.Equity.IRR, target, project.MaxSiteValue, TlotPassScope::Full);
}

} // namespace

double TlotProject::SolveSiteValue(std::string_view keyword, double target, TlotPassScope scope) {
    return SolveBothStages(*this, keyword, target, scope).SiteValue;
}

double TlotProject::SolveSiteValueWithin(std::string_view keyword, double target, double highest, TlotPassScope scope) {
    return SolveFirstStage(*this, FigureOf(*this, keyword), target, highest, scope).SiteValue;
}

double TlotProject::SolveEquityIRR(double target) {
    return SolveForEquityIRR(*this, target).SiteValue;
}

TlotSolution SolveFor(TlotProject& project, TlotMeasure measure, double target) {
    const TlotMeasureInfo& info = MeasureInfo(measure);
    switch (info.Search) {
    case TlotMeasureSearch::ByKeyword: return SolveBothStages(project, info.Keyword, target, TlotPassScope::Full);
    case TlotMeasureSearch::EquityIRR: return SolveForEquityIRR(project, target);
    case TlotMeasureSearch::None: break;
    }
    throw ELotError(std::string(info.Caption) + ": no site value is searched for it");
}
