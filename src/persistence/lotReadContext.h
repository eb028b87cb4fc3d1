// SPDX-License-Identifier: GPL-3.0-or-later
//
// What all walks of one project file share: its version, the separators, today, and the account of what the file has
// asked for so far, held against the limits.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"
#include "persistence/lotXml.h"

#include <pugixml.hpp>

class TlotReadContext {
public:
    TlotReadContext(double version, const TNumberLocale& locale, double today)
        : Version(version), Today(today), FLocale(locale) {}

    const double Version;
    const double Today;

    [[nodiscard]] TlotElement Element(pugi::xml_node node) const { return {node, FLocale}; }

    /// Reads a spread into a line and simplifies it once it is complete. Throws EFileError beyond the limits.
    void ReadSpread(const TlotElement& e, TlotCashflowItem& line);
    /// A loan's month may lie before the project, where its calculation is refused, but not beyond all bounds.
    [[nodiscard]] std::int32_t LoanMonth(const TlotElement& e, const char* name) const;
    /// Takes the last month of something that isn't a spread into account.
    void SeeMonth(int month) noexcept;
    /// Throws EFileError at one object too many.
    void CountObject(const TlotElement& e);
    /// Throws EFileError where the project, all read, would take too much memory to calculate.
    void CheckSize(const TlotProject& project) const;

private:
    const TNumberLocale& FLocale;
    int FObjects = 0;
    int FLines = 0;
    int FLongest = 0;
};
