// SPDX-License-Identifier: GPL-3.0-or-later
//
// A field for a whole number with arrows. Only what is typed or stepped to is held to the field's range: what is loaded
// stays as it is, whatever it is, until the user changes its text.
#pragma once

#include "common/vipNumber.h"

#include <QAbstractSpinBox>
#include <functional>

class TSpinEdit : public QAbstractSpinBox {
    Q_OBJECT

public:
    /// The range includes both ends.
    TSpinEdit(int minimum, int maximum, QWidget* parent = nullptr, const TNumberLocale& locale = {});

    /// What was loaded, or the whole number that has replaced it.
    [[nodiscard]] double Value() const noexcept { return FValue; }
    void SetValue(double value);
    /// A number outside of the new range stays until its text is changed.
    void SetRange(int minimum, int maximum);
    [[nodiscard]] int Minimum() const noexcept { return FMinimum; }
    [[nodiscard]] int Maximum() const noexcept { return FMaximum; }
    /// Takes over what is typed so far, as leaving the field does: rounded to a whole number and held to the range. A
    /// text without digits leaves the number as it was. True if the text had been changed.
    bool Post();

    /// The number that leaving the field now would take over.
    [[nodiscard]] double Typed() const;
    /// Puts a number in the range into the text, as a user would who types it.
    void Type(double value);

    /// As the signal Left, but guarded: what it throws is told to the user.
    std::function<void(bool changed)> OnLeft;

    void stepBy(int steps) override;
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The focus has left. `changed`: the text had been changed before.
    void Left(bool changed);

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void ShowText();
    [[nodiscard]] double Clamped(double value) const;

    int FMinimum;
    int FMaximum;
    TNumberLocale FLocale;
    double FValue = 0;
    QString FBefore; // The text that an edit began with.
};
