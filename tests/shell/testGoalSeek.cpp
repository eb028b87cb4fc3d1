// SPDX-License-Identifier: GPL-3.0-or-later
//
// Goal Seek with its real dialog: what is typed, and what becomes of the project.
#include "app/lotFailures.h"
#include "shell/dialogs/frmGoalSeek.h"
#include "shell/dialogs/lotGoalSeekCommand.h"
#include "support/lotDesktopScript.h"
#include "widgets/lotNumberEdit.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

class GoalSeek : public testing::Test {
protected:
    void Open(const char* example, TlotResidualTarget target = TlotResidualTarget::NoTarget) {
        ASSERT_TRUE(FScript.Data.LoadProject(ExampleFile(example)));
        FScript.Project().ResidualTarget = target;
        FScript.Data.Recalculate();
        FScript.Data.Recalculate(); // A leasehold project settles with its second pass.
    }
    /// Runs the command; `user` acts in the open dialog and must close it.
    void Seek(const std::function<void(TGoalSeekForm&)>& user) {
        const TGoalSeekHooks hooks{[] {}, [this] { FEvents += "stop "; }, [this] { FEvents += "start "; },
                                   [this] {
                                       FEvents += "accepted ";
                                       FScript.Data.Recalculate();
                                   }};
        QTimer::singleShot(0, [&] {
            auto* const form = qobject_cast<TGoalSeekForm*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowActive(form));
            EXPECT_EQ(FScript.Project().ResidualTarget, TlotResidualTarget::NoTarget) << "while seeking";
            user(*form);
        });
        RunGoalSeek(FScript.Data, FScript.User, PointLocale, hooks, nullptr);
        EXPECT_EQ(FScript.User.BusyNow, 0);
    }
    static TNumberEdit& Field(TGoalSeekForm& form, const char* name) { return *form.findChild<TNumberEdit*>(name); }
    static void Type(TGoalSeekForm& form, const char* name, const QString& text, bool leave = true) {
        TNumberEdit& field = Field(form, name);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        if (leave) {
            QTest::keyClick(&field, Qt::Key_Tab);
        }
    }
    static void Press(TGoalSeekForm& form, QDialogButtonBox::StandardButton button) {
        form.findChild<QDialogButtonBox*>()->button(button)->click();
    }

    TDesktopScript FScript;
    TFailureMessages FFailures{FScript.User};
    std::string FEvents;
};

