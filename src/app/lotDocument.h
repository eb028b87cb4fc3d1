// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the open project is to its user: a file of some name, or none yet, and whether it has changes that no file
// holds. The one place where either is set.
#pragma once

#include <string>
#include <utility>

class TlotDocument {
public:
    [[nodiscard]] const std::string& FileName() const noexcept { return FFileName; } ///< Empty without a file.
    /// Since the project was opened, saved or begun.
    [[nodiscard]] bool Changed() const noexcept { return FChanged; }
    /// Without its folder.
    [[nodiscard]] std::string NameOnly() const;
    /// The file is a project, by its extension in any letter case, and no template or import.
    [[nodiscard]] bool IsProjectFile() const;

    void MarkChanged() noexcept { FChanged = true; }
    /// The project is what that file holds: it was opened from it, or saved in it.
    void SetFile(std::string name) {
        FFileName = std::move(name);
        FChanged = false;
    }
    /// The file of that name, the one there is, holds the project as it is.
    void Saved() noexcept { FChanged = false; }
    /// The user gives the changes up.
    void GiveUpChanges() noexcept { FChanged = false; }
    /// A project was begun that has no file; the mark stays as it is.
    void ForgetFile() noexcept { FFileName.clear(); }

private:
    std::string FFileName;
    bool FChanged = false;
};
