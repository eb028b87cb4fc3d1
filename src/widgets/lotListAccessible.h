// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cards and the pages of reports for assistive programs: a list of cards, each with its caption and its lines, and a
// document of pages, each with its number and its text.
#pragma once

void InstallListAccessible();
