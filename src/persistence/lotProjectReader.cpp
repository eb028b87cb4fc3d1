// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotProjectReader.h"

#include "common/vipText.h"
#include "persistence/lotFieldForms.h"
#include "persistence/lotFundingReader.h"

namespace {

bool IsElement(pugi::xml_node node) {
    return node.type() == pugi::node_element;
}

} // namespace

void TlotProjectReader::Read(pugi::xml_node node) {
    const TlotElement project = FContext.Element(node);
    ReadAttributes(project);
    ReadUnitTypes(project);
    if (FContext.Version < 2) {
        FProject.Equity.NPVIRRIncludesInterest = true;
    }
    for (const pugi::xml_node child : node.children()) {
        if (IsElement(child)) {
            ReadChild(FContext.Element(child));
        }
    }
}

void TlotProjectReader::ReadAttributes(const TlotElement& e) {
    ReadFields(FContext, e, FProject);
    if (FContext.Version < 0.9) {
        ReadOldTarget(e);
    }
}

/// The forms of a residual target before there were several; and all measures were shown.
void TlotProjectReader::ReadOldTarget(const TlotElement& e) {
    FProject.ResidualTargetValue = e.Number("TargetProfit");
    FProject.ResidualTarget =
        e.Boolean("ProfitLocked") ? TlotResidualTarget::ProfitOnCost : TlotResidualTarget::NoTarget;
    for (bool TlotProjectTerms::*const flag :
         {&TlotProjectTerms::ShowProfitOnCost, &TlotProjectTerms::ShowProfitOnGDV, &TlotProjectTerms::ShowProfitOnNDV,
          &TlotProjectTerms::ShowSiteValueOnGDV, &TlotProjectTerms::ShowRentalYield, &TlotProjectTerms::ShowNPV,
          &TlotProjectTerms::ShowIRR, &TlotProjectTerms::ShowRentalCover, &TlotProjectTerms::ShowInterestCover}) {
        FProject.*flag = true;
    }
}

void TlotProjectReader::ReadUnitTypes(const TlotElement& project) {
    if (FContext.Version < 10) {
        return; // A cleared project has the default types, which is what such files mean.
    }
    FProject.UnitTypes.Clear();
    for (const pugi::xml_node child : project.Node().children()) {
        if (IsElement(child) && FContext.Element(child).Is("UnitType")) {
            FContext.CountObject(FContext.Element(child));
            ReadFields(FContext, FContext.Element(child), FProject.UnitTypes.Add());
        }
    }
}

void TlotProjectReader::ReadChild(const TlotElement& e) {
    if (e.Is("Finance") && FContext.Version < 0.9) {
        FProject.Equity.InterestRate.Value = e.Number("InterestRate");
    } else if (e.Is("Cashflow") && FContext.Version < 0.9) {
        FProject.Equity.DiscountRate = e.Number("DiscountRate");
    } else if (e.Is("SiteValue")) {
        FContext.ReadSpread(e, FProject.BaseValues.SiteValue);
    } else if (e.Is("Section")) {
        ReadSection(e);
    } else if (e.Is("Funding")) {
        TlotFundingReader(FContext).ReadFunding(e, FProject.Funding);
    } else if (e.Is("Equity")) {
        TlotFundingReader(FContext).ReadEquity(e, FProject.Equity);
    } else if (e.Is("Inflation")) {
        ReadInflation(e);
    } else if (e.Is("Unit")) {
        ReadUnit(e);
    } else {
        TlotProjectTerms::VisitTexts([&](const char* name, auto text) {
            if (e.Is(name)) {
                FProject.*text = vip::NormaliseLineBreaks(e.Content());
            }
        });
    }
}

void TlotProjectReader::ReadUnit(const TlotElement& e) {
    FContext.CountObject(e);
    TlotUnit& unit = FProject.Units.Add();
    ReadFields(FContext, e, unit);
    if (FContext.Version < 10) {
        ReadOldUnitType(e, unit);
    }
    for (const pugi::xml_node node : e.Node().children()) {
        if (IsElement(node)) {
            ReadUnitChild(FContext.Element(node), unit);
        }
    }
    unit.Areas.SetZoning(e.Boolean("Zoning"));
}

/// A number, before there were names.
void TlotProjectReader::ReadOldUnitType(const TlotElement& e, TlotUnit& unit) {
    const int type = e.Integer("UnitType");
    unit.UnitType = type == 0 ? "Commercial" : (type == 1 ? "Residential" : "Non-Capitalised");
    unit.IsCapitalised = type == 0;
}

void TlotProjectReader::ReadUnitChild(const TlotElement& e, TlotUnit& unit) {
    TlotUnit::VisitLines([&](const char* name, auto line) {
        if (e.Is(name)) {
            FContext.ReadSpread(e, unit.*line);
        }
    });
    if (e.Is("Area")) {
        FContext.CountObject(e);
        // The stored figures of a row stand as they are: none of them is worked out from the others here.
        TlotAreaTerms terms;
        ReadFields(FContext, e, terms);
        unit.Areas.Add().Assign(terms);
    }
}

void TlotProjectReader::ReadSection(const TlotElement& e) {
    FContext.CountSection(e);
    TlotSection& section = FProject.Sections.Add();
    ReadFields(FContext, e, section);
    for (const pugi::xml_node child : e.Node().children()) {
        if (IsElement(child) && FContext.Element(child).Is("Item")) {
            ReadItem(FContext.Element(child), section);
        }
    }
}

void TlotProjectReader::ReadItem(const TlotElement& e, TlotSection& section) {
    FContext.CountObject(e);
    TlotItem& item = section.Items.Add();
    ReadFields(FContext, e, item);
    if (!e.Has("DisplayRatio") && e.Has("PercentageOfGDV")) {
        item.DisplayRatio = e.Boolean("PercentageOfGDV"); // An older name of the same switch.
    }
    for (const pugi::xml_node child : e.Node().children()) {
        if (IsElement(child) && FContext.Element(child).Is("Value")) {
            FContext.ReadSpread(FContext.Element(child), item.Line);
        }
    }
}

void TlotProjectReader::ReadInflation(const TlotElement& e) {
    ReadFields(FContext, e, FProject.Inflation);
    const TlotElement targets = FContext.Element(e.Node().child("Targets"));
    TlotInflation::VisitTargets(
        [&](const char* name, TlotInflationTarget target) { FProject.Inflation.Set(target, targets.Boolean(name)); });
}
