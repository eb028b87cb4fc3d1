// SPDX-License-Identifier: GPL-3.0-or-later
//
// The views that only show things, and the small dialogs.
#include "app/lotFailures.h"
#include "shell/dialogs/frmHelp.h"
#include "shell/dialogs/frmSelectTemplate.h"
#include "shell/dialogs/frmUserSettingsDlg.h"
#include "shell/frmMain.h"
#include "shell/lotQtServices.h"
#include "shell/views/frmCashflowView.h"
#include "shell/views/frmSummaryView.h"
#include "support/lotDesktopScript.h"
#include "widgets/lotSpreadsheetView.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace fs = std::filesystem;

namespace {

class Views : public testing::Test {
protected:
    void Open(const char* example) {
        ASSERT_TRUE(FScript.Data.LoadProject(ExampleFile(example)));
        FScript.Data.Recalculate();
        FScript.Data.BuildReportTables(TlotReportKind::Appraisal);
    }
    static void Click(QWidget& view, const char* name) {
        QTest::mouseClick(view.findChild<QAbstractButton*>(name), Qt::LeftButton);
    }
    /// Acts in the dialog that opens next.
    template <typename TDialog> static void Answer(const std::function<void(TDialog&)>& user) {
        QTimer::singleShot(0, [user] {
            auto* const dialog = qobject_cast<TDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            user(*dialog);
        });
    }

