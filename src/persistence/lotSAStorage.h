// SPDX-License-Identifier: GPL-3.0-or-later
//
// A sensitivity model's settings in the project file: of each category the form of its labels, its step and its count
// of steps, of each result its decimals. By name, so that a file of another version loads what this one still knows.
#pragma once

#include "common/vipNumber.h"
#include "sensitivity/SAMain.h"

#include <pugixml.hpp>

class TSAReader {
public:
    /// Takes over what the element Sensitivity under `root` says; without one nothing changes.
    static void Read(pugi::xml_node root, TSAModel& model, const TNumberLocale& locale);
};

class TSAWriter {
public:
    /// Adds the element Sensitivity to `root`.
    static void Write(pugi::xml_node root, const TSAModel& model, const TNumberLocale& locale);
};
