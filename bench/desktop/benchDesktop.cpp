// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a user waits for: the window, a large project in it, and the cashflow after a change.
#include "app/lotReports.h"
#include "app/lotSystem.h"
#include "reportengine/frxReport.h"
#include "shell/base/lotLook.h"
#include "shell/dialogs/frmReport4Preview.h"
#include "shell/frmMain.h"
#include "shell/lotApplication.h"
#include "shell/lotQtServices.h"
#include "shell/views/frmCashflowView.h"
#include "widgets/lotSpreadsheetView.h"

#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace {

/// Nobody sits before a benchmark.
class TNobody final : public TlotQuestionService,
                      public TlotFileService,
                      public TlotTemplateChooser,
                      public TlotMailService {
public:
    TlotAnswer AskYesNoCancel(std::string_view /*text*/) override { return TlotAnswer::No; }
    bool DecideYesNo(std::string_view /*text*/, TlotAnswer /*proposed*/) override { return false; }
    std::optional<std::string> AskOpen(const TlotFileQuestion& /*question*/) override { return std::nullopt; }
    std::optional<std::string> AskSave(const TlotFileQuestion& /*question*/) override { return std::nullopt; }
    std::optional<std::size_t> Choose(std::span<const std::string> /*names*/) override { return std::nullopt; }
    void Send(const TlotMailMessage& /*message*/) override {}
};

/// The program as its main makes it, in a folder of its own.
class TProgram {
public:
    TProgram() { FForm.FormCreate(); }

    TMainForm& Form() { return FForm; }
    TProjectData& Data() { return FData; }
    TReportData& Reports() { return FReports; }
    TfrxReport& Report() { return FReport; }
    void OpenLarge() { FForm.Files().OpenProject(std::string(LOTMASTER_EXAMPLES) + "/large.lot"); }

private:
    [[nodiscard]] TlotStart Start() const {
        const std::string home = FFolder.path().toStdString();
        const TlotEnvironment environment{home, "", "", home, "", home};
        return {home, false, FindWellKnownFolders(environment, "Tarvane/Lotmaster"), {}, {}};
    }

    QTemporaryDir FFolder;
    TQtMessages FMessages;
    TQtBusy FBusy;
    TlotFixedClock FClock{46'000};
    TNobody FNobody;
    TlotSystem FSystem{46'000};
    TAppData FApp{Start(), FMessages};
    TProjectData FData{FSystem, FApp.Options, {FMessages, FClock, FBusy}, {}};
    TfrxReport FReport{{}};
    TReportData FReports{FData, FApp.Options, {"", LOTMASTER_REPORTS "/Reports4/"}, FReport, FReport, nullptr};
    TMainForm FForm{{FApp, FData, {{FMessages, FClock, FBusy}, FNobody, FNobody, FNobody, FNobody}, FReports, {}}};
};

/// From the objects of the start to a window that is drawn.
void StartToWindow(benchmark::State& state) {
    for (auto step : state) {
        TProgram program;
        program.Form().show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(program.Form().grab());
    }
}
BENCHMARK(StartToWindow)->Unit(benchmark::kMillisecond);

/// Reading, computing, report tables, summary and status, drawn.
void OpenLarge(benchmark::State& state) {
    TProgram program;
    program.Form().show();
    for (auto step : state) {
        program.OpenLarge();
        benchmark::DoNotOptimize(program.Form().grab());
    }
}
BENCHMARK(OpenLarge)->Unit(benchmark::kMillisecond);

/// The sheet rebuilt from the model, every cell; argument 1: and drawn.
void RefreshCashflow(benchmark::State& state) {
    TProgram program;
    program.OpenLarge();
    program.Form().show();
    program.Form().Action(TlotAction::ViewCashflow).trigger();
    auto* const view = program.Form().findChild<TCashflowViewForm*>();
    for (auto step : state) {
        view->Refresh();
        if (state.range(0) != 0) {
            benchmark::DoNotOptimize(view->Sheet().grab());
        }
    }
    state.counters["rows"] = view->Page().RowCount();
    state.counters["columns"] = view->Page().ColumnCount();
}
BENCHMARK(RefreshCashflow)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// One press of the arrow to the right: what scrolling costs.
void ScrollCashflow(benchmark::State& state) {
    TProgram program;
    program.OpenLarge();
    program.Form().show();
    program.Form().Action(TlotAction::ViewCashflow).trigger();
    TSpreadsheetView& sheet = program.Form().findChild<TCashflowViewForm*>()->Sheet();
    for (auto step : state) {
        sheet.horizontalScrollBar()->setValue((sheet.horizontalScrollBar()->value() + 1) %
                                              sheet.horizontalScrollBar()->maximum());
        benchmark::DoNotOptimize(sheet.viewport()->grab());
    }
}
BENCHMARK(ScrollCashflow)->Unit(benchmark::kMillisecond);

/// The appraisal from a computed project to its pages: tables, template, layout.
void PrepareAppraisal(benchmark::State& state) {
    TProgram program;
    program.OpenLarge();
    const TlotReportLibrary library = MakeReports4(program.Reports());
    for (auto step : state) {
        library.Find("Appraisal").Make();
    }
    state.counters["pages"] = program.Report().PageCount();
}
BENCHMARK(PrepareAppraisal)->Unit(benchmark::kMillisecond);

/// The same, and written to disk.
void AppraisalToPdf(benchmark::State& state) {
    TProgram program;
    program.OpenLarge();
    const TlotReportLibrary library = MakeReports4(program.Reports());
    const QTemporaryDir folder;
    for (auto step : state) {
        library.Find("Appraisal").SaveToFile(folder.filePath("a.pdf").toStdString());
    }
}
BENCHMARK(AppraisalToPdf)->Unit(benchmark::kMillisecond);

/// From F6 to the first page in the preview, drawn.
void AppraisalToPreview(benchmark::State& state) {
    TProgram program;
    program.OpenLarge();
    const TlotReportLibrary library = MakeReports4(program.Reports());
    TQtMessages messages;
    TQtBusy busy;
    TlotFixedClock clock{46'000};
    TNobody nobody;
    for (auto step : state) {
        library.Find("Appraisal").Make();
        TReport4PreviewForm preview(
            {program.Report().Prepared(), {program.Report(), false, "", "", ""}, {messages, clock, busy}, nobody, {}});
        preview.show();
        benchmark::DoNotOptimize(preview.grab());
    }
}
BENCHMARK(AppraisalToPreview)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    TLotApplication application(argc, argv);
    look::Apply(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
