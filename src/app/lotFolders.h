// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where this machine and this user keep things, by the platform's own convention. The process is asked once, for plain
// values; what follows from them is worked out apart, so that a test can stand on a folder of its own.
//
// Folders are texts that end in "/"; an empty one could not be found.
#pragma once

#include <string>

/// What the process says of its user. Empty: not set.
struct TlotEnvironment {
    std::string Home;
    std::string ConfigHome;              ///< XDG_CONFIG_HOME
    std::string DataHome;                ///< XDG_DATA_HOME
    std::string Temporary;               ///< TMPDIR
    std::string RuntimeFolder;           ///< XDG_RUNTIME_DIR
    std::string SharedData = "/var/lib"; ///< State that all users of the machine share.
};

struct TlotWellKnownFolders {
    std::string CommonAppData;
    std::string UserAppData;
    std::string Documents;
    std::string Temporary;
    std::string OwnTemporary; ///< One that no other user can have put anything in.
};

[[nodiscard]] TlotEnvironment ProcessEnvironment();

/// The folders for `product`, a path within the application data folders that tells whether the shared one will do: it
/// does if the product's folder is there or can be made; otherwise the user's data folder stands in for it. Relative
/// paths in the environment don't count.
[[nodiscard]] TlotWellKnownFolders FindWellKnownFolders(const TlotEnvironment& environment, const std::string& product);

/// The folder of the running program.
[[nodiscard]] std::string ExecutableFolder();

/// True if the folder lies on another machine.
[[nodiscard]] bool IsNetworkFolder(const std::string& folder);

/// The folder's name with a "/" at its end; empty stays empty.
[[nodiscard]] std::string WithSlash(std::string folder);
