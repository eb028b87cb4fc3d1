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
    /// A loan's month may be negative: calculating refuses that. Throws EFileError above lotLimits::Months.
    [[nodiscard]] std::int32_t LoanMonth(const TlotElement& e, const char* name) const;
    /// Takes a section, and a loan that is read, into account. Throw EFileError beyond the limits.
    void CountSection(const TlotElement& e);
    void CountLoan(const TlotElement& e, const TlotLoan& loan);
    /// Throws EFileError at one object too many.
    void CountObject(const TlotElement& e);

private:
    void CountRows(const TlotElement& e, int rows, int months);

    const TNumberLocale& FLocale;
    int FObjects = 0;
    int FRows = 0;    ///< Rows of months that a calculation will hold.
    int FLongest = 0; ///< Months of the longest; any linked line may come out as long.
};
