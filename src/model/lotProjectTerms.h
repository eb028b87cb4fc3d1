// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a user sets of a project besides its units, costs and funding: the site, what is solved for, and what reports
// show.
#pragma once

#include "common/lotFields.h"
#include "model/lotUnit.h"

#include <cstdint>
#include <string>

/// Where the NPV and IRR that are shown come from; any other number acts as Equity.
enum class TlotNPVIRRSource : std::uint8_t { Equity = 0, Project = 1 };

enum class TlotSiteAreaUnits : std::uint8_t { Acres = 0, Hectares = 1 };

/// The measure that a residual site value is solved for; any other number acts as NoTarget.
enum class TlotResidualTarget : std::uint8_t {
    NoTarget = 0,
    ProfitOnCost = 1,
    ProfitOnGDV = 2,
    ProfitOnNDV = 3,
    RentalYield = 4,
};

struct TlotProjectTerms {
    std::string Name;
    std::string Recipient;
    double StartDate = 0; ///< A date (vipDate): that of month 0.
    TlotRentalValues RentalValues = TlotRentalValues::Annual;
    double TotalGroundRent = 0; ///< A year's ground rent.
    bool Leasehold = false;
    double LeaseTerm = 0; ///< Years.
    std::string ConstructionGroup = "Construction Costs";
    std::string SiteGroup = "Site Costs";
    std::string PictureFileName;
    double NetSiteArea = 0;
    TlotSiteAreaUnits SiteAreaUnits = TlotSiteAreaUnits::Acres;
    double ResidualTargetValue = 0; ///< Percent.
    TlotResidualTarget ResidualTarget = TlotResidualTarget::NoTarget;
    double MinSiteValue = -10'000'000; ///< Edited and stored; no search reads it.
    double MaxSiteValue = 1'000'000'000;
    bool CalcNegativeSiteValue = false;
    TlotNPVIRRSource NPVIRRSource = TlotNPVIRRSource::Equity;
    bool IncludeExtraLoanDetail = false;
    std::int32_t UnitAreaDecPlaces = 0;
    std::int32_t PercentageCostDecPlaces = 0;
    std::string CostGroupPageBreak = "Sales Costs";
    std::string AppraisalReportFile = "AppraisalGrouped";
    std::string RatioBase = "GDV";
    bool HideRatio = false;
    std::string AppraisalTitle = "Development Appraisal";
    std::string ResidualTitle = "Residual Valuation";
    bool ShowProfitOnCost = false;
    bool ShowProfitOnGDV = false;
    bool ShowProfitOnNDV = false;
    bool ShowSiteValueOnGDV = false;
    bool ShowRentalYield = false;
    bool ShowNPV = false;
    bool ShowIRR = false;
    bool ShowRentalCover = false;
    bool ShowInterestCover = false;
    std::string Notes; ///< Lines end in CR LF, here and in the next two.
    std::string AppraisalNotes;
    std::string Address;

    /// All fields that are attributes, in their order in files.
    template <class Visitor> static void VisitFields(Visitor&& visit) {
        VisitGeneral(visit);
        VisitResidual(visit);
        VisitReports(visit);
    }
    /// The texts of many lines by their elements in files; all of them begin afresh with another project.
    template <class Visitor> static void VisitTexts(Visitor&& visit) {
        visit("Notes", &TlotProjectTerms::Notes);
        visit("AppraisalNotes", &TlotProjectTerms::AppraisalNotes);
        visit("Address", &TlotProjectTerms::Address);
    }

    friend bool operator==(const TlotProjectTerms&, const TlotProjectTerms&) = default;

protected:
    // The three stretches between which files have what isn't held here: the site value, and the equity source.
    using T = TlotProjectTerms;

