// SPDX-License-Identifier: GPL-3.0-or-later
//
// The choice of a template for a new project.
#pragma once

#include "app/lotServices.h"
#include "shell/base/lotDialog.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

class QListWidget;

class TSelectTemplateForm : public TDialogForm {
    Q_OBJECT

public:
    explicit TSelectTemplateForm(std::span<const std::string> names, QWidget* parent = nullptr);

    [[nodiscard]] std::size_t Chosen() const;

private:
    QListWidget* lstTemplates; // Owned by the dialog.
};

/// Asks by that dialog, over the window in use.
class TQtTemplateChooser final : public TlotTemplateChooser {
public:
    [[nodiscard]] std::optional<std::size_t> Choose(std::span<const std::string> names) override;
};
