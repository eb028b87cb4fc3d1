// SPDX-License-Identifier: GPL-3.0-or-later
//
// Editing a value in place: a small box over the label that shows it. Enter accepts; Escape or a click elsewhere
// doesn't.
#pragma once

#include "common/vipNumber.h"

#include <QDialog>
#include <QString>
#include <string>

class QLineEdit;
class TNumberEdit;

/// The box: no border, one field, over `label`.
class TEditForm : public QDialog {
    Q_OBJECT

protected:
    explicit TEditForm(const QWidget& label);

    /// Named as the label is.
    void SetField(QLineEdit& field, const QWidget& label);
};

class TEditTextForm final : public TEditForm {
    Q_OBJECT

public:
    TEditTextForm(const QWidget& label, const QString& text);

    [[nodiscard]] QString Text() const;

private:
    QLineEdit* FEdit; // Owned by the box.
};

class TEditValueForm final : public TEditForm {
    Q_OBJECT

public:
    TEditValueForm(const QWidget& label, double value, const std::string& mask, const TNumberLocale& locale);

    /// The number as typed.
    [[nodiscard]] double Value() const;

private:
    TNumberEdit* FEdit; // Owned by the box.
};

class TcdTextEdit {
public:
    explicit TcdTextEdit(const QWidget& label) : FLabel(label) {}

    QString Value;

    /// Lets the value be edited; true if that ended with OK.
    [[nodiscard]] bool Execute();

private:
    const QWidget& FLabel;
};

class TcdValueEdit {
public:
    TcdValueEdit(const QWidget& label, const TNumberLocale& locale) : FLabel(label), FLocale(locale) {}

    double Value = 0;
    std::string Format = ",0"; ///< A mask; its decimals are those that can be typed.

    /// Lets the value be edited; true if that ended with OK. A value whose text wasn't changed keeps its precision.
    [[nodiscard]] bool Execute();

private:
    const QWidget& FLabel;
    TNumberLocale FLocale;
};
