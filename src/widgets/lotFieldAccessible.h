// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fields for assistive programs, where the toolkit's own answers don't fit: a spin field is a number with a range and a
// text, a label to be clicked is a button.
#pragma once

void InstallFieldAccessible();
