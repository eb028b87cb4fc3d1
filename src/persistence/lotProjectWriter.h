// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes the Project element, attributes and children in the order that the format has always had.
#pragma once

#include "model/lotProject.h"
#include "persistence/lotXml.h"

/// Simplifies the lines that it writes, which is why the project may change: shapes that are plain become so in it too.
void WriteProject(TlotElementWriter e, TlotProject& project);
