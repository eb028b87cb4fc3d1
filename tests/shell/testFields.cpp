// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fields bound to values, in a dialog that holds one of every kind, and what dialogs have in common.
#include "app/lotFailures.h"
#include "shell/base/lotDialog.h"
#include "shell/base/lotFieldBinding.h"
#include "shell/base/lotFieldWidgets.h"
#include "shell/base/lotHelp.h"
#include "shell/dialogs/frmEmail.h"
#include "shell/dialogs/frmGoalSeek.h"
#include "shell/dialogs/frmHelp.h"
#include "shell/dialogs/frmSelectTemplate.h"
#include "shell/dialogs/frmUserSettingsDlg.h"
#include "support/lotDesktopScript.h"
#include "support/lotFakeController.h"
#include "widgets/lotNumberEdit.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <bit>
#include <cmath>
#include <limits>
#include <map>

namespace {

enum class TShade : std::uint8_t { Light, Dark };

struct TDraft {
    double Rent = 0;
    std::string Name;
    std::string Notes;
    bool Leasehold = false;
    TShade Shade = TShade::Light;
    std::string Group;
    double Term = 0;
    int Places = 0;
    double Start = 0;
    std::int32_t Colour = 0;
    std::string Picture;
    TlotViewFont Font;

    friend bool operator==(const TDraft& a, const TDraft& b) {
        const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
        return bits(a.Rent) == bits(b.Rent) && a.Name == b.Name && a.Notes == b.Notes && a.Leasehold == b.Leasehold &&
               a.Shade == b.Shade && a.Group == b.Group && bits(a.Term) == bits(b.Term) && a.Places == b.Places &&
               bits(a.Start) == bits(b.Start) && a.Colour == b.Colour && a.Picture == b.Picture && a.Font == b.Font;
    }
};

class TEveryKindForm final : public TDialogForm {
public:
    TEveryKindForm(TDraft& draft, TlotFileService& files)
        : TDialogForm({"EveryKind", "Every Kind", "Goal Seek"}, TDialogButtons::OkCancel, nullptr),
          Fields(*this, PointLocale) {
        QFormLayout& form = AddForm(Body());
        Fields.Number(form, {"Ground &Rent:", "", "Leave this blank", "per annum"}, draft.Rent, ",0");
        Fields.Text(form, "Name:", draft.Name);
        Fields.Memo(form, "Notes:", draft.Notes);
        Fields.Check(form, "Leasehold", draft.Leasehold);
        Fields.Choice(form, "Shade:", draft.Shade, {"Light", "Dark"});
        Fields.TextChoice(form, "Group:", draft.Group, {"Site Costs", "Income"});
        Fields.Spin(form, "Lease Term:", draft.Term, 1, 999);
        Fields.Spin(form, "Places:", draft.Places, 0, 3);
        Fields.Date(form, "Start Date:", draft.Start);
        Fields.Colour(form, "Gradient:", draft.Colour);
        Fields.File(form, "Picture:", draft.Picture, files, {"All Files (*.*)|*.*", "/firm", {}, {}});
        Fields.Font(form, "Sheet:", draft.Font, {8, 9});
    }

    template <typename TWidget> TWidget& Field(const char* name) { return *findChild<TWidget*>(name); }

