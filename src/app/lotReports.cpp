// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotReports.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// What the reports of the older engine share.
class TlotFR2Report : public TlotReport {
public:
    TlotFR2Report(std::string name, TReportData& data, std::string templateFile,
                  TlotReportKind kind = TlotReportKind::Appraisal)
        : TlotReport(std::move(name)), FData(data), FTemplate(std::move(templateFile)), FKind(kind) {}

    void Make() override {
        FData.Data().BuildReportTables(FKind);
        FData.LoadTemplate2(FTemplate);
    }
    void Show() override {
        Make();
        FData.Preview2();
    }
    void SaveToFile(const std::string& fileName) override {
        Make();
        FData.ExportPDF2(Name, fileName);
    }

private:
    TReportData& FData;
    const std::string FTemplate;
    const TlotReportKind FKind;
};

class TlotFR2ReportAppraisal final : public TlotFR2Report {
public:
    explicit TlotFR2ReportAppraisal(TReportData& data) : TlotFR2Report("Appraisal", data, "Appraisal.frf") {}
};

class TlotFR2ReportResidual final : public TlotFR2Report {
public:
    explicit TlotFR2ReportResidual(TReportData& data)
        : TlotFR2Report("Residual", data, "Residual.frf", TlotReportKind::Residual) {}
};

class TlotFR2ReportDetails final : public TlotFR2Report {
public:
    explicit TlotFR2ReportDetails(TReportData& data) : TlotFR2Report("Occupational Details", data, "OccDetails.frf") {}
};

class TlotFR2ReportAddendum final : public TlotFR2Report {
public:
    explicit TlotFR2ReportAddendum(TReportData& data) : TlotFR2Report("Addendum", data, "Addendum.frf") {}
};

class TlotFR2ReportFrontPage final : public TlotFR2Report {
public:
    explicit TlotFR2ReportFrontPage(TReportData& data) : TlotFR2Report("Front Page", data, "FrontPage.frf") {}
};

/// What the reports of the newer engine share: one template.
class TlotFR4Report : public TlotReport {
public:
    TlotFR4Report(std::string name, TReportData& data, std::string templateFile)
        : TlotReport(std::move(name)), FData(data), FTemplate(std::move(templateFile)) {}

    void Make() override {
        FData.Data().BuildReportTables(TlotReportKind::Appraisal);
        FData.LoadTemplate4(FTemplate);
    }
    void Show() override {
        Make();
        FData.Preview4();
    }
    void SaveToFile(const std::string& fileName) override {
        Make();
        FData.ExportPDF4(Name, fileName);
    }

protected:
    [[nodiscard]] TReportData& Data() const { return FData; }

private:
    TReportData& FData;
    const std::string FTemplate;
};

class TlotFR4ReportAppraisal final : public TlotFR4Report {
public:
    explicit TlotFR4ReportAppraisal(TReportData& data) : TlotFR4Report("Appraisal", data, {}) {}

    void Make() override {
        TProjectData& project = Data().Data();
        project.BuildReportTables(TlotReportKind::Appraisal);
        Data().Title = project.Project().AppraisalTitle;
        Data().LoadTemplate4(project.Project().AppraisalReportFile + ".fr3");
    }
};

class TlotFR4ReportResidual final : public TlotFR4Report {
public:
    explicit TlotFR4ReportResidual(TReportData& data) : TlotFR4Report("Residual", data, {}) {}

    void Make() override {
        static const std::array<std::string, 3> templates{"AppraisalMain.fr3", "ResidualTotals.fr3",
                                                          "AppraisalSummary.fr3"};
        TProjectData& project = Data().Data();
        project.BuildReportTables(TlotReportKind::Residual);
        Data().Title = project.Project().ResidualTitle;
        Data().LoadComposite4(templates);
    }
};

class TlotFR4ReportDetails final : public TlotFR4Report {
public:
    explicit TlotFR4ReportDetails(TReportData& data) : TlotFR4Report("Occupational Details", data, "OccDetails.fr3") {}
};

class TlotFR4ReportAddendum final : public TlotFR4Report {
public:
    explicit TlotFR4ReportAddendum(TReportData& data) : TlotFR4Report("Addendum", data, "Addendum.fr3") {}
};

class TlotFR4ReportFrontPage final : public TlotFR4Report {
public:
    explicit TlotFR4ReportFrontPage(TReportData& data) : TlotFR4Report("Front Page", data, "FrontPage.fr3") {}
};

