// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is typed and not yet in the model, before each command: views that only write down what is asked of them stand
// in for the real ones.
#include "app/lotFailures.h"
#include "shell/frmMain.h"
#include "support/lotDesktopScript.h"
#include "widgets/lotClickLabel.h"
#include "widgets/lotNumberEdit.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

/// Writes down its name and what is asked of it.
class TFakeView final : public TViewForm {
public:
    TFakeView(std::string name, std::string& log) : TViewForm("Fake"), FName(std::move(name)), FLog(log) {}

    void Refresh() override { Note("Refresh"); }
    void Leave() override {
        Note("Leave");
        if (OnLeave) {
            OnLeave();
        }
    }
    void EndEdit() override {
        Note("EndEdit");
        TViewForm::EndEdit();
    }
    void DropEdit() override { Note("DropEdit"); }

    std::function<void()> OnLeave;

    using TViewForm::AddCommand;
    using TViewForm::AddTool;
    [[nodiscard]] QVBoxLayout& Contents() { return Body(); }

private:
    void Note(const char* what) const {
        if (FName == "Now" || FName == "Next") {
            FLog += FName + "." + what + " ";
        }
    }

    std::string FName;
    std::string& FLog;
};

class Commands : public testing::Test {
protected:
    Commands() : FFailures(FScript.User), FDialogs(DialogRegistry().begin(), DialogRegistry().end()) {
        // The start page is the view in front and the current one: "Now". The cashflow, made before it, is another:
        // "Next".
        for (TlotViewEntry entry : ViewRegistry()) {
            const char* const name = entry.Action == TlotAction::ViewHome       ? "Now"
                                     : entry.Action == TlotAction::ViewCashflow ? "Next"
                                                                                : "Other";
            entry.Make = [this, name](const TlotDesktop&) { return std::make_unique<TFakeView>(name, FLog); };
            entry.Mark = entry.Action == TlotAction::ViewHome ? TlotViewMark::MarksProject : entry.Mark;
            FEntries.push_back(entry);
        }
        for (TlotDialogEntry& entry : FDialogs) {
            if (entry.Action != TlotAction::ToolsGoalSeek && entry.Action != TlotAction::ToolsUserSettings &&
                entry.Action != TlotAction::ViewSensitivity && entry.Action != TlotAction::ViewSensitivity2) {
                entry.Run = [this](const TlotCommandContext&) {
                    FLog += "dialog ";
                    return FAccepts;
                };
            }
        }
        FForm = std::make_unique<TMainForm>(FScript.Desktop, TlotRegistries{FEntries, FDialogs});
        FForm->FormCreate();
        FForm->show();
    }

    /// A project that can be computed, with the views as at the start.
    void Fill() {
        FScript.Data.BuildTestProject();
        FScript.Data.Recalculate();
        FLog.clear();
    }
    void Do(TlotAction action) { FForm->Action(action).trigger(); }
    TFakeView& Now() { return dynamic_cast<TFakeView&>(FForm->Views().View(TlotAction::ViewHome)); }
    [[nodiscard]] std::string TakeLog() { return std::exchange(FLog, {}); }
    /// Closes whatever opens next.
    static void Dismiss() {
        QTimer::singleShot(0, [] {
            for (QWidget* const box : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
                if (box != nullptr) {
                    box->close();
                }
            }
        });
    }

    TDesktopScript FScript;
    TFailureMessages FFailures;
    std::string FLog;
    bool FAccepts = false;
    std::vector<TlotViewEntry> FEntries;
    std::vector<TlotDialogEntry> FDialogs;
    std::unique_ptr<TMainForm> FForm;
};

