// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmSelectTemplate.h"

#include "shell/base/lotLook.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

TSelectTemplateForm::TSelectTemplateForm(std::span<const std::string> names, QWidget* parent)
    : QDialog(parent), lstTemplates(new QListWidget(this)) {
    setObjectName("SelectTemplateForm");
    setWindowTitle("Select Template");
    lstTemplates->setObjectName("lstTemplates");
    for (const std::string& name : names) {
        lstTemplates->addItem(new QListWidgetItem(look::Icon("new"), QString::fromStdString(name)));
    }
    lstTemplates->setCurrentRow(0);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lstTemplates, &QListWidget::itemActivated, this, &QDialog::accept);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    layout->setSpacing(look::WideGap);
    layout->addWidget(lstTemplates);
    layout->addWidget(buttons);
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
