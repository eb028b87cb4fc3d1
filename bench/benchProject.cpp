// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchProject.h"

#include "persistence/lotReader.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

std::string ExampleText(const std::string& name) {
    std::ifstream file(std::string(LOTMASTER_EXAMPLES) + "/" + name, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (text.empty()) {
        throw std::runtime_error("no example " + name);
    }
    return text;
}

std::unique_ptr<TlotProject> ExampleProject(const std::string& name) {
    auto project = std::make_unique<TlotProject>(46'000);
    TlotReader reader(false, {}, 46'000);
    if (!reader.LoadFromMemory(ExampleText(name), name) || !reader.Read(*project)) {
        throw std::runtime_error("cannot read " + name);
    }
    project->Calculate();
    return project;
}

namespace {

void AddUnit(TlotProject& project, int number, int months) {
    TlotUnit& unit = project.Units.Add();
    unit.Name = "Unit " + std::to_string(number);
    unit.Number = number;
    unit.UnitType = "Residential";
    unit.BuildArea.Value = 1000 + number;
    unit.BuildRate.Value = 140;
    unit.BuildLine.Period = months;
    unit.SalesLine.Period = months;
    TlotArea& area = unit.Areas.Add();
    area.SetArea(1000 + number);
    area.SetRate(310);
}

void AddItem(TlotSection& section, int number, int months) {
    TlotItem& item = section.Items.Add();
    item.Name = "Item " + std::to_string(number);
    item.Percentage = number % 2 == 0;
    item.Amount.Value = item.Percentage ? 0.02 : 1500 + number;
    item.BaseFormula = "BUILD+SECTION";
    item.Link = number % 10 == 0;
    item.Line.Period = months;
}

} // namespace

std::unique_ptr<TlotProject> MadeProject(int lines, int months) {
    auto project = std::make_unique<TlotProject>(46'000);
    for (int i = 0; i < lines / 4; ++i) {
        AddUnit(*project, i, months);
    }
    for (int i = 0; i < lines / 2; ++i) {
        if (i % 25 == 0) {
            TlotSection& section = project->Sections.Add();
            section.Name = "Section " + std::to_string(i);
            section.Group = "Construction Costs";
        }
        AddItem(project->Sections[project->Sections.Count() - 1], i, months);
    }
    TlotLoan& loan = project->Funding.Loans.Add();
    loan.Name = "Facility";
    loan.InterestRate.Value = 7;
    loan.BorrowPercentage = 80;
    loan.RepayPercentage = 100;
    project->Equity.InterestRate.Value = 9;
    project->Equity.DiscountRate = 8;
    project->BaseValues.SiteValue.Amount = 1'000'000;
    project->Calculate();
    return project;
}
