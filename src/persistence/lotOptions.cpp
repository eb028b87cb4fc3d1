// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotOptions.h"

#include "common/vipText.h"
#include "persistence/lotSettingKeys.h"
#include "persistence/lotTextFile.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace {

constexpr std::string_view ZoningSection = "Zoning";
constexpr std::string_view DescriptionKey = "Description";
constexpr std::string_view PercentageKey = "Percentage";

/// More zones than any table has; bounds the work that a broken file asks for.
constexpr std::size_t MostZones = 1000;

template <class Options, class Visitor> void VisitKeys(Options& options, const Visitor& visit) {
    visit("Defaults", "PurchasersCosts", options.PurchasersCosts);
    visit("Defaults", "TargetProfit", options.TargetProfit);
    visit("Defaults", "InterestRate", options.InterestRate);
    visit("Defaults", "RentalValues", options.RentalValues, TlotRentalValues::Monthly);
    visit("Defaults", "YPFrequency", options.YPFrequency, TlotYPFrequency::MonthlyInAdvance);
    visit("Defaults", "Dimensions", options.Dimensions, TlotDimensions::SubUnits);
    visit("Appraisal", "Logo", options.Logo);
    visit("Appraisal", "Footer", options.Footer);
    visit("Options", "Designer", options.Designer);
    visit("Display", "ColourBanding", options.ColourBanding);
    visit("Reports", "GradientStartColour", options.GradientStartColour);
    visit("Reports", "GradientEndColour", options.GradientEndColour);
    visit("Reports", "SensitivityReportColour", options.SensitivityReportColour);
}

std::string Numbered(std::string_view key, std::size_t number) {
    return std::string(key) + std::to_string(number);
}

/// As many zones as different keys begin with "Description", whatever their numbers.
std::size_t CountZones(const TlotIniFile& file) {
    const auto before = [](const std::string& a, const std::string& b) { return vip::CompareText(a, b) < 0; };
    std::set<std::string, decltype(before)> keys(before);
    for (auto& [key, value] : file.Lines(ZoningSection)) {
        if (vip::SameText(std::string_view(key).substr(0, DescriptionKey.size()), DescriptionKey)) {
            keys.insert(key);
        }
    }
    return std::min(keys.size(), MostZones);
}

TlotZoning ReadZoning(const TlotIniFile& file, const TNumberLocale& locale) {
    TlotZoning zones;
    for (std::size_t i = 1, count = CountZones(file); i <= count; ++i) {
        zones.push_back({file.Text(ZoningSection, Numbered(DescriptionKey, i), ""),
                         vip::FileNumber(file.Text(ZoningSection, Numbered(PercentageKey, i), ""), locale)});
    }
    return zones.empty() ? DefaultZoning() : zones;
}

void WriteZoning(TlotIniFile& file, const TlotZoning& zones, const TNumberLocale& locale) {
    TlotIniFile::TKeyValues lines;
    for (std::size_t i = 0; i < zones.size(); ++i) {
        lines.emplace_back(Numbered(DescriptionKey, i + 1), zones[i].Name);
        lines.emplace_back(Numbered(PercentageKey, i + 1), vip::NumberToText(zones[i].Percent, locale));
    }
    file.ReplaceSection(ZoningSection, lines);
}

} // namespace

void TlotOptions::Load(const std::string& optionsFile, const std::string& companyFile, const TNumberLocale& locale) {
    const TlotIniFile file(optionsFile);
    *this = TlotOptions();
    VisitKeys(*this, TlotKeyReader(file, locale));
    Zoning = ReadZoning(file, locale);
    Company = ReadTextLines(companyFile);
}

void TlotOptions::Save(const std::string& optionsFile, const TNumberLocale& locale) const {
    TlotIniFile file(optionsFile);
    VisitKeys(*this, TlotKeyWriter(file, locale));
    WriteZoning(file, Zoning, locale);
    file.Save();
}
