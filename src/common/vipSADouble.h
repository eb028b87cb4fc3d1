// SPDX-License-Identifier: GPL-3.0-or-later
//
// TSADouble: a real that a sensitivity scenario may shift. The model reads the current value; the stored one is what
// the user left, kept while a table is computed.
#pragma once

struct TSADouble {
    double Value = 0;
    double Stored = 0;

    void Save() noexcept { Stored = Value; }
    void Restore() noexcept { Value = Stored; }
};

/// The same value under the name that loans, equity and units know it by.
using TlotSADouble = TSADouble;
