// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stands in the work area for a screen that this version hasn't got, and says so.
#pragma once

#include "shell/base/lotViewForm.h"

class TNotBuiltView : public TViewForm {
public:
    explicit TNotBuiltView(const QString& screen, QWidget* parent = nullptr);
};
