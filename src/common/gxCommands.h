// SPDX-License-Identifier: GPL-3.0-or-later
//
// Commands that are known by name, so that whoever offers them (a menu, a cell's pop-up) need not know what they do.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TgxCommand {
public:
    TgxCommand() = default;
    TgxCommand(const TgxCommand&) = delete;
    TgxCommand& operator=(const TgxCommand&) = delete;
    virtual ~TgxCommand() = default;

    /// False where it decided not to run. Throws what the work throws.
    virtual bool Execute(std::string_view parameter) = 0;
};

/// Owns commands under names that are compared ignoring case.
class TgxCommandLibrary {
public:
    void Clear() noexcept;
    /// Of two commands of one name the first is found.
    void Add(std::unique_ptr<TgxCommand> command, std::string name);
    /// Throws ELotError with the text "Command NAME does not exist".
    bool Execute(std::string_view name) const;
    /// In the order of registration.
    [[nodiscard]] const std::vector<std::string>& Names() const noexcept { return FNames; }

private:
    std::vector<std::string> FNames;
    std::vector<std::unique_ptr<TgxCommand>> FCommands; // At the indexes of their names.
};
