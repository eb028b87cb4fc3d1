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

/// Drives `solver` over the project's site value; `measure` reads what each trial gave.
template <class Measure> double Solve(TlotProject& project, VBisect& solver, Measure measure) {
    while (solver.Running()) {
        project.BaseValues.SiteValue.Amount = solver.Middle();
        project.Calculate();
        solver.Step(measure());
    }
    return solver.Found() ? project.BaseValues.SiteValue.Amount : 0;
}

VBisect FirstStage(const TlotProject& project, double target) {
    VBisect solver;
    solver.Tolerance = SiteValueTolerance;
    solver.Start(MaximumIterations, target, 0, project.MaxSiteValue);
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

} // namespace

double TlotProject::SolveSiteValue(std::string_view keyword, double target) {
    const double* const figure = BaseValues.Evaluator.FindVar(keyword);
    if (figure == nullptr) {
        throw EEvaluatorError("Parse error: Unknown symbol: '" + std::string(keyword) + "'");
    }
    const auto measure = [figure] { return *figure; };
    VBisect solver = FirstStage(*this, target);
    const double answer = Solve(*this, solver, measure);
    if (answer != 0 || !CalcNegativeSiteValue) {
        return answer;
    }
    BaseValues.SiteValue.Amount = 0;
    Calculate();
    solver = SecondStage(*this, measure(), target);
    return Solve(*this, solver, measure);
}

double TlotProject::SolveEquityIRR(double target) {
    VBisect solver = FirstStage(*this, target);
    return Solve(*this, solver, [&] { return Equity.IRR; });
}
