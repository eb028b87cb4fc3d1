// SPDX-License-Identifier: GPL-3.0-or-later
//
// A field for one number. It shows the number by a mask, and while it has the focus in a plain form for editing. The
// number keeps its full precision until its text is changed: walking through a field rounds nothing, and neither does
// typing something and then what stood there before.
#pragma once

#include "common/vipNumber.h"

#include <QLineEdit>
#include <functional>
#include <string>

class TNumberEdit : public QLineEdit {
    Q_OBJECT

public:
    /// `mask` as for vip::FormatMask: ",0", ",0.00", "0.000%", "£,0;-£,0". Where a zero shows as nothing
    /// (",0;-,0;#"), it does so in the form for editing too.
    TNumberEdit(std::string mask, const TNumberLocale& locale, QWidget* parent = nullptr);

    [[nodiscard]] double Value() const noexcept { return FValue; }
    void SetValue(double value);
    /// Another mask; the number stays.
    void SetMask(std::string mask);
    /// A field that can be read, selected and copied from only, and looks so: on the ground of a disabled one, in its
    /// mask's form also with the focus.
    void SetReadOnly(bool readOnly);
    /// Takes over what is typed so far, as leaving the field does. A text without digits leaves the number as it was,
    /// but an empty one means 0. True if the text had been changed.
    bool Post();

    /// As the signal Left, but guarded: what it throws is told to the user.
    std::function<void(bool changed)> OnLeft;

signals:
    /// The focus has left. `changed`: the text had been changed before.
    void Left(bool changed);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QString EditText() const;
    void ShowText();

    std::string FMask;
    TNumberLocale FLocale;
    double FValue = 0;
    bool FEditing = false;
    QString FBefore; // The text that an edit began with.
};
