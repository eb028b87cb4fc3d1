// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/datApp.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotAtomicFile.h"
#include "persistence/lotTextFile.h"

#include <unistd.h>

#include <filesystem>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr const char* ProductFolder = "Tarvane/Lotmaster/";
constexpr const char* OptionsName = "Lotmaster.ini";
constexpr const char* CompanyName = "Company.txt";

/// Makes the folder if it is missing. False where it is no folder in the end.
bool MakeFolder(const std::string& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    return fs::is_directory(folder, error);
}

/// The place below a well-known folder, or, where that was not found, below the program's.
std::string Below(const std::string& wellKnown, const char* name, const std::string& fallback) {
    return wellKnown.empty() ? fallback : WithSlash(wellKnown) + name;
}

/// The path that follows "-syspath" or "/syspath"; empty if none does, nothing without that switch.
std::optional<std::string> SystemPathArgument(const std::vector<std::string>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if ((argument.starts_with('-') || argument.starts_with('/')) && vip::SameText(argument.substr(1), "syspath")) {
            return i + 1 < arguments.size() ? arguments[i + 1] : std::string();
        }
    }
    return std::nullopt;
}

/// Made for this user alone, since what passes through it is confidential; false where another user's is in the way.
bool MakePrivateFolder(const std::string& folder) {
    std::error_code error;
    const bool there = fs::exists(fs::symlink_status(folder.substr(0, folder.size() - 1), error));
    if (!MakeFolder(folder)) {
        return false;
    }
    if (!there) {
        fs::permissions(folder, fs::perms::owner_all, error);
    }
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

} // namespace

TlotStart ProcessStart(int argc, const char* const* argv) {
    TlotStart start;
    start.ProgramFolder = ExecutableFolder();
    start.NetworkDrive = IsNetworkFolder(start.ProgramFolder);
    start.Folders = FindWellKnownFolders(ProcessEnvironment(), ProductFolder);
    start.Arguments.assign(argc > 0 ? argv + 1 : argv, argv + argc);
    start.Locale = vip::EnvironmentNumberLocale();
    return start;
}

TAppData::TAppData(const TlotStart& start, TlotMessageService& messages) : FLocale(start.Locale) {
    ProgramFolder = WithSlash(start.ProgramFolder);
    OlderReportFolder = ProgramFolder + "Reports/";
    NewerReportFolder = ProgramFolder + "Reports4/";
    FindSystemFolder(start, messages);
    UserFolder = Below(start.Folders.UserAppData, ProductFolder, ProgramFolder + "Application Data/");
    OptionsFile = SystemFolder + OptionsName;
    CompanyFile = SystemFolder + CompanyName;
    UserSettingsFile = UserFolder + "User.ini";
    FilesFolder = Below(start.Folders.Documents, "Lotmaster/", ProgramFolder + "Files/");
    TemplatesFolder = FilesFolder + "Templates/";
    if (start.OnlyReads) {
        // An installation that nobody has started yet has its first settings beside the program still.
        for (std::string* const file : {&OptionsFile, &CompanyFile}) {
            std::error_code error;
            if (!fs::exists(*file, error)) {
                *file = ProgramFolder + fs::path(*file).filename().string();
            }
        }
    } else {
        MakeFolders(start, messages);
    }
    LoadOptions();
    UserSettings.Load(UserSettingsFile);
}

void TAppData::MakeFolders(const TlotStart& start, TlotMessageService& messages) {
    for (const std::string& folder : {SystemFolder, UserFolder, FilesFolder, TemplatesFolder}) {
        MakeFolder(folder);
    }
    FindTemporaryFolder(start.Folders, messages);
    if (!start.NetworkDrive) {
        CopyFirstSettings();
    }
}

void TAppData::FindSystemFolder(const TlotStart& start, TlotMessageService& messages) {
    if (const std::optional<std::string> path = SystemPathArgument(start.Arguments)) {
        std::error_code error;
        if (fs::is_directory(*path, error)) {
            SystemFolder = WithSlash(*path);
            return;
        }
        messages.Show(TlotMessageKind::Warning, "System Path \"" + *path +
                                                    "\" does not exist - reverting to default.\r\n\r\n"
                                                    "Please contact your System Administrator.");
    }
    SystemFolder = start.NetworkDrive
                       ? ProgramFolder
                       : Below(start.Folders.CommonAppData, ProductFolder, ProgramFolder + "Application Data/");
}

void TAppData::FindTemporaryFolder(const TlotWellKnownFolders& folders, TlotMessageService& messages) {
    constexpr const char* name = "Quillbrook/";
    TemporaryFolder = WithSlash(folders.Temporary) + name;
    if (MakePrivateFolder(TemporaryFolder)) {
        return;
    }
    // On a machine of several users the first of them owns the folder in the common place.
    if (const std::string own = WithSlash(folders.OwnTemporary) + name;
        !folders.OwnTemporary.empty() && MakePrivateFolder(own)) {
        TemporaryFolder = own;
        return;
    }
    messages.Show(TlotMessageKind::Error, "Cannot create temp folder " + TemporaryFolder);
}

/// The files beside the program serve as first settings: a copy that is there already always stays.
void TAppData::CopyFirstSettings() const {
    for (const char* const name : {OptionsName, CompanyName}) {
        const std::string source = ProgramFolder + name;
        const std::string target = SystemFolder + name;
        std::error_code error;
        if (!fs::is_regular_file(source, error) || fs::exists(fs::symlink_status(target, error))) {
            continue;
        }
        try {
            WriteFileAtomically(target, ReadTextFile(source));
        } catch (const EFileError&) {
            // The defaults hold then.
        }
    }
}
