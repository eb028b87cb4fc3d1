// SPDX-License-Identifier: GPL-3.0-or-later
//
// An icon drawn from one of the program's SVG files at the very size that is asked for, its lines in the colour that
// the palette has for the state it is shown in.
#pragma once

#include <QIcon>
#include <QString>

/// The file :/icons/`name`.svg. Lines in `currentColor` follow the palette; other colours stay as they are drawn.
/// A name that isn't there, or whose file is no drawing, throws ELotError.
[[nodiscard]] QIcon LineIcon(const QString& name);
