// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fields that are made of several widgets. Each holds what it was given until the user changes it, and says so.
#pragma once

#include "app/lotServices.h"
#include "persistence/lotUserSettings.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QWidget>
#include <cstdint>
#include <initializer_list>
#include <string>

class QComboBox;
class QLineEdit;

/// Several lines of text. Tab goes on to the next field.
class TMemoEdit : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TMemoEdit(QWidget* parent = nullptr);

    /// With its line breaks as CR LF, whichever way they were typed.
    [[nodiscard]] std::string Text() const;
    void SetText(const std::string& text);

    [[nodiscard]] QSize sizeHint() const override;
};

/// A colour as the options hold it: blue, green and red from the high byte down. A swatch that opens the choice.
class TColourEdit : public QPushButton {
    Q_OBJECT

public:
    explicit TColourEdit(QWidget* parent = nullptr);

    [[nodiscard]] std::int32_t Colour() const noexcept { return FColour; }
    void SetColour(std::int32_t colour);

signals:
    void Chosen();

private:
    void Choose();

    std::int32_t FColour = 0;
};

/// The name of a file, typed or looked for.
class TFileEdit : public QWidget {
    Q_OBJECT

public:
    /// `files` must outlive it. `question`: what the dialog shows.
    TFileEdit(TlotFileService& files, TlotFileQuestion question, QWidget* parent = nullptr);

    [[nodiscard]] std::string FileName() const;
    void SetFileName(const std::string& name);
    [[nodiscard]] QLineEdit& Edit() const { return *FEdit; }

signals:
    void Changed();

private:
    void Browse();

    TlotFileService& FFiles;
    TlotFileQuestion FQuestion;
    QLineEdit* FEdit; // Owned by this widget.
};

/// A font by its name and size. What this machine or the list of sizes hasn't got stays chosen until another is.
class TFontEdit : public QWidget {
    Q_OBJECT

public:
    /// The two lists are named "<name>FontName" and "<name>FontSize".
    TFontEdit(const QString& name, std::initializer_list<int> sizes, QWidget* parent = nullptr);

    [[nodiscard]] TlotViewFont Font() const;
    void SetFont(const TlotViewFont& font);
    [[nodiscard]] QComboBox& Names() const { return *FNames; }
    [[nodiscard]] QComboBox& Sizes() const { return *FSizes; }

signals:
    void Changed();

private:
    QComboBox* FNames; // Owned by this widget.
    QComboBox* FSizes;
};
