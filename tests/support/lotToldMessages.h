// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes down what the user would be told of failures, for as long as it lives.
#pragma once

#include "app/lotFailures.h"

#include <string>
#include <utility>

class TToldMessages final : public TlotMessageService {
public:
    /// "text|" for each message since the last call.
    [[nodiscard]] std::string Take() { return std::exchange(FTold, {}); }

    void Show(TlotMessageKind /*kind*/, std::string_view text) override { FTold += std::string(text) + "|"; }

private:
    std::string FTold;
    TFailureMessages FMessages{*this};
};
