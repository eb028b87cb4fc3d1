// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/datReport.h"

#include "app/lotProduct.h"
#include "common/vipErrors.h"
#include "common/vipText.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace {

/// The picture rule: an empty name, a missing file, a template without such an object and a file that is no picture are
/// all passed over; the object stays as the template has it.
void SetPictureIfThere(TlotReportEngine& engine, const char* name, const std::string& fileName, bool resize) {
    const std::string file(vip::Trim(fileName));
    std::error_code error;
    if (file.empty() || !std::filesystem::is_regular_file(file, error) || !engine.FindObject(name)) {
        return;
    }
    try {
        engine.SetPicture(name, file, resize);
    } catch (const ELotError&) {
        // The report is worth more than its picture.
    }
}

/// "|group/section|" for each section that brings money in: the tables list their items among the costs.
std::string IncomeSections(const TlotProject& project) {
    std::string names;
    for (const auto& section : project.Sections) {
        if (section->Income) {
            names += "|" + section->Group + "/" + section->Name + "|";
        }
    }
    return names;
}

/// "|group|" for each group of nothing but such sections.
std::string IncomeGroups(const TlotProject& project) {
    std::string names;
    for (int i = 0; i < project.Groups.Count(); ++i) {
        const std::string& group = project.Groups[i].Name;
        bool income = false;
        bool costs = false;
        for (const auto& section : project.Sections) {
            if (section->Group == group) {
                (section->Income ? income : costs) = true;
            }
        }
        if (income && !costs) {
            names += "|" + group + "|";
        }
    }
    return names;
}

/// Of an option's colour, which has blue in its high byte.
std::uint32_t RedFirst(std::int32_t colour) {
    const auto bits = static_cast<std::uint32_t>(colour);
    return ((bits & 0xFFU) << 16U) | (bits & 0xFF00U) | ((bits >> 16U) & 0xFFU);
}

} // namespace

TlotDocumentTexts ReportDocumentTexts() {
    return {"Lotmaster", "Lotmaster Report", std::string("Lotmaster (") + ProductWebAddress + ")"};
}

TReportData::TReportData(TProjectData& data, const TlotOptions& options, TReportFolders folders,
                         TlotReportEngine& older, TlotReportEngine& newer, TlotReportPreviewer* previewer)
    : FData(data),
      FOptions(options),
      FFolders(std::move(folders)),
      FReport2(older),
      FReport4(newer),
      FPreviewer(previewer) {
    Connect(FReport2);
    Connect(FReport4);
}

void TReportData::Connect(TlotReportEngine& engine) {
    const auto tables = FData.ReportTables.Tables();
    engine.DataSets.assign(tables.begin(), tables.end());
    engine.OnGetValue = [this](std::string_view name) { return frxReportGetValue(name); };
    engine.OnBeforePrint = [this, &engine] { frxReportBeforePrint(engine); };
}

std::optional<TlotReportValue> TReportData::frxReportGetValue(std::string_view name) const {
    const TlotProject& project = FData.Project();
    const auto is = [&](const char* own) { return vip::SameText(name, own); };
    if (is("Title")) {
        return Title;
    }
    if (is("CostGroupPageBreak")) {
        return project.CostGroupPageBreak;
    }
    if (is("GDV")) {
        return project.GDV;
    }
    if (is("NDV")) {
        return project.NDV;
    }
    if (is("TDC")) {
        return project.TDC;
    }
    if (is("RatioBase")) {
        return project.RatioBaseValue();
    }
    if (is("HideRatio")) {
        return project.HideRatio;
    }
    if (is("IncomeSections")) {
        return IncomeSections(project);
    }
    if (is("IncomeGroups")) {
        return IncomeGroups(project);
    }
    if (is("SensitivityReportColour")) {
        return static_cast<double>(RedFirst(FOptions.SensitivityReportColour));
    }
    return std::nullopt;
}

void TReportData::frxReportBeforePrint(TlotReportEngine& engine) const {
    engine.SetGradientColours(RedFirst(FOptions.GradientStartColour), RedFirst(FOptions.GradientEndColour));
}

void TReportData::LoadTemplate4(const std::string& fileName) {
    LoadComposite4(std::span(&fileName, 1));
}

void TReportData::LoadComposite4(std::span<const std::string> fileNames) {
    if (!FTrialTemplate.empty()) {
        fileNames = std::span(&FTrialTemplate, 1);
    }
    FReport4.Clear();
    bool first = true;
    for (const std::string& fileName : fileNames) {
        FReport4.LoadFromFile((std::filesystem::path(FFolders.Newer) / fileName).string());
        if (first) {
            SetPictureIfThere(FReport4, "Logo", FOptions.Logo, false);
            SetPictureIfThere(FReport4, "Picture", FData.Project().PictureFileName, false);
        }
        FReport4.Prepare(!first);
        first = false;
    }
}

void TReportData::LoadTemplate4(const std::string& fileName, std::span<TlotTable* const> tables,
                                const std::function<std::optional<TlotReportValue>(std::string_view)>& getValue) {
    FReport4.DataSets.assign(tables.begin(), tables.end());
    FReport4.OnGetValue = [&](std::string_view name) {
        const std::optional<TlotReportValue> value = getValue(name);
        return value ? value : frxReportGetValue(name);
    };
    try {
        FReport4.Clear();
        FReport4.LoadFromFile((std::filesystem::path(FFolders.Newer) / fileName).string());
        SetPictureIfThere(FReport4, "Logo", FOptions.Logo, false);
        FReport4.Prepare(false);
    } catch (...) {
        Connect(FReport4);
        throw;
    }
    Connect(FReport4);
}

void TReportData::LoadTemplate2(const std::string& fileName) {
    FReport2.Clear();
    FReport2.LoadFromFile((std::filesystem::path(FFolders.Older) / fileName).string());
    SetPictureIfThere(FReport2, "Logo", FOptions.Logo, true);
    FReport2.Prepare(false);
}

TgxFR4Preview TReportData::MakePreview(TlotReportEngine& engine) const {
    TlotDocumentTexts texts = ReportDocumentTexts();
    return {engine, FOptions.Designer, std::move(texts.Title), std::move(texts.Author), std::move(texts.Creator)};
}

void TReportData::Preview2() {
    if (FPreviewer != nullptr) {
        FReport2.OnBeforePrint();
        FPreviewer->Preview2(MakePreview(FReport2));
    }
}

void TReportData::Preview4() {
    if (FPreviewer != nullptr) {
        FReport4.OnBeforePrint();
        FPreviewer->Preview4(MakePreview(FReport4));
    }
}

void TReportData::ExportPDF2(const std::string& title, const std::string& fileName) {
    TlotDocumentTexts texts = ReportDocumentTexts();
    texts.Title = title;
    FReport2.Export(TlotExportFormat::Pdf, fileName, texts);
}

void TReportData::ExportPDF4(const std::string& title, const std::string& fileName) {
    Export4(TlotExportFormat::Pdf, title, fileName);
}

void TReportData::Export4(TlotExportFormat format, const std::string& title, const std::string& fileName) {
    TlotDocumentTexts texts = ReportDocumentTexts();
    texts.Title = title;
    FReport4.Export(format, fileName, texts);
}
