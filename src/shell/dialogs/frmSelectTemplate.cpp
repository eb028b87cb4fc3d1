// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmSelectTemplate.h"

#include "shell/base/lotLook.h"

#include <QApplication>
#include <QListWidget>
#include <QVBoxLayout>

TSelectTemplateForm::TSelectTemplateForm(std::span<const std::string> names, QWidget* parent)
    : TDialogForm({"SelectTemplateForm", "Select Template", "Projects"}, TDialogButtons::OkCancel, parent),
      lstTemplates(new QListWidget(this)) {
    lstTemplates->setObjectName("lstTemplates");
    for (const std::string& name : names) {
        lstTemplates->addItem(new QListWidgetItem(look::Icon("new"), QString::fromStdString(name)));
    }
    lstTemplates->setCurrentRow(0);
    lstTemplates->setAccessibleName("Templates");
    connect(lstTemplates, &QListWidget::itemActivated, this, &TDialogForm::AcceptAll);
    Body().addWidget(lstTemplates);
    resize(360, 320);
}

std::size_t TSelectTemplateForm::Chosen() const {
    return static_cast<std::size_t>(lstTemplates->currentRow());
}

std::optional<std::size_t> TQtTemplateChooser::Choose(std::span<const std::string> names) {
    TSelectTemplateForm form(names, QApplication::activeWindow());
    if (form.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return form.Chosen();
}
