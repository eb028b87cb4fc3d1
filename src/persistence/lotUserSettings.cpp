// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotUserSettings.h"

#include "common/vipText.h"
#include "persistence/lotSettingKeys.h"

#include <filesystem>
#include <utility>

namespace {

constexpr std::string_view RecentSection = "Recent File List";

template <class Settings, class Visitor> void VisitKeys(Settings& settings, const Visitor& visit) {
    visit("CashflowView", "FontSize", settings.CashflowView.Size);
    visit("CashflowView", "FontName", settings.CashflowView.Name);
    visit("TimescaleView", "FontSize", settings.TimescaleView.Size);
    visit("TimescaleView", "FontName", settings.TimescaleView.Name);
}

/// User settings are texts and whole numbers, which have no separators.
constexpr TNumberLocale NoLocale{};

/// A view could not be drawn in a size of nothing, nor in one that fills the screen.
void Mend(TlotViewFont& font) {
    if (font.Size < 1 || font.Size > 100) {
        font.Size = TlotViewFont().Size;
    }
    if (font.Name.empty()) {
        font.Name = TlotViewFont().Name;
    }
}

} // namespace

void TlotUserSettings::Load(const std::string& fileName) {
    const TlotIniFile file(fileName);
    *this = TlotUserSettings();
    VisitKeys(*this, TlotKeyReader(file, NoLocale));
    Mend(CashflowView);
    Mend(TimescaleView);
}

void TlotUserSettings::Save(const std::string& fileName) const {
    TlotIniFile file(fileName);
    VisitKeys(*this, TlotKeyWriter(file, NoLocale));
    file.Save();
}

void TlotRecentFiles::Add(std::string fileName) {
    if (vip::SameText(std::filesystem::path(fileName).extension().string(), ".lot")) {
        std::erase(Names, fileName);
        Names.insert(Names.begin(), std::move(fileName));
    }
}

void TlotRecentFiles::Load(const std::string& fileName) {
    Names.clear();
    for (auto& [key, name] : TlotIniFile(fileName).Lines(RecentSection)) {
        if (!name.empty()) {
            Names.push_back(std::move(name));
        }
    }
}

void TlotRecentFiles::Save(const std::string& fileName) const {
    TlotIniFile file(fileName);
    TlotIniFile::TKeyValues lines;
    for (const std::string& name : Names) {
        lines.emplace_back("File" + std::to_string(lines.size() + 1), name);
    }
    file.ReplaceSection(RecentSection, lines);
    file.Save();
}