    TFieldBinder Fields;
    bool Stores = true;

protected:
    bool Store() override {
        Fields.Store();
        return Stores;
    }
};

/// What no field can show as it is.
const TDraft OddDraft{-1234.5678901234567,
                      "two\r\nlines\tand a tab",
                      "one\rtwo\nthree\r\n\xC2\xA0hard\n\n",
                      true,
                      static_cast<TShade>(77),
                      "Of no list",
                      1e6 + 0.25,
                      -4,
                      -3.75,
                      std::numeric_limits<std::int32_t>::min() + 5,
                      " /no such/file.\xFF ",
                      {37, "No such font"}};

class Fields : public testing::Test {
protected:
    TScriptedUser FUser;
    TFailureMessages FFailures{FUser};
};

TEST_F(Fields, UntouchedTheyStoreWhatTheyLoadedToTheLastBit) {
    TDraft finer;
    finer.Rent = std::nextafter(0.1, 1);
    finer.Start = 45'000.625;
    finer.Term = 12.5;
    TDraft none;
    none.Rent = std::numeric_limits<double>::quiet_NaN();
    none.Start = std::numeric_limits<double>::infinity();
    for (const TDraft& before : {OddDraft, finer, none, TDraft()}) {
        TDraft draft = before;
        TEveryKindForm form(draft, FUser);
        form.show();
        static_cast<void>(QTest::qWaitForWindowActive(&form));
        int changes = 0;
        form.Fields.OnChange = [&] { ++changes; };
        for (int i = 0; i < 20; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        form.Fields.Store();
        form.Fields.Load();
        form.AcceptAll();
        EXPECT_TRUE(draft == before);
        EXPECT_EQ(changes, 0);
    }
}

TEST_F(Fields, TouchedTheyStoreWhatTheUserPutThere) {
    TDraft draft = OddDraft;
    TEveryKindForm form(draft, FUser);
    form.show();
    static_cast<void>(QTest::qWaitForWindowActive(&form));
    int changes = 0;
    form.Fields.OnChange = [&] { ++changes; };
    const auto type = [](QWidget& field, const char* text) {
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, text);
    };
    type(form.Field<QLineEdit>("Name"), "Orchard");
    type(form.Field<TMemoEdit>("Notes"), "one");
    QTest::keyClick(&form.Field<TMemoEdit>("Notes"), Qt::Key_Return);
    QTest::keyClick(&form.Field<TMemoEdit>("Notes"), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&form.Field<TMemoEdit>("Notes"), "three");
    QTest::keyClick(&form.Field<QCheckBox>("Leasehold"), Qt::Key_Space);
    QTest::keyClick(&form.Field<QComboBox>("Shade"), Qt::Key_D);
    QTest::keyClick(&form.Field<QComboBox>("Group"), Qt::Key_I);
    type(form.Field<QWidget>("LeaseTerm"), "125");
    type(form.Field<QWidget>("Places"), "2");
    form.Field<QDateEdit>("StartDate").setDate(QDate(2026, 2, 28));
    QTimer::singleShot(0, [] {
        auto* const dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->setCurrentColor(QColor(0x11, 0x22, 0x33));
        dialog->accept();
    });
    form.Field<TColourEdit>("Gradient").click();
    FUser.FileNames = {"/firm/site.png"};
    form.Field<TFileEdit>("Picture").findChild<QToolButton*>()->click();
    form.Field<QComboBox>("SheetFontSize").setCurrentText("9");
    type(form.Field<TNumberEdit>("GroundRent"), "2,500.5");
    EXPECT_TRUE(draft == OddDraft) << "nothing before OK";
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_TRUE((draft == TDraft{2500.5,
                                 "Orchard",
                                 "one\r\n\r\nthree",
                                 false,
                                 TShade::Dark,
                                 "Income",
                                 125,
                                 2,
                                 46'081,
                                 0x332211,
                                 "/firm/site.png",
                                 {9, "No such font"}}));
    EXPECT_GE(changes, 11);
}

TEST_F(Fields, EachSaysWhatItIsAndIsReachedByItsLabel) {
    TDraft draft;
    TEveryKindForm form(draft, FUser);
    const auto& rent = form.Field<TNumberEdit>("GroundRent");
    EXPECT_EQ(rent.accessibleName(), "Ground Rent per annum");
    EXPECT_EQ(rent.toolTip(), "Leave this blank");
    std::map<QString, QString> buddies;
    for (const QLabel* const label : form.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            buddies[label->text()] = label->buddy()->accessibleName();
        }
    }
    EXPECT_EQ(buddies.size(), 11U) << "all but the tick box, which carries its own";
    for (const auto& [caption, name] : buddies) {
        EXPECT_TRUE(name.startsWith(QString(caption).remove('&').chopped(1))) << caption.toStdString();
    }
    form.Fields.SetEnabled(rent, false);
    for (const QLabel* const label : form.findChildren<QLabel*>()) {
        EXPECT_EQ(label->isEnabled(), label->text() != "Ground &Rent:" && label->text() != "per annum");
    }
}

TEST_F(Fields, ADialogStaysWhereItsFieldInEditFailsOrItsStoreRefuses) {
    TDraft draft;
    TEveryKindForm form(draft, FUser);
    form.Fields.OnChange = [] { throw ELotError("no"); };
    form.show();
    static_cast<void>(QTest::qWaitForWindowActive(&form));
    auto& rent = form.Field<TNumberEdit>("GroundRent");
    rent.setFocus();
    QTest::keyClicks(&rent, "5");
    QTest::keyClick(&rent, Qt::Key_Return);
    EXPECT_EQ(FUser.TakeTold(), "E: no|");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(draft.Rent, 0);
    form.Stores = false;
    form.DefaultButton().click();
    EXPECT_TRUE(form.isVisible());
    form.Stores = true;
    form.DefaultButton().click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(draft.Rent, 5);
}

/// A window that writes down what help it is asked for.
class TGiver final : public QWidget, public TlotHelpGiver {
public:
    QString Topic;
    void ShowHelp(QWidget& /*over*/, const QString& topic) override { Topic = topic; }
};

TEST(Dialogs, F1OpensTheGuideAtAHeadingThatItHas) {
    TDesktopScript script;
    ASSERT_TRUE(script.Data.LoadProject(ExampleFile("mixed-use.lot")));
    TGiver giver;
    TFakeController controller;
    TlotEmail email(script.Data, controller, script.User, script.User, script.App.TemporaryFolder);
    TlotUserSettings settings;
    const std::vector<std::string> names{"a", "b"};
    TGoalSeekForm goalSeek(script.Data, script.User, PointLocale, TlotResidualTarget::NoTarget, &giver);
    TEmailForm emailForm(email, script.Desktop.Services, &giver);
    TUserSettingsDlgForm userSettings(settings, &giver);
    TSelectTemplateForm templates(names, &giver);
    THelpForm guide;
    for (TDialogForm* const dialog :
         std::initializer_list<TDialogForm*>{&goalSeek, &emailForm, &userSettings, &templates}) {
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([dialog] { return QApplication::activeWindow() == dialog; }));
        QTest::keyClick(dialog, Qt::Key_F1);
        EXPECT_EQ(giver.Topic, dialog->HelpTopic());
        EXPECT_TRUE(guide.ShowTopic(dialog->HelpTopic())) << dialog->HelpTopic().toStdString();
        dialog->hide();
    }
    EXPECT_FALSE(guide.ShowTopic("No such heading"));
}

} // namespace
