// SPDX-License-Identifier: GPL-3.0-or-later
//
// The owner of the one project of a process. The composition makes one, before everything that works on the project,
// and it outlives them.
#pragma once

#include "model/lotProject.h"
#include "sensitivity/lotSAModel.h"

#include <string>

class TlotSystem {
public:
    /// `today`: see TlotProject.
    explicit TlotSystem(double today);

    TlotProject Project;
    TlotSAModelOld SAModelOld; ///< The two models work on the project, which is why they live beside it, not in it.
    TlotSAModelNew SAModelNew;
    const std::string Version; ///< Of the program, as it was built.
};
