// SPDX-License-Identifier: GPL-3.0-or-later
//
// The residual site value: the pass repeated while the site value is bisected. Interest depends on the site value and
// the measure on interest, and each trial computes both afresh, so nothing but the site value is ever searched.
#include "common/vipBisect.h"
#include "common/vipErrors.h"
#include "model/lotProject.h"

namespace {

constexpr int MaximumIterations = 50;
constexpr double SiteValueTolerance = 0.0001;
constexpr double FarSiteValue = 1'000'000'000;

/// Drives `solver` over the project's site value; `figure` is the measure that each trial leaves.
double Solve(TlotProject& project, VBisect& solver, const double& figure, TlotPassScope scope) {
    while (solver.Running()) {
        project.BaseValues.SiteValue.Amount = solver.Middle();
        project.Calculate(scope);
        solver.Step(figure);
    }
    return solver.Found() ? project.BaseValues.SiteValue.Amount : 0;
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
        // A hundredfold loss as the lower bound; whatever the sign of that profit, it is taken as it is.
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

} // namespace

double TlotProject::SolveSiteValue(std::string_view keyword, double target, TlotPassScope scope) {
    const double answer = SolveSiteValueWithin(keyword, target, MaxSiteValue, scope);
    if (answer != 0 || !CalcNegativeSiteValue) {
        return answer;
    }
    const double& figure = FigureOf(*this, keyword);
    BaseValues.SiteValue.Amount = 0;
    Calculate(scope);
    VBisect solver = SecondStage(*this, figure, target);
    return Solve(*this, solver, figure, scope);
}

double TlotProject::SolveSiteValueWithin(std::string_view keyword, double target, double highest, TlotPassScope scope) {
    const double& figure = FigureOf(*this, keyword);
    VBisect solver = FirstStage(highest, target);
    return Solve(*this, solver, figure, scope);
}

double TlotProject::SolveEquityIRR(double target) {
    VBisect solver = FirstStage(MaxSiteValue, target);
    return Solve(*this, solver, Equity.IRR, TlotPassScope::Full);
}
