// SPDX-License-Identifier: GPL-3.0-or-later
//
// The walk of the Project element into a cleared project, with every branch by file version. Throws a kind of ELotError
// that names the element, and leaves the project half filled then.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"
#include "persistence/lotXml.h"

#include <pugixml.hpp>

class TlotProjectReader {
public:
    TlotProjectReader(TlotProject& project, double version, const TNumberLocale& locale, double today)
        : FProject(project), FVersion(version), FLocale(locale), FToday(today) {}

    void Read(pugi::xml_node node);

private:
    void ReadAttributes(const TlotElement& e);
    void ReadSiteAndResidual(const TlotElement& e);
    void ReadReportSettings(const TlotElement& e);
    void ReadShowFlags(const TlotElement& e);
    void ReadStartDate(const TlotElement& e);
    void ReadUnitTypes(const TlotElement& project);
    void ReadChild(const TlotElement& e);
    void ReadUnit(const TlotElement& e);
    void ReadUnitType(const TlotElement& e, TlotUnit& unit) const;
    void ReadUnitChildren(const TlotElement& e, TlotUnit& unit);
    void ReadSection(const TlotElement& e);
    void ReadItem(const TlotElement& e, TlotSection& section);
    void ReadInflation(const TlotElement& e);
    void ReadFunding(const TlotElement& e);
    void ReadLoan(const TlotElement& e);
    void ReadLoanTerms(const TlotElement& e, TlotLoan& loan) const;
    void ReadEquity(const TlotElement& e);
    void ReadSpread(const TlotElement& e, TlotCashflowItem& line);
    void CountObject(const TlotElement& e);
    void CheckSize() const;

    [[nodiscard]] TlotElement Element(pugi::xml_node node) const { return {node, FLocale}; }

    TlotProject& FProject;
    double FVersion = 0;
    const TNumberLocale& FLocale;
    double FToday = 0;
    int FObjects = 0;
    int FLines = 0;
    int FLongest = 0;
};
