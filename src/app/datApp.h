// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first data module of a process: works out where everything lives, makes the folders that are missing, gives a new
// installation its first settings, and holds the two settings objects, loaded.
#pragma once

#include "app/lotFolders.h"
#include "app/lotServices.h"
#include "common/vipNumber.h"
#include "persistence/lotOptions.h"
#include "persistence/lotUserSettings.h"

#include <string>
#include <vector>

/// What a process starts with.
struct TlotStart {
    std::string ProgramFolder; ///< That of the executable.
    bool NetworkDrive = false; ///< The program runs from another machine, where it keeps its settings beside it.
    TlotWellKnownFolders Folders;
    std::vector<std::string> Arguments; ///< Of the command line, without the program's name.
    TNumberLocale Locale;               ///< Of the user, for figures in settings.
    bool OnlyReads = false; ///< Makes no folder and no file: for tools that take the settings as they find them.
};

/// The start of this process, with the arguments of its `main`.
[[nodiscard]] TlotStart ProcessStart(int argc, const char* const* argv);

class TAppData {
public:
    /// Tells through `messages` of a system folder on the command line that isn't there, and of a temporary folder that
    /// can't be made; any other folder that can't be made is passed over. Throws nothing on account of files.
    TAppData(const TlotStart& start, TlotMessageService& messages);
    TAppData(const TAppData&) = delete;
    TAppData& operator=(const TAppData&) = delete;
    ~TAppData() = default;

    // Folders end in "/". In the order in which they are worked out.
    std::string ProgramFolder;
    std::string OlderReportFolder;
    std::string NewerReportFolder;
    std::string SystemFolder; ///< Shared by all users of an installation.
    std::string UserFolder;
    std::string OptionsFile;
    std::string CompanyFile;
    std::string UserSettingsFile;
    std::string FilesFolder; ///< Where the open and save dialogs begin.
    std::string TemplatesFolder;
    std::string TemporaryFolder;

    TlotOptions Options;
    TlotUserSettings UserSettings;

    /// From disk, as another user may have changed them.
    void LoadOptions() { Options.Load(OptionsFile, CompanyFile, FLocale); }
    /// Throws EFileError; so does SaveUserSettings.
    void SaveOptions() const { Options.Save(OptionsFile, FLocale); }
    void SaveUserSettings() const { UserSettings.Save(UserSettingsFile); }

private:
    void FindSystemFolder(const TlotStart& start, TlotMessageService& messages);
    void FindTemporaryFolder(const TlotWellKnownFolders& folders, TlotMessageService& messages);
    void MakeFolders(const TlotStart& start, TlotMessageService& messages);
    void CopyFirstSettings() const;

    TNumberLocale FLocale;
};
