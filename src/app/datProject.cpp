// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/datProject.h"

#include "app/lotBuiltInProjects.h"
#include "common/vipText.h"
#include "persistence/lotAtomicFile.h"
#include "persistence/lotReader.h"
#include "persistence/lotResiReader.h"
#include "persistence/lotSAStorage.h"
#include "persistence/lotWriter.h"

TProjectData::TProjectData(TlotSystem& system, const TlotOptions& options, const TlotServices& services,
                           const TNumberLocale& locale, bool editionFlag)
    : FSystem(system), FOptions(options), FServices(services), FLocale(locale), FEditionFlag(editionFlag) {
    FSystem.Project.BaseValues.Evaluator.DecimalSeparator = locale.Decimal;
    FSystem.SAModelNew.Locale = locale;
    FSystem.SAModelOld.Locale = locale;
}

bool TProjectData::Recalculate() {
    TlotProject& project = Project();
    project.Calculate();
    if (const std::string_view keyword = ResidualKeyword(project.ResidualTarget); !keyword.empty()) {
        double& siteValue = project.BaseValues.SiteValue.Amount;
        const double before = siteValue;
        try {
            siteValue = project.SolveSiteValue(keyword, project.ResidualTargetValue);
        } catch (...) {
            siteValue = before;
            throw;
        }
    }
    return true;
}

bool TProjectData::LoadProject(const std::string& fileName) {
    const TlotBusy busy(FServices.Busy);
    TlotReader reader(FEditionFlag, FLocale, FServices.Clock.Today());
    if (!reader.LoadFromFile(fileName)) {
        FServices.Messages.Show(TlotMessageKind::Error, "Unable to read file.");
        return false;
    }
    if (FEditionFlag) {
        return LoadHandheld(reader);
    }
    const std::string root = reader.RootName();
    if (!vip::SameText(root, "Sprigwell") && !vip::SameText(root, "Lotmaster")) {
        FServices.Messages.Show(TlotMessageKind::Warning, "That is not a Lotmaster file.");
        return false;
    }
    // Read before the project on purpose: they are taken over even where the version of the project is refused.
    TSAReader::Read(reader.Document().document_element(), SAModelNew(), FLocale);
    return ReadInto(reader, Project());
}

bool TProjectData::ImportProject(const std::string& fileName) {
    const TlotBusy busy(FServices.Busy);
    TlotResiReader reader(FLocale);
    reader.LoadFromFile(fileName);
    if (!reader.Read(Project(), FServices.Clock.Today())) {
        return false;
    }
    SAModelOld().Clear();
    return true;
}

bool TProjectData::LoadHandheld(TlotReader& reader) {
    const auto refuse = [&](std::string_view text) {
        FServices.Messages.Show(TlotMessageKind::Warning, text);
        return false;
    };
    const std::string root = reader.RootName();
    if (vip::SameText(root, "Lotmaster")) {
        return refuse("Sprigwell cannot read files created by Lotmaster.");
    }
    if (!vip::SameText(root, "Sprigwell")) {
        return refuse("That is not a Sprigwell file.");
    }
    TlotProject scratch(FServices.Clock.Today());
    if (!ReadInto(reader, scratch)) {
        return refuse("Unable to load project.");
    }
    if (!scratch.FitsHandheld()) {
        return refuse("That is not a valid Sprigwell file.");
    }
    return ReadInto(reader, Project());
}

bool TProjectData::ReadInto(TlotReader& reader, TlotProject& project) {
    if (reader.Read(project)) {
        SAModelOld().Clear();
        return true;
    }
    if (!reader.Message().empty()) {
        FServices.Messages.Show(TlotMessageKind::Information, reader.Message());
    }
    return false;
}

bool TProjectData::SaveProject(const std::string& fileName) {
    if (IsReadOnlyFile(fileName)) {
        FServices.Messages.Show(TlotMessageKind::Information, "File is read-only.");
        return false;
    }
    TlotWriter writer(FEditionFlag, FLocale);
    writer.Write(Project());
    TSAWriter::Write(writer.Document().document_element(), SAModelNew(), FLocale);
    if (!writer.SaveToFile(fileName)) {
        FServices.Messages.Show(TlotMessageKind::Information, "Unable to save file.");
        return false;
    }
    return true;
}

void TProjectData::ClearProject() {
    Project().Clear(FServices.Clock.Today());
    SAModelOld().Clear();
}

void TProjectData::BuildDefaultProject() {
    FillDefaultProject(Project(), FOptions);
}

void TProjectData::BuildTestProject() {
    ClearProject();
    FillTestProject(Project());
}

bool TProjectData::CheckUnits(std::string& message) const {
    if (Project().BaseValues.Build.Amount == 0) {
        message = "No unit build costs have been specified.";
        return false;
    }
    if (Project().NDV == 0) {
        message = "No unit sales have been specified.";
        return false;
    }
    return true;
}

bool TProjectData::CheckUnitsShow() const {
    std::string message;
    const bool ready = CheckUnits(message);
    if (!ready) {
        FServices.Messages.Show(TlotMessageKind::Information, message);
    }
    return ready;
}

void TProjectData::BuildReportTables(TlotReportKind kind) {
    ReportTables.BuildReportTables(kind, Project(), FLocale, {FileName(), FOptions.Footer, FOptions.Company});
}