class TlotFR4ReportPicture final : public TlotFR4Report {
public:
    explicit TlotFR4ReportPicture(TReportData& data) : TlotFR4Report("Picture", data, "Picture.fr3") {}
};

/// Shows one report of the library that it is bound to.
class TlotCommandReportShow : public TgxCommand {
public:
    TlotCommandReportShow(const TlotReportLibrary& library, const char* name, TlotBusyService& busy)
        : FLibrary(library), FName(name), FBusy(busy) {}

    bool Execute(std::string_view /*parameter*/) override {
        const TlotBusy busy(FBusy);
        FLibrary.Find(FName).Show();
        return true;
    }

private:
    const TlotReportLibrary& FLibrary;
    const char* FName; // Static.
    TlotBusyService& FBusy;
};

class TlotCommandAppraisalShow final : public TlotCommandReportShow {
public:
    TlotCommandAppraisalShow(const TlotReportLibrary& library, TlotBusyService& busy)
        : TlotCommandReportShow(library, "Appraisal", busy) {}
};

class TlotCommandResidualShow final : public TlotCommandReportShow {
public:
    TlotCommandResidualShow(const TlotReportLibrary& library, TlotBusyService& busy)
        : TlotCommandReportShow(library, "Residual", busy) {}
};

class TlotCommandDetailsShow final : public TlotCommandReportShow {
public:
    TlotCommandDetailsShow(const TlotReportLibrary& library, TlotBusyService& busy)
        : TlotCommandReportShow(library, "Occupational Details", busy) {}
};

class TlotCommandAddendumShow final : public TlotCommandReportShow {
public:
    TlotCommandAddendumShow(const TlotReportLibrary& library, TlotBusyService& busy)
        : TlotCommandReportShow(library, "Addendum", busy) {}
};

class TlotCommandFrontPageShow final : public TlotCommandReportShow {
public:
    TlotCommandFrontPageShow(const TlotReportLibrary& library, TlotBusyService& busy)
        : TlotCommandReportShow(library, "Front Page", busy) {}
};

class TlotCommandPictureShow final : public TlotCommandReportShow {
public:
    TlotCommandPictureShow(const TlotReportLibrary& library, TlotBusyService& busy)
        : TlotCommandReportShow(library, "Picture", busy) {}
};

} // namespace

TlotReport& TlotReportLibrary::Find(std::string_view name) const {
    const auto found =
        std::ranges::find_if(FReports, [&](const auto& report) { return vip::SameText(report->Name, name); });
    if (found == FReports.end()) {
        throw ELotError("Report " + std::string(name) + " not found!");
    }
    return **found;
}

TlotReportLibrary MakeReports2(TReportData& data) {
    TlotReportLibrary library;
    library.Add(std::make_unique<TlotFR2ReportAppraisal>(data));
    library.Add(std::make_unique<TlotFR2ReportResidual>(data));
    library.Add(std::make_unique<TlotFR2ReportDetails>(data));
    library.Add(std::make_unique<TlotFR2ReportAddendum>(data));
    library.Add(std::make_unique<TlotFR2ReportFrontPage>(data));
    return library;
}

TlotReportLibrary MakeReports4(TReportData& data) {
    TlotReportLibrary library;
    library.Add(std::make_unique<TlotFR4ReportAppraisal>(data));
    library.Add(std::make_unique<TlotFR4ReportResidual>(data));
    library.Add(std::make_unique<TlotFR4ReportDetails>(data));
    library.Add(std::make_unique<TlotFR4ReportAddendum>(data));
    library.Add(std::make_unique<TlotFR4ReportFrontPage>(data));
    library.Add(std::make_unique<TlotFR4ReportPicture>(data));
    return library;
}

void RegisterReportCommands(TgxCommandLibrary& commands, const TlotReportLibrary& library, TlotBusyService& busy) {
    commands.Add(std::make_unique<TlotCommandAppraisalShow>(library, busy), "Appraisal");
    commands.Add(std::make_unique<TlotCommandResidualShow>(library, busy), "Residual");
    commands.Add(std::make_unique<TlotCommandDetailsShow>(library, busy), "Occupational Details");
    commands.Add(std::make_unique<TlotCommandAddendumShow>(library, busy), "Addendum");
    commands.Add(std::make_unique<TlotCommandFrontPageShow>(library, busy), "Front Page");
    commands.Add(std::make_unique<TlotCommandPictureShow>(library, busy), "Picture");
}