    template <class Visitor> static void VisitGeneral(Visitor&& visit) {
        visit(TlotFieldInfo{.Name = "Name", .Cleared = true}, &T::Name);
        visit(TlotFieldInfo{"Recipient"}, &T::Recipient);
        visit(TlotFieldInfo{.Name = "StartDate", .Form = TlotFieldForm::Date, .Cleared = true}, &T::StartDate);
        visit(TlotFieldInfo{"RentalValues"}, &T::RentalValues);
        visit(TlotFieldInfo{.Name = "TotalGroundRent", .Cleared = true}, &T::TotalGroundRent);
        visit(TlotFieldInfo{.Name = "Leasehold", .Cleared = true}, &T::Leasehold);
        visit(TlotFieldInfo{.Name = "LeaseTerm", .Cleared = true}, &T::LeaseTerm);
        visit(TlotFieldInfo{.Name = "ConstructionGroup", .Cleared = true}, &T::ConstructionGroup);
        visit(TlotFieldInfo{.Name = "SiteGroup", .Cleared = true}, &T::SiteGroup);
        visit(TlotFieldInfo{.Name = "PictureFileName", .Cleared = true}, &T::PictureFileName);
    }

    template <class Visitor> static void VisitResidual(Visitor&& visit) {
        visit(TlotFieldInfo{"NetSiteArea"}, &T::NetSiteArea);
        visit(TlotFieldInfo{"SiteAreaUnits"}, &T::SiteAreaUnits);
        visit(TlotFieldInfo{.Name = "ResidualTargetValue", .Since = 0.9}, &T::ResidualTargetValue);
        visit(TlotFieldInfo{.Name = "ResidualTarget", .Since = 0.9}, &T::ResidualTarget);
        visit(TlotFieldInfo{"MinSiteValue"}, &T::MinSiteValue, TlotKeepAbsent{});
        visit(TlotFieldInfo{"MaxSiteValue"}, &T::MaxSiteValue, TlotKeepAbsent{});
        visit(TlotFieldInfo{"CalcNegativeSiteValue"}, &T::CalcNegativeSiteValue, TlotKeepAbsent{});
        visit(TlotFieldInfo{"NPVIRRSource"}, &T::NPVIRRSource);
        visit(TlotFieldInfo{"IncludeExtraLoanDetail"}, &T::IncludeExtraLoanDetail);
    }

    template <class Visitor> static void VisitReports(Visitor&& visit) {
        visit(TlotFieldInfo{"UnitAreaDecPlaces"}, &T::UnitAreaDecPlaces, 2);
        visit(TlotFieldInfo{"PercentageCostDecPlaces"}, &T::PercentageCostDecPlaces, 3);
        visit(TlotFieldInfo{"CostGroupPageBreak"}, &T::CostGroupPageBreak);
        visit(TlotFieldInfo{"AppraisalReportFile"}, &T::AppraisalReportFile, "AppraisalGrouped");
        visit(TlotFieldInfo{"RatioBase"}, &T::RatioBase, "GDV");
        visit(TlotFieldInfo{.Name = "HideRatio", .Form = TlotFieldForm::Strict}, &T::HideRatio);
        visit(TlotFieldInfo{"AppraisalTitle"}, &T::AppraisalTitle, "Development Appraisal");
        visit(TlotFieldInfo{"ResidualTitle"}, &T::ResidualTitle, "Residual Valuation");
        visit(TlotFieldInfo{.Name = "ShowProfitOnCost", .Since = 0.9}, &T::ShowProfitOnCost);
        visit(TlotFieldInfo{.Name = "ShowProfitOnGDV", .Since = 0.9}, &T::ShowProfitOnGDV);
        visit(TlotFieldInfo{.Name = "ShowProfitOnNDV", .Since = 0.9}, &T::ShowProfitOnNDV);
        visit(TlotFieldInfo{.Name = "ShowSiteValueOnGDV", .Since = 0.9}, &T::ShowSiteValueOnGDV);
        visit(TlotFieldInfo{.Name = "ShowRentalYield", .Since = 0.9}, &T::ShowRentalYield);
        visit(TlotFieldInfo{.Name = "ShowNPV", .Since = 0.9}, &T::ShowNPV);
        visit(TlotFieldInfo{.Name = "ShowIRR", .Since = 0.9}, &T::ShowIRR);
        visit(TlotFieldInfo{.Name = "ShowRentalCover", .Since = 0.9}, &T::ShowRentalCover);
        visit(TlotFieldInfo{.Name = "ShowInterestCover", .Since = 0.9}, &T::ShowInterestCover);
    }
};
