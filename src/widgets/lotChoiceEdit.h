// SPDX-License-Identifier: GPL-3.0-or-later
//
// A field for one of a list of choices, by their texts or by their numbers. What is loaded and not in the list stays as
// it is until the user chooses something else: an unknown text is shown, and offered beside the choices for as long; an
// unknown number shows as nothing.
#pragma once

#include <QComboBox>
#include <functional>

class TChoiceEdit : public QComboBox {
    Q_OBJECT

public:
    explicit TChoiceEdit(QWidget* parent = nullptr);

    /// Other choices; the text stays, or the number where it is an unknown one.
    void SetChoices(const QStringList& choices);
    [[nodiscard]] const QStringList& Choices() const noexcept { return FChoices; }

    /// Letter case counts. A text that stands in the list twice is the first of them.
    void SetText(const QString& text);
    [[nodiscard]] QString Text() const { return currentText(); }
    /// For choices that are an enumeration in its order: any number may be loaded.
    void SetIndex(int index);
    /// The choice's place in the list, or the unknown number that was loaded; -1 for an unknown text.
    [[nodiscard]] int Index() const;

    /// The list has closed with a selection, also with that of what stood there before. Guarded: what it throws is told
    /// to the user.
    std::function<void()> OnCloseUp;

    void hidePopup() override;

signals:
    /// The user has chosen something else, from the open list or the closed one.
    void Chosen();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Fill(const QString& text);
    void Choose(int index);
    void Activated(int index);

    QStringList FChoices;
    int FChosen = -1;          // The item that the user chooses another one in place of.
    int FUnknown = -1;         // The number that was loaded, where no choice has it.
    bool FListClosing = false; // Nothing has happened since the list was told to close.
};