    TDesktopScript FScript;
};

TEST_F(Views, CashflowFollowsItsBoxesAndSavesWorkbooks) {
    Open("mixed-use.lot");
    TCashflowViewForm view(FScript.Desktop);
    view.show();
    view.Refresh();
    const auto header = [&](int column) { return view.Page().Shown(0, column, PointLocale).Text; };
    EXPECT_EQ(header(1), "Jan-2026");
    Click(view, "chkDisplayAccountCodes");
    Click(view, "chkDisplayTotals");
    EXPECT_EQ(header(1) + header(2) + header(3), "AccountTotalJan-2026");
    Click(view, "chkDisplayTotals");
    EXPECT_EQ(header(1) + header(2), "AccountJan-2026");
    QTest::keyClicks(&view.Sheet(), "5");
    EXPECT_EQ(view.findChild<QLineEdit*>("edtCell"), nullptr) << "nothing here can be edited";

    for (const char* const name : {"a.xls", "a.xlsx"}) {
        FScript.User.FileNames = {FScript.Folder.File(name)};
        Click(view, "btnSave");
        EXPECT_TRUE(fs::exists(FScript.Folder.File(name)));
    }
    EXPECT_EQ(FScript.User.LastFileQuestion.DefaultExtension, "xls");
    EXPECT_TRUE(FScript.User.LastFileQuestion.Filter.starts_with("Excel Workbook (*.xls)|*.xls"));
    EXPECT_EQ(FScript.User.BusyNow, 0);
}

TEST_F(Views, SummaryShowsTheProjectsTotals) {
    Open("mixed-use.lot");
    TSummaryViewForm view(FScript.Data, PointLocale);
    view.Refresh();
    const auto label = [&](const char* name) { return view.findChild<QLabel*>(name)->text().toStdString(); };
    EXPECT_EQ(label("lblGrossRent"), "1,328,440");
    EXPECT_EQ(label("lblResidentialSales"), "24,443,000");
    EXPECT_EQ(label("lblCommercialSales"), "18,952,087");
    EXPECT_EQ(label("lblTotalCosts"), "39,427,833");
    EXPECT_EQ(label("lblTotalInterest"), "2,785,919");
    std::string key;
    for (const QLabel* const entry : view.findChild<QWidget*>("chtCosts")->findChildren<QLabel*>()) {
        key += entry->text().toStdString() + "|";
    }
    EXPECT_NE(key.find("Construction Costs|27,620,485|"), std::string::npos) << key;
}

TEST_F(Views, UserSettingsAreSavedAndTheSheetsFollow) {
    const TFailureMessages failures(FScript.User);
    TMainForm form(FScript.Desktop);
    form.FormCreate();
    form.Files().OpenProject(ExampleFile("housing.lot"));
    form.Action(TlotAction::ViewCashflow).trigger();
    const auto* const view = form.findChild<TCashflowViewForm*>();
    const auto choose = [](TUserSettingsDlgForm& dialog, QDialogButtonBox::StandardButton button) {
        EXPECT_EQ(dialog.findChild<QComboBox*>("CashflowFontSize")->count(), 4);
        EXPECT_EQ(dialog.findChild<QComboBox*>("TimescaleFontSize")->count(), 3);
        dialog.findChild<QComboBox*>("CashflowFontSize")->setCurrentText("11");
        dialog.findChild<QDialogButtonBox*>()->button(button)->click();
    };
    Answer<TUserSettingsDlgForm>([&](auto& dialog) { choose(dialog, QDialogButtonBox::Cancel); });
    form.Action(TlotAction::ToolsUserSettings).trigger();
    EXPECT_EQ(view->Page().FontSize, 8);
    Answer<TUserSettingsDlgForm>([&](auto& dialog) { choose(dialog, QDialogButtonBox::Ok); });
    form.Action(TlotAction::ToolsUserSettings).trigger();
    EXPECT_EQ(view->Page().FontSize, 11);
    EXPECT_EQ(view->Page().FontName, "Arial") << "a font that this machine may not have";
    TlotUserSettings saved;
    saved.Load(FScript.App.UserSettingsFile);
    EXPECT_EQ(saved.CashflowView.Size, 11);
    EXPECT_EQ(saved.TimescaleView.Size, 8);
}

TEST_F(Views, TemplatesAreChosenByNameOrNotAtAll) {
    const std::vector<std::string> names{"Commercial", "Residential"};
    TQtTemplateChooser chooser;
    Answer<TSelectTemplateForm>([](auto& dialog) {
        auto* const list = dialog.template findChild<QListWidget*>("lstTemplates");
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    });
    EXPECT_EQ(chooser.Choose(names), std::optional<std::size_t>(1));
    Answer<TSelectTemplateForm>([](auto& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(chooser.Choose(names), std::nullopt);
}

TEST_F(Views, YesAndNoAreAnsweredByTheirDefaultAndClosingIsNo) {
    struct TCase {
        TlotAnswer Proposed;
        Qt::Key Key;
        bool Answer;
    };
    TQtQuestions questions;
    for (const TCase& row : {TCase{TlotAnswer::Yes, Qt::Key_Return, true},
                             {TlotAnswer::Yes, Qt::Key_Escape, false},
                             {TlotAnswer::No, Qt::Key_Return, false},
                             {TlotAnswer::No, Qt::Key_Y, true}}) {
        Answer<QMessageBox>([&](auto& box) {
            EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
            if (row.Key == Qt::Key_Y) {
                box.button(QMessageBox::Yes)->click();
            } else {
                QTest::keyClick(&box, row.Key);
            }
        });
        EXPECT_EQ(questions.AskYesNo("Delete <b>cost</b>?", row.Proposed), row.Answer);
    }
}

TEST_F(Views, CommandsWithoutAScreenSaySoAndTheWayBackIsOpen) {
    const TFailureMessages failures(FScript.User);
    TMainForm form(FScript.Desktop);
    form.FormCreate();
    form.Action(TlotAction::ReportAppraisal).trigger();
    form.Action(TlotAction::ProjectGeneral).trigger();
    EXPECT_FALSE(form.Action(TlotAction::ViewHome).isChecked());
    form.Action(TlotAction::ViewHome).trigger();
    EXPECT_EQ(form.Views().FrontView().objectName(), "HomeViewForm");
    form.Action(TlotAction::HelpContents).trigger();
    auto* const help = form.findChild<THelpForm*>();
    ASSERT_NE(help, nullptr);
    EXPECT_GT(help->findChild<QListWidget*>("lstContents")->count(), 3) << "the guide's chapters";
}

} // namespace