TEST_F(GoalSeek, AFieldLeftSolvesTheSiteValueAndShowsTheRest) {
    Open("mixed-use.lot");
    Seek([&](TGoalSeekForm& form) {
        EXPECT_EQ(Field(form, "SiteValue").text(), "6,750,000");
        QStringList captions;
        for (auto* const field : form.findChildren<TNumberEdit*>()) {
            captions += form.findChild<QFormLayout*>()->labelForField(field)->property("text").toString();
        }
        EXPECT_EQ(captions.join(' '), "Profit Value: Site Value: Profit on Cost: Profit on GDV: Profit on NDV: "
                                      "Rental Yield: IRR:");
        Type(form, "ProfitOnCost", "15");
        EXPECT_NEAR(FScript.Project().BaseValues.ProfitOnCost, 15, 0.0001);
        EXPECT_EQ(Field(form, "ProfitOnCost").text(), "15.000%");
        EXPECT_EQ(Field(form, "SiteValue").Value(), FScript.SiteValue());
        EXPECT_LT(FScript.SiteValue(), 6'750'000);
        EXPECT_EQ(Field(form, "Profit").Value(), FScript.Project().BaseValues.Profit);
        Type(form, "IRR", "25");
        EXPECT_NEAR(FScript.Project().Equity.IRR, 25, 0.0001);
        Type(form, "SiteValue", "5,000,000");
        EXPECT_EQ(FScript.SiteValue(), 5'000'000);
        EXPECT_EQ(Field(form, "IRR").Value(), FScript.Project().Equity.IRR);
        Press(form, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(FEvents, "stop accepted start ");
    EXPECT_EQ(FScript.SiteValue(), 5'000'000);
}

TEST_F(GoalSeek, OkTakesTheFieldBeingEditedAndTheTarget) {
    Open("mixed-use.lot");
    Seek([&](TGoalSeekForm& form) {
        form.findChild<QComboBox*>("ResidualTarget")->setCurrentIndex(2);
        Type(form, "ProfitOnGDV", "12.5", false);
        Press(form, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(FScript.Project().ResidualTarget, TlotResidualTarget::ProfitOnGDV);
    EXPECT_NEAR(FScript.Project().ResidualTargetValue, 12.5, 0.0001);
    EXPECT_NEAR(FScript.Project().BaseValues.ProfitOnGDV, 12.5, 0.0002);
    EXPECT_EQ(FEvents, "stop accepted start ");
}

TEST_F(GoalSeek, OkWithoutATargetKeepsTheTargetValue) {
    Open("housing.lot", TlotResidualTarget::ProfitOnCost);
    Seek([&](TGoalSeekForm& form) {
        EXPECT_EQ(form.Target(), TlotResidualTarget::ProfitOnCost);
        form.findChild<QComboBox*>("ResidualTarget")->setCurrentIndex(0);
        Type(form, "SiteValue", "1000000");
        Press(form, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(FScript.Project().ResidualTarget, TlotResidualTarget::NoTarget);
    EXPECT_EQ(FScript.Project().ResidualTargetValue, 20);
    EXPECT_EQ(FScript.SiteValue(), 1'000'000);
}

TEST_F(GoalSeek, CancelPutsTheSiteValueBackOrSolvesItAgain) {
    Open("mixed-use.lot");
    const double profit = FScript.Project().BaseValues.Profit;
    const auto spoil = [&](TGoalSeekForm& form) {
        Type(form, "SiteValue", "1");
        Press(form, QDialogButtonBox::Cancel);
    };
    Seek(spoil);
    EXPECT_EQ(FScript.SiteValue(), 6'750'000);
    EXPECT_EQ(FScript.Project().BaseValues.Profit, profit);

    Open("housing.lot", TlotResidualTarget::ProfitOnCost);
    const double solved = FScript.SiteValue();
    Seek(spoil);
    EXPECT_EQ(FScript.Project().ResidualTarget, TlotResidualTarget::ProfitOnCost);
    EXPECT_NEAR(FScript.SiteValue(), solved, 1);
    EXPECT_EQ(FEvents, "stop start stop start ");
}

TEST_F(GoalSeek, WalkingThroughTheFieldsChangesNothing) {
    Open("mixed-use.lot");
    FScript.SiteValue() = 6'750'000.123;
    FScript.Data.Recalculate();
    Seek([&](TGoalSeekForm& form) {
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        Press(form, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(FScript.SiteValue(), 6'750'000.123);
}

TEST_F(GoalSeek, ATargetOutOfReachAnswersZero) {
    Open("mixed-use.lot");
    Seek([&](TGoalSeekForm& form) {
        Type(form, "ProfitOnCost", "500");
        EXPECT_EQ(Field(form, "SiteValue").text(), "0");
        EXPECT_EQ(FScript.SiteValue(), 0);
        Press(form, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(FScript.SiteValue(), 6'750'000);
}

TEST_F(GoalSeek, AProjectWithoutUnitsSaysSo) {
    RunGoalSeek(FScript.Data, FScript.User, PointLocale, {[] {}, nullptr, nullptr, nullptr}, nullptr);
    EXPECT_EQ(FScript.User.TakeTold(), "I: No unit build costs have been specified.|");
}

TEST_F(GoalSeek, AFailureStartsTheTimerAndPutsTheTargetBack) {
    Open("housing.lot", TlotResidualTarget::ProfitOnCost);
    EXPECT_THROW(Seek([&](TGoalSeekForm& form) {
                     FScript.Project().Funding.Loans[0].LoanType = static_cast<TlotLoanType>(9);
                     Type(form, "ProfitOnCost", "10", false);
                     Press(form, QDialogButtonBox::Ok);
                     EXPECT_EQ(FScript.User.TakeTold(), "E: Unknown LoanType|");
                     EXPECT_TRUE(form.isVisible()) << "OK needs an answer.";
                     Press(form, QDialogButtonBox::Cancel);
                 }),
                 std::runtime_error);
    EXPECT_EQ(FEvents, "stop start ");
    EXPECT_EQ(FScript.Project().ResidualTarget, TlotResidualTarget::ProfitOnCost);
}

} // namespace
