// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes the Project element, attributes and children in the order that the format has always had.
#pragma once

#include "model/lotProject.h"
#include "persistence/lotXml.h"

class TlotProjectWriter {
public:
    explicit TlotProjectWriter(TlotProject& project) : FProject(project) {}

    void Write(TlotElementWriter e);

private:
    void WriteAttributes(TlotElementWriter& e) const;
    void WriteReportSettings(TlotElementWriter& e) const;
    void WriteShowFlags(TlotElementWriter& e) const;
    void WriteUnits(TlotElementWriter& e);
    void WriteSections(TlotElementWriter& e);
    void WriteInflation(TlotElementWriter e) const;
    void WriteFunding(TlotElementWriter e) const;
    void WriteEquity(TlotElementWriter e) const;

    TlotProject& FProject;
};
