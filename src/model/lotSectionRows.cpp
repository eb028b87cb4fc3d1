// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotSectionRows.h"

void AddSections(TlotProject& project, std::span<const TSectionRow> sections) {
    for (const TSectionRow& row : sections) {
        TlotSection& section = project.Sections.Add();
        section.Name = row.Name;
        section.Group = row.Group;
        section.DefaultBase = row.DefaultBase;
        section.Income = row.Income;
        for (const TItemRow& itemRow : row.Items) {
            TlotItem& item = section.Items.Add();
            item.Name = itemRow.Name;
            item.Amount.Value = itemRow.Amount;
            item.Percentage = itemRow.Percentage;
            item.BaseFormula = itemRow.BaseFormula;
            item.Link = itemRow.Link;
        }
    }
}
