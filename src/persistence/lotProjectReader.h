// SPDX-License-Identifier: GPL-3.0-or-later
//
// The walk of the Project element into a cleared project, with every branch by file version. Throws a kind of ELotError
// that names the element, and leaves the project half filled then.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"
#include "persistence/lotReadContext.h"
#include "persistence/lotXml.h"

#include <pugixml.hpp>

class TlotProjectReader {
public:
    TlotProjectReader(TlotProject& project, double version, const TNumberLocale& locale, double today)
        : FProject(project), FContext(version, locale, today) {}

    void Read(pugi::xml_node node);

private:
    void ReadAttributes(const TlotElement& e);
    void ReadOldTarget(const TlotElement& e);
    void ReadUnitTypes(const TlotElement& project);
    void ReadChild(const TlotElement& e);
    void ReadUnit(const TlotElement& e);
    static void ReadOldUnitType(const TlotElement& e, TlotUnit& unit);
    void ReadUnitChild(const TlotElement& e, TlotUnit& unit);
    void ReadSection(const TlotElement& e);
    void ReadItem(const TlotElement& e, TlotSection& section);
    void ReadInflation(const TlotElement& e);

    TlotProject& FProject;
    TlotReadContext FContext;
};
