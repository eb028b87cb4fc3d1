// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sheet for assistive programs: a table of its cells' texts as they are shown, with the sheet's own selection. Its
// headers are the column headers of the page, or else its frozen rows; a row is named by its first cell.
#pragma once

void InstallSheetAccessible();
