// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fields: what is loaded stays as it is until the user changes it.
#include "support/lotFiles.h"
#include "support/lotToldMessages.h"
#include "widgets/lotChoiceEdit.h"
#include "widgets/lotNumberEdit.h"
#include "widgets/lotSpinEdit.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <stdexcept>

namespace {

/// A window with a field and something else to go to.
template <typename TField> class TWindow : public QWidget {
public:
    explicit TWindow(TField* field) : Field(*field), Other(new QLineEdit) {
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(Other);
        layout->addWidget(field);
        show();
        Other->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
    void Leave() const { Other->setFocus(); }

    TField& Field;
    QLineEdit* Other;
};

void Wheel(QWidget& widget, int steps) {
    QWheelEvent event({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, 120 * steps}, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &event);
}

TEST(SpinEdit, HoldsOnlyWhatIsTypedToItsRange) {
    struct TCase {
        double Loaded;
        const char* Shown;
        const char* Typed; // nullptr: nothing.
        double After;
    };
    for (const TCase& row : {TCase{500, "500", nullptr, 500},
                             {500, "500", "501", 120},
                             {500, "500", "500", 500},
                             {2.5, "2.5", nullptr, 2.5},
                             {2.5, "2.5", "7.6", 8},
                             {0, "0", nullptr, 0},
                             {12, "12", "0", 1},
                             {12, "12", "-7", 1},
                             {12, "12", "1,000", 120},
                             {12, "12", "", 12},
                             {12, "12", "twelve", 12},
                             {12, "12", "24 months", 24},
                             {12, "12", "99999999999999999999", 120}}) {
        TWindow<TSpinEdit> window(new TSpinEdit(1, 120, nullptr, PointLocale));
        TSpinEdit& field = window.Field;
        int left = 0;
        bool changed = false;
        QObject::connect(&field, &TSpinEdit::Left, [&](bool change) {
            ++left;
            changed = change;
        });
        field.SetValue(row.Loaded);
        EXPECT_EQ(field.text(), row.Shown);
        field.setFocus();
        field.selectAll();
        if (row.Typed != nullptr) {
            QTest::keyClick(&field, Qt::Key_Delete);
            QTest::keyClicks(&field, row.Typed);
        }
        EXPECT_EQ(left, 0);
        window.Leave();
        const std::string what = std::string(row.Shown) + " " + (row.Typed != nullptr ? row.Typed : "untouched");
        EXPECT_EQ(field.Value(), row.After) << what;
        EXPECT_EQ(left, 1);
        EXPECT_EQ(changed, row.Typed != nullptr && std::string(row.Typed) != row.Shown) << what;
        EXPECT_FALSE(field.Post());
    }
}

TEST(SpinEdit, StepsWithinItsRange) {
    TWindow<TSpinEdit> window(new TSpinEdit(1, 120));
    TSpinEdit& field = window.Field;
    struct TCase {
        double Loaded;
        std::vector<Qt::Key> Keys;
        const char* Shown;
    };
    for (const TCase& row : {TCase{5, {Qt::Key_Up}, "6"},
                             {5, {Qt::Key_PageUp, Qt::Key_Down}, "14"},
                             {5, {Qt::Key_PageDown}, "1"},
                             {119, {Qt::Key_Up, Qt::Key_Up}, "120"},
                             {500, {Qt::Key_Up}, "500"},
                             {500, {Qt::Key_Down}, "120"},
                             {-3, {Qt::Key_Up}, "1"},
                             {2.5, {Qt::Key_Up}, "3"},
                             {2.5, {Qt::Key_Down}, "2"}}) {
        field.SetValue(row.Loaded);
        field.setFocus();
        for (const Qt::Key key : row.Keys) {
            QTest::keyClick(&field, key);
        }
        EXPECT_EQ(field.text(), row.Shown) << row.Loaded;
        EXPECT_EQ(field.Value(), row.Loaded) << "not before it is left";
        QTest::keyClick(&field, Qt::Key_Escape);
        EXPECT_FALSE(field.Post()) << "Escape puts the old text back.";
    }
    field.SetValue(5);
    Wheel(field, 1);
    EXPECT_EQ(field.text(), "6");
    EXPECT_TRUE(field.Post());
    window.Leave();
    Wheel(field, 1);
    EXPECT_EQ(field.Value(), 6);
    EXPECT_EQ(field.text(), "6") << "The wheel belongs to the page while the field hasn't the focus.";
}

TEST(NumberEdit, EditsByTheDigitsOfItsMaskAlone) {
    struct TCase {
        const char* Mask;
        double Value;
        const char* Editing;
        const char* Typed;
        double After;
    };
    for (const TCase& row : {TCase{"£,0;-£,0", -1234.5, "-1235", "-£2,000", -2000},
                             {",0.00;,-0.00;#", 1234.5, "1234.50", "2.25", 2.25},
                             {",0.00;,-0.00;#", 0, "", "3", 3},
                             {",0.00;,-0.00;#", 0, "", "", 0},
                             {"0.00%;,-0.00%;#", 12.345, "12.35", "13", 13},
                             {",0;-,0;-", 0, "0", "4", 4},
                             {"#", 7.4, "7", "8", 8}}) {
        TWindow<TNumberEdit> window(new TNumberEdit(row.Mask, PointLocale));
        TNumberEdit& field = window.Field;
        field.SetValue(row.Value);
        field.setFocus();
        EXPECT_EQ(field.text(), row.Editing) << row.Mask;
        // Typed and typed back, it is as if nobody had been there.
        QTest::keyClicks(&field, "1");
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, row.Editing);
        EXPECT_FALSE(field.Post()) << row.Mask;
        EXPECT_EQ(field.Value(), row.Value);
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QString(row.Typed));
        window.Leave();
        EXPECT_EQ(field.Value(), row.After) << row.Mask;
    }
}

