// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is typed in a field or a cell reaches the model when it is left. Commands must not wait for that: a menu, a key
// or a closing window leaves the focus where it is.
#pragma once

class QWidget;

/// Ends the edit in progress in `area`, if its field or cell has the focus, as leaving it would. The focus stays with
/// the field, or with what held the cell.
void EndEditIn(QWidget& area);

/// Gives the edit in progress in `area` up, as Escape in the field or cell would.
void DropEditIn(QWidget& area);
