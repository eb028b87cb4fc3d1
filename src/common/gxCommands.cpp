// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/gxCommands.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <utility>

void TgxCommandLibrary::Clear() noexcept {
    FNames.clear();
    FCommands.clear();
}

void TgxCommandLibrary::Add(std::unique_ptr<TgxCommand> command, std::string name) {
    FNames.push_back(std::move(name));
    FCommands.push_back(std::move(command));
}

bool TgxCommandLibrary::Execute(std::string_view name) const {
    const auto found = std::ranges::find_if(FNames, [&](const std::string& own) { return vip::SameText(own, name); });
    if (found == FNames.end()) {
        throw ELotError("Command " + std::string(name) + " does not exist");
    }
    return FCommands[static_cast<std::size_t>(found - FNames.begin())]->Execute({});
}
