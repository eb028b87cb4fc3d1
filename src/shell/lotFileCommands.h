// SPDX-License-Identifier: GPL-3.0-or-later
//
// The file commands of the main window: New, Open, Save, Save As, and the question that stands before what would lose
// changes. No widgets: what the window must do is handed in.
#pragma once

#include "persistence/lotUserSettings.h"
#include "shell/base/lotDesktop.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// What the file commands ask of the main window.
struct TFileCommandHooks {
    std::function<void()> TakeEdits;  ///< Bring into the project what is typed and not there yet.
    std::function<void()> DropEdits;  ///< The project is about to go: what is typed goes with it.
    std::function<void()> ShowOpened; ///< Everything afresh, with the summary in front: a file was opened.
    std::function<void()> ShowNew;    ///< Everything afresh, with the units in front: a project was begun.
    std::function<void()> NameChanged;
};

class TFileCommands {
public:
    TFileCommands(const TlotDesktop& desktop, TFileCommandHooks hooks);

    TlotRecentFiles RecentFiles;

    /// The gate before changes would be lost, those included that are only typed so far: false stops what was begun.
    /// Throws as Save.
    [[nodiscard]] bool CheckSave();
    /// True if the project is on disk now. Throws EFileError where it can't be written; the old file is whole then, and
    /// the changes still marked.
    bool Save();
    bool SaveAs();
    /// Asks for a file and opens it.
    void FileOpen();
    /// Throws EFileError for a damaged file; project, name and mark are as they were then.
    void OpenProject(const std::string& name);
    /// Opens the file that the command line names, if it names one.
    void OpenArgument(const std::vector<std::string>& arguments);
    void FileNew();
    /// A new project with the sample data.
    void FileTestData();

    /// Where the dialogs begin.
    void SetInitialFolder(std::string folder) { FFolder = std::move(folder); }

private:
    [[nodiscard]] std::string ProposedName() const;

    [[nodiscard]] TlotDocument& Document() const { return FDesktop.Data.Document; }

    TlotDesktop FDesktop;
    TFileCommandHooks FHooks;
    std::string FFolder;
};
