// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmUserSettingsDlg.h"

#include "shell/base/lotLook.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

TUserSettingsDlgForm::TUserSettingsDlgForm(const TlotUserSettings& settings, QWidget* parent) : QDialog(parent) {
    setObjectName("UserSettingsDlgForm");
    setWindowTitle("User Settings");
    auto* const page = new QWidget(this);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(look::WideGap);
    grid->setVerticalSpacing(look::Gap);
    // The two lists of sizes differ, deliberately: the timescale's cells leave less room.
    FCashflow = AddRow(*grid, 0, "Cashflow:", "Cashflow", settings.CashflowView, {8, 9, 10, 11});
    FTimescale = AddRow(*grid, 1, "Timescale:", "Timescale", settings.TimescaleView, {8, 9, 10});
    auto* const pageLayout = new QVBoxLayout(page);
    pageLayout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    pageLayout->addLayout(grid);
    pageLayout->addStretch();
    auto* const tabs = new QTabWidget(this);
    tabs->addTab(page, "Look && Feel");

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    layout->setSpacing(look::WideGap);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    FCashflow.Name->setFocus();
}

TUserSettingsDlgForm::TRow TUserSettingsDlgForm::AddRow(QGridLayout& grid, int row, const QString& caption,
                                                        const QString& name, const TlotViewFont& font,
                                                        std::initializer_list<int> sizes) {
    const TRow fields{new QComboBox(this), new QComboBox(this)};
    fields.Name->setObjectName(name + "FontName");
    fields.Name->setAccessibleName(caption + " font");
    fields.Name->addItems(QFontDatabase::families());
    // A font of another machine stays chosen until another one is.
    const QString present = QString::fromStdString(font.Name);
    if (fields.Name->findText(present, Qt::MatchFixedString) < 0) {
        fields.Name->insertItem(0, present);
    }
    fields.Name->setCurrentIndex(fields.Name->findText(present, Qt::MatchFixedString));
    fields.Name->setMinimumWidth(260);
    fields.Size->setObjectName(name + "FontSize");
    fields.Size->setAccessibleName(caption + " size");
    for (const int size : sizes) {
        fields.Size->addItem(QString::number(size), size);
    }
    if (fields.Size->findData(font.Size) < 0) {
        fields.Size->addItem(QString::number(font.Size), font.Size);
    }
    fields.Size->setCurrentIndex(fields.Size->findData(font.Size));

    auto* const label = new QLabel(caption, this);
    label->setBuddy(fields.Name);
    grid.addWidget(label, row, 0);
    grid.addWidget(fields.Name, row, 1);
    grid.addWidget(fields.Size, row, 2);
    grid.setColumnStretch(1, 1);
    return fields;
}

void TUserSettingsDlgForm::StoreRow(const TRow& row, TlotViewFont& font) {
    font.Name = row.Name->currentText().toStdString();
    font.Size = row.Size->currentData().toInt();
}

void TUserSettingsDlgForm::Store(TlotUserSettings& settings) const {
    StoreRow(FCashflow, settings.CashflowView);
    StoreRow(FTimescale, settings.TimescaleView);
}
