// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotSystem.h"

TlotSystem::TlotSystem(double today)
    : Project(today), SAModelOld(Project, {}), SAModelNew(Project, {}), Version(LOTMASTER_VERSION) {}
