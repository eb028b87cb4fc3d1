// SPDX-License-Identifier: GPL-3.0-or-later
//
// The base of the modal dialogs: a body, and below it OK and Cancel, or Close. Enter presses the default button, F1
// opens the guide at the dialog's topic. What ends the dialog well lets the field in edit act first, and where that
// fails the dialog stays.
#pragma once

#include <QDialog>
#include <QString>
#include <cstdint>

class QBoxLayout;
class QDialogButtonBox;
class QFormLayout;
class QPushButton;
class QVBoxLayout;

enum class TDialogButtons : std::uint8_t { OkCancel, Close };

struct TDialogTexts {
    QString Name; ///< Of the object.
    QString Caption;
    QString Topic = {};  ///< A heading of the user guide.
    QString Accept = {}; ///< On the default button; by itself "OK" or "Close".
};

class TDialogForm : public QDialog {
    Q_OBJECT

public:
    [[nodiscard]] const QString& HelpTopic() const noexcept { return FTopic; }
    /// OK, or whatever stands for it.
    [[nodiscard]] QPushButton& DefaultButton() const { return *FDefault; }
    [[nodiscard]] QDialogButtonBox& Buttons() const { return *FButtons; }

    /// What OK does: the field in edit acts, then Store; accepts where neither fails.
    void AcceptAll();

protected:
    TDialogForm(const TDialogTexts& texts, TDialogButtons buttons, QWidget* parent);

    [[nodiscard]] QVBoxLayout& Body() const { return *FBody; }
    /// Adds a form of labelled fields to a layout.
    static QFormLayout& AddForm(QBoxLayout& layout);
    /// No larger and no smaller than its contents need.
    void FixSize();

    /// Takes over what the fields say. False to stay open, the user having been told why; so does what it throws.
    [[nodiscard]] virtual bool Store() { return true; }

private:
    QString FTopic;
    QVBoxLayout* FBody; // Owned by the dialog.
    QDialogButtonBox* FButtons;
    QPushButton* FDefault;
};
