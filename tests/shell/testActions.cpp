// SPDX-License-Identifier: GPL-3.0-or-later
//
// Every command of the main window leads where it says. What it does there is told by the tests of that place.
#include "shell/frmMain.h"
#include "support/lotDesktopScript.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <utility>

namespace {

class MainActions : public testing::Test {
protected:
    MainActions() : FForm(std::make_unique<TMainForm>(FScript.Desktop)) {
        FForm->FormCreate();
        FForm->show();
        FForm->Files().OpenProject(ExampleFile("mixed-use.lot"));
    }

    [[nodiscard]] QAction& Named(const char* name) const {
        auto* const action = FForm->findChild<QAction*>(name);
        EXPECT_NE(action, nullptr) << name;
        return *action;
    }
    /// The caption of the view in front.
    [[nodiscard]] std::string Front() const {
        const auto* const caption = FForm->Views().FrontView().findChild<QLabel*>("lblPanelCaption");
        return caption != nullptr ? caption->text().toStdString() : "";
    }
    /// The title of the dialog that the command opens, which is closed again.
    [[nodiscard]] std::string Dialog(const char* name) const {
        std::string title;
        QTimer::singleShot(0, [&] {
            QWidget* const box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr) << name;
            title = box->windowTitle().toStdString();
            box->close();
        });
        Named(name).trigger();
        return title;
    }

    TDesktopScript FScript;
    std::unique_ptr<TMainForm> FForm;
};

TEST_F(MainActions, ViewsAndScreensComeToTheFront) {
    const std::pair<const char*, const char*> cases[] = {
        {"ViewUnits", "Units"},
        {"ViewUnitGrid", "Units (Quick Edit)"},
        {"ViewCosts", "Costs"},
        {"ViewFunding", "Funding"},
        {"ViewFundingGrid", "Funding"},
        {"ViewTimescale", "Timescale"},
        {"ViewAccountCodes", "Account Codes"},
        {"ViewCashflow", "Cashflow"},
        {"ViewSummary", "Summary"},
        {"ViewSensitivity2", "Sensitivity"},
        {"ViewHome", "Home"},
        {"ProjectGeneral", "Project: General"},
        {"ProjectResidual", "Project: Residual"},
        {"ProjectCashflow", "Project: Cashflow"},
        {"ProjectFunding", "Project: Funding"},
        {"ProjectInflation", "Project: Inflation"},
        {"ProjectAddress", "Project: Address"},
        {"ProjectNotes", "Project: Notes"},
        {"ProjectReports", "Project: Reports"},
        {"ProjectAdvanced", "Advanced"},
        {"ToolsOptions", "Options"},
    };
    const QWidget* before = &FForm->Views().FrontView();
    for (const auto& [name, caption] : cases) {
        Named(name).trigger();
        EXPECT_EQ(Front(), caption) << name;
        EXPECT_NE(&FForm->Views().FrontView(), before) << name << ": a view of its own";
        before = &FForm->Views().FrontView();
    }
    EXPECT_FALSE(FScript.Data.Document.Changed());
}

TEST_F(MainActions, DialogsOpenAndLetGo) {
    EXPECT_EQ(Dialog("ToolsGoalSeek"), "Goal Seek");
    EXPECT_EQ(Dialog("ToolsUserSettings"), "User Settings");
    EXPECT_EQ(Dialog("FileEmail"), "Email");
    EXPECT_EQ(Dialog("HelpAbout"), "About Lotmaster");
    EXPECT_FALSE(FScript.Data.Document.Changed());
}

TEST_F(MainActions, WhatIsOutOfSightWorksAllTheSame) {
    for (const char* const name : {"FileTestData", "ViewFundingAdvGrid", "ViewSensitivity", "HelpInformation"}) {
        EXPECT_FALSE(Named(name).isVisible()) << name;
    }
    Named("ViewFundingAdvGrid").trigger();
    EXPECT_EQ(Front(), "Funding (AdvGrid)");
    Named("ViewSensitivity").trigger();
    EXPECT_EQ(Front(), "Sensitivity");
    Named("HelpInformation").trigger();
    EXPECT_EQ(Front(), "Sensitivity") << "it tells nothing yet";
    Named("FileTestData").trigger();
    EXPECT_EQ(FScript.Project().Name, "Test Project");
}

TEST_F(MainActions, ExitClosesTheWindow) {
    Named("FileExit").trigger();
    EXPECT_FALSE(FForm->isVisible());
}

} // namespace
