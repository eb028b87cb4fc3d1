// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotFolders.h"

#include "common/vipText.h"

#include <pwd.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace {

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

bool IsAbsolute(std::string_view path) {
    return path.starts_with('/');
}

/// `path` if it is absolute, otherwise the place below the user's home, if there is one.
std::string PathOrHome(const std::string& path, const std::string& home, const char* below) {
    if (IsAbsolute(path)) {
        return WithSlash(path);
    }
    return IsAbsolute(home) ? WithSlash(home) + below : std::string();
}

/// The value of a line `XDG_DOCUMENTS_DIR="..."`, in which a backslash makes the next character plain.
std::optional<std::string> DocumentsLine(std::string_view line, const std::string& home) {
    constexpr std::string_view start = "XDG_DOCUMENTS_DIR=\"";
    line = vip::Trim(line);
    if (!line.starts_with(start)) {
        return std::nullopt;
    }
    line.remove_prefix(start.size());
    std::string path;
    if (constexpr std::string_view homeVariable = "$HOME"; line.starts_with(homeVariable)) {
        line.remove_prefix(homeVariable.size());
        path = home;
    }
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        i += line[i] == '\\' && i + 1 < line.size() ? 1 : 0;
        path.push_back(line[i]);
    }
    return IsAbsolute(path) ? std::optional(path) : std::nullopt;
}

/// As the desktop's own list of the user's folders says; the last line holds.
std::string DocumentsFolder(const TlotEnvironment& environment, const std::string& configHome) {
    std::string listed;
    std::ifstream file(configHome + "user-dirs.dirs");
    for (std::string line; std::getline(file, line);) {
        if (auto path = DocumentsLine(line, environment.Home)) {
            listed = *std::move(path);
        }
    }
    return PathOrHome(listed, environment.Home, "Documents/");
}

bool CanHold(const std::string& folder, const std::string& product) {
    std::error_code error;
    return IsAbsolute(folder) && (fs::is_directory(WithSlash(folder) + product, error) ||
                                  (fs::is_directory(folder, error) && ::access(folder.c_str(), W_OK) == 0));
}

} // namespace

TlotEnvironment ProcessEnvironment() {
    TlotEnvironment environment;
    environment.Home = Variable("HOME");
    if (environment.Home.empty()) {
        const passwd* const user = ::getpwuid(::getuid());
        environment.Home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
    }
    environment.ConfigHome = Variable("XDG_CONFIG_HOME");
    environment.DataHome = Variable("XDG_DATA_HOME");
    environment.Temporary = Variable("TMPDIR");
    environment.RuntimeFolder = Variable("XDG_RUNTIME_DIR");
    return environment;
}

TlotWellKnownFolders FindWellKnownFolders(const TlotEnvironment& environment, const std::string& product) {
    TlotWellKnownFolders folders;
    folders.UserAppData = PathOrHome(environment.ConfigHome, environment.Home, ".config/");
    folders.CommonAppData = CanHold(environment.SharedData, product)
                                ? WithSlash(environment.SharedData)
                                : PathOrHome(environment.DataHome, environment.Home, ".local/share/");
    folders.Documents = DocumentsFolder(environment, folders.UserAppData);
    folders.Temporary = IsAbsolute(environment.Temporary) ? WithSlash(environment.Temporary) : "/tmp/";
    folders.OwnTemporary = IsAbsolute(environment.RuntimeFolder) ? WithSlash(environment.RuntimeFolder) : "";
    return folders;
}

std::string ExecutableFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string() : WithSlash(program.parent_path().string());
}

bool IsNetworkFolder(const std::string& folder) {
    // AFS, AFS of the kernel, Ceph, CIFS, Coda, NCP, NFS, SMB, SMB 2.
    constexpr std::array<std::uint32_t, 9> network = {0x5346414F, 0x6B414653, 0x00C36400, 0xFF534D42, 0x73757245,
                                                      0x0000564C, 0x00006969, 0x0000517B, 0xFE534D42};
    struct statfs system {};
    return ::statfs(folder.c_str(), &system) == 0 &&
           std::ranges::find(network, static_cast<std::uint32_t>(system.f_type)) != network.end();
}

std::string WithSlash(std::string folder) {
    if (!folder.empty() && folder.back() != '/') {
        folder.push_back('/');
    }
    return folder;
}