TEST(NumberEdit, AReadOnlyFieldKeepsItsFormAndItsNumber) {
    TWindow<TNumberEdit> window(new TNumberEdit(",0", PointLocale));
    TNumberEdit& field = window.Field;
    field.SetValue(1234.5);
    const QColor ground = field.palette().color(QPalette::Base);
    field.SetReadOnly(true);
    EXPECT_EQ(field.palette().color(QPalette::Base), field.palette().color(QPalette::Disabled, QPalette::Base));
    field.setFocus();
    QTest::keyClicks(&field, "9");
    EXPECT_EQ(field.text(), "1,235");
    window.Leave();
    EXPECT_EQ(field.Value(), 1234.5);
    field.SetReadOnly(false);
    EXPECT_EQ(field.palette().color(QPalette::Base), ground);
}

TEST(Fields, ATextThatReadsAsNoNumberChangesNone) {
    TNumberEdit number(",0", PointLocale);
    TSpinEdit spin(1, 120, nullptr, PointLocale);
    number.SetValue(12);
    spin.SetValue(12);
    for (const char* const typed : {"twelve", "\u0662\u0664", "\uFF12"}) { // Other scripts' digits are none here.
        number.setText(typed);
        spin.findChild<QLineEdit*>()->setText(typed);
        EXPECT_TRUE(number.Post());
        EXPECT_TRUE(spin.Post());
        EXPECT_EQ(number.Value(), 12) << typed;
        EXPECT_EQ(spin.Value(), 12) << typed;
    }
}

TEST(Fields, AHookThatThrowsIsToldOnceAndTheFieldGoesOn) {
    TToldMessages told;
    TWindow<TNumberEdit> numbers(new TNumberEdit(",0", PointLocale));
    numbers.Field.OnLeft = [](bool) { throw std::runtime_error("number"); };
    numbers.Field.setFocus();
    QTest::keyClicks(&numbers.Field, "12");
    numbers.Leave();
    EXPECT_EQ(told.Take(), "number|");
    EXPECT_EQ(numbers.Field.Value(), 12);
    numbers.Leave();

    TWindow<TSpinEdit> spins(new TSpinEdit(1, 5));
    spins.Field.OnLeft = [](bool) { throw std::runtime_error("spin"); };
    spins.Field.setFocus();
    QTest::keyClick(&spins.Field, Qt::Key_Up);
    spins.Leave();
    EXPECT_EQ(told.Take(), "spin|");
    EXPECT_EQ(spins.Field.Value(), 2);
}