TEST_F(Commands, EachBringsInWhatItsRuleSays) {
    const std::string ended = "Now.EndEdit ";
    const std::string left = "Now.EndEdit Now.Leave ";
    fs::copy_file(ExampleFile("housing.lot"), FScript.Folder.File("a.lot"));
    const std::string gate = "Now.EndEdit Now.EndEdit Now.Leave "; // The gate also serves what is no command.
    struct TCase {
        TlotAction Action;
        std::string Log;
    };
    using enum TlotAction;
    for (const TCase& row : std::vector<TCase>{{ViewUnits, left},
                                               {ViewUnitGrid, left},
                                               {ViewCosts, ended},
                                               {ViewFunding, ended},
                                               {ViewFundingGrid, ended},
                                               {ViewFundingAdvGrid, ended},
                                               {ViewTimescale, left},
                                               {ViewAccountCodes, left},
                                               {ViewCashflow, left + "Next.Refresh "},
                                               {ViewSummary, left},
                                               {ViewHome, left},
                                               {ReportAppraisal, left + "Now.Refresh "},
                                               {ReportResidual, left + "Now.Refresh "},
                                               {ReportOccDetails, left + "Now.Refresh "},
                                               {ReportAddendum, left + "Now.Refresh "},
                                               {ReportFrontPage, left + "Now.Refresh "},
                                               {ReportPicture, left + "Now.Refresh "},
                                               {ViewSensitivity, left},
                                               {ViewSensitivity2, left},
                                               {FileNew, gate + "Next.DropEdit Now.DropEdit Next.Refresh Now.Refresh "},
                                               {FileOpen, gate + "Next.DropEdit Now.DropEdit Now.Refresh "},
                                               {FileSave, left},
                                               {FileSaveAs, left},
                                               {FileEmail, left + "dialog "},
                                               {FileTestData, gate + "Next.DropEdit Now.DropEdit Now.Refresh "},
                                               {FileExit, gate},
                                               {ProjectGeneral, left + "dialog "},
                                               {ProjectResidual, left + "dialog "},
                                               {ProjectCashflow, left + "dialog "},
                                               {ProjectFunding, left + "dialog "},
                                               {ProjectInflation, left + "dialog "},
                                               {ProjectAddress, left + "dialog "},
                                               {ProjectNotes, left + "dialog "},
                                               {ProjectReports, left + "dialog "},
                                               {ProjectAdvanced, left + "dialog "},
                                               {ToolsGoalSeek, left},
                                               {ToolsUserSettings, ended},
                                               {ToolsOptions, left + "dialog "},
                                               {HelpContents, ended + "dialog "},
                                               {HelpAbout, ended + "dialog "},
                                               {DebugUseFR2, ended},
                                               {DebugUseFR4, ended}}) {
        SCOPED_TRACE(FForm->Action(row.Action).objectName().toStdString());
        Fill();
        TViewForm& now = Now();
        FForm->Views().BringToFront(now);
        FForm->Views().SetCurrent(now);
        FScript.User.FileNames.assign(
            row.Action == FileOpen || row.Action == FileSave || row.Action == FileSaveAs ? 1 : 0,
            row.Action == FileOpen ? std::optional(FScript.Folder.File("a.lot")) : std::nullopt);
        if (row.Action == ToolsGoalSeek || row.Action == ToolsUserSettings) {
            Dismiss();
        }
        Do(row.Action);
        EXPECT_EQ(TakeLog(), row.Log);
        EXPECT_EQ(FScript.User.TakeTold(), "");
        FForm->show();
    }
}

TEST_F(Commands, FiguresClickedFindTheModelUpToDate) {
    for (const char* const label : {"lblName", "lblSiteValue", "lblNetSiteArea"}) {
        Fill();
        Dismiss();
        QTest::mouseClick(FForm->findChild<QLabel*>(label), Qt::LeftButton);
        EXPECT_EQ(TakeLog(), "Now.EndEdit Now.Leave ") << label;
    }
}

TEST_F(Commands, WhatIsTypedIsAskedForAndSavedBeforeItsProjectGoes) {
    fs::copy_file(ExampleFile("housing.lot"), FScript.Folder.File("a.lot"));
    const std::string question = "?: Do you want to save the changes you made to \"a.lot\"?|";
    const std::vector<std::function<void()>> ways{
        [this] { Do(TlotAction::FileNew); }, [this] { Do(TlotAction::FileTestData); },
        [this] { FForm->Files().OpenProject(ExampleFile("mixed-use.lot")); }, [this] { FForm->close(); }};
    for (const auto& goAway : ways) {
        Now().OnLeave = nullptr;
        FForm->Files().OpenProject(FScript.Folder.File("a.lot"));
        FForm->show();
        FForm->Views().SetCurrent(Now());
        EXPECT_FALSE(FScript.Data.Document.Changed());
        const std::string name = FScript.Project().Name + "+";
        Now().OnLeave = [&] {
            FScript.Project().Name = name;
            Now().OnChange();
        };
        FScript.User.Answers = {TlotAnswer::Yes};
        goAway();
        EXPECT_EQ(FScript.User.TakeTold(), question);
        EXPECT_FALSE(FScript.Data.Document.Changed());
        EXPECT_NE(ReadBytes(FScript.Folder.File("a.lot")).find("Name=\"" + name + "\""), std::string::npos);
    }
}

