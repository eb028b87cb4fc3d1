// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotSystem.h"

TlotSystem::TlotSystem(double today) : Project(today), Version(LOTMASTER_VERSION) {}
