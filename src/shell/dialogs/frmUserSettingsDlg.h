// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings of one user: the fonts of the two sheets.
#pragma once

#include "persistence/lotUserSettings.h"

#include <QDialog>
#include <initializer_list>

class QComboBox;
class QGridLayout;

class TUserSettingsDlgForm : public QDialog {
    Q_OBJECT

public:
    explicit TUserSettingsDlgForm(const TlotUserSettings& settings, QWidget* parent = nullptr);

    /// Copies what was chosen.
    void Store(TlotUserSettings& settings) const;

private:
    struct TRow {
        QComboBox* Name;
        QComboBox* Size;
    };
    TRow AddRow(QGridLayout& grid, int row, const QString& caption, const QString& name, const TlotViewFont& font,
                std::initializer_list<int> sizes);
    static void StoreRow(const TRow& row, TlotViewFont& font);

    TRow FCashflow; // Owned by the dialog.
    TRow FTimescale;
};