TEST_F(Commands, ALeaveThatFailsIsToldAndTheUserDecides) {
    Fill();
    Now().OnLeave = [] { throw ELotError("no such base"); };
    FScript.User.Answers = {TlotAnswer::Cancel, TlotAnswer::No};
    EXPECT_FALSE(FForm->close());
    EXPECT_TRUE(FForm->close());
    const std::string each = "E: no such base|?: Do you want to save the changes you made?|";
    EXPECT_EQ(FScript.User.TakeTold(), each + each);

    FForm->show();
    Do(TlotAction::ViewUnits);
    EXPECT_EQ(FScript.User.TakeTold(), "E: no such base|");
    EXPECT_EQ(&FForm->Views().FrontView(), &Now()) << "It stays in front, to be mended.";
}

TEST_F(Commands, AFieldInEditActsAndKeepsTheFocus) {
    Fill();
    auto* const field = new TNumberEdit(",0.00", PointLocale, &Now());
    Now().Contents().addWidget(field);
    field->show();
    FForm->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == FForm.get(); }));
    double taken = 0;
    QObject::connect(field, &TNumberEdit::Left, field, [&](bool changed) { taken = changed ? field->Value() : taken; });
    field->setFocus();
    QTest::keyClicks(field, "12.345");
    EXPECT_EQ(taken, 0);
    Do(TlotAction::HelpAbout);
    EXPECT_EQ(taken, 12.345);
    EXPECT_TRUE(field->hasFocus());

    // Dropped, the project with it: what was typed is heard of no more.
    QTest::keyClicks(field, "99");
    FForm->Views().View(TlotAction::ViewHome).TViewForm::DropEdit();
    field->clearFocus();
    EXPECT_EQ(taken, 12.345);
    EXPECT_EQ(field->Value(), 12.345);
}

TEST_F(Commands, ACellInEditActsAndItsGridKeepsTheFocus) {
    auto* const grid = new QTableWidget(1, 1, &Now());
    auto* const cell = new QTableWidgetItem("before");
    grid->setItem(0, 0, cell);
    Now().Contents().addWidget(grid);
    grid->show();
    FForm->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == FForm.get(); }));
    const auto type = [&](const char* text) {
        grid->setFocus();
        grid->editItem(cell);
        QTest::keyClicks(grid->findChild<QLineEdit*>(), text);
    };
    type("after");
    EXPECT_EQ(cell->text(), "before");
    Do(TlotAction::HelpAbout);
    EXPECT_EQ(cell->text(), "after");
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(Commands, AViewsOwnCommandsEndTheEditToo) {
    QAction& command = Now().AddCommand({"actAdd", "Add", "Add one"}, [this] { FLog += "add "; });
    QPushButton& tool = Now().AddTool({"btnFail", "Fail", "Fail"}, [] { throw ELotError("no"); });
    FLog.clear();
    command.trigger();
    tool.click();
    EXPECT_EQ(TakeLog(), "Now.EndEdit add Now.EndEdit ");
    EXPECT_EQ(FScript.User.TakeTold(), "E: no|");
}

TEST_F(Commands, ViewsMarkTheProjectAsTheirRowSays) {
    for (const TlotViewEntry& entry : FEntries) {
        FScript.Data.Document.Saved();
        TViewForm& view = FForm->Views().View(entry.Action);
        EXPECT_EQ(view.OnChange != nullptr, entry.Mark == TlotViewMark::MarksProject);
        if (view.OnChange) {
            view.OnChange();
            EXPECT_TRUE(FScript.Data.Document.Changed());
        }
    }
}

TEST_F(Commands, OkMarksTheProjectAlsoWhereItCannotBeComputed) {
    Fill();
    FAccepts = true;
    Do(TlotAction::ToolsOptions);
    EXPECT_FALSE(FScript.Data.Document.Changed());
    EXPECT_EQ(TakeLog(), "Now.EndEdit Now.Leave dialog Now.Refresh ");
    TlotLoan& loan = FScript.Project().Funding.Loans.Add();
    loan.LoanType = static_cast<TlotLoanType>(9);
    Do(TlotAction::ProjectGeneral);
    EXPECT_EQ(FScript.User.TakeTold(), "E: Unknown LoanType|");
    EXPECT_TRUE(FScript.Data.Document.Changed());
}

} // namespace