TEST(ChoiceEdit, KeepsWhatIsNotInItsListUntilAnotherIsChosen) {
    TWindow<TChoiceEdit> window(new TChoiceEdit);
    TChoiceEdit& field = window.Field;
    int chosen = 0;
    QObject::connect(&field, &TChoiceEdit::Chosen, [&] { ++chosen; });
    field.SetChoices({"House", "Flat", "Shop"});
    EXPECT_EQ(field.Text(), "");
    field.SetText("flat");
    EXPECT_EQ(field.Text(), "flat");
    EXPECT_EQ(field.Index(), -1) << "Letter case counts.";
    field.SetChoices({"Barn", "House", "Flat"});
    EXPECT_EQ(field.Text(), "flat");
    EXPECT_EQ(field.count(), 4);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Text(), "Flat");
    EXPECT_EQ(field.count(), 3) << "no longer offered";
    EXPECT_EQ(chosen, 1);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(chosen, 1) << "There is nothing further down.";
    field.SetText("House");
    EXPECT_EQ(field.Index(), 1);
    field.SetChoices({"House", "Flat"});
    EXPECT_EQ(field.Index(), 0) << "Refilled, it keeps the text.";
    field.SetText("");
    EXPECT_EQ(field.Text(), "");
    EXPECT_EQ(field.count(), 2);

    field.SetIndex(7);
    EXPECT_EQ(field.Text(), "");
    EXPECT_EQ(field.Index(), 7);
    field.SetChoices({"House"});
    EXPECT_EQ(field.Index(), 7);
    EXPECT_EQ(chosen, 1) << "Only the user chooses.";
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.Index(), 0);
    EXPECT_EQ(chosen, 2);
    window.Leave();
    field.SetChoices({"House", "Flat"});
    Wheel(field, -1);
    EXPECT_EQ(field.Text(), "House") << "The wheel belongs to the page while the field hasn't the focus.";
    field.setFocus();
    Wheel(field, -1);
    EXPECT_EQ(field.Text(), "Flat");
}

TEST(ChoiceEdit, TellsWhenItsListClosesWithASelection) {
    TToldMessages told;
    TWindow<TChoiceEdit> window(new TChoiceEdit);
    TChoiceEdit& field = window.Field;
    std::string log;
    field.OnCloseUp = [&] { log += field.Text().toStdString() + "|"; };
    field.SetChoices({"Zone A", "Zone B"});
    field.SetText("Zone A");
    field.setFocus();
    const auto choose = [&](std::initializer_list<Qt::Key> keys) {
        field.showPopup();
        for (const Qt::Key key : keys) {
            QTest::keyClick(field.view(), key);
        }
    };
    choose({Qt::Key_Return});
    EXPECT_EQ(log, "Zone A|") << "also the one that stood there before";
    choose({Qt::Key_Down, Qt::Key_Escape});
    EXPECT_EQ(log, "Zone A|");
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.Text(), "Zone B");
    EXPECT_EQ(log, "Zone A|") << "The list was not open.";
    field.SetText("Yard");
    choose({Qt::Key_Up, Qt::Key_Return});
    EXPECT_EQ(log, "Zone A|Zone B|");
    EXPECT_EQ(field.count(), 2);
    field.OnCloseUp = [] { throw std::runtime_error("no"); };
    choose({Qt::Key_Return});
    EXPECT_EQ(told.Take(), "no|");
    EXPECT_EQ(field.Text(), "Zone B");
}

} // namespace
