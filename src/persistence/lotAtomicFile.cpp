// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotAtomicFile.h"

#include "common/vipErrors.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& fileName, int error) {
    throw EFileError(fileName + ": " + std::strerror(error));
}

/// A file under a name of its own in the folder of the target; gone again unless it was renamed over it.
class TNewFile {
public:
    /// `shownName` is how the user knows the target.
    TNewFile(const fs::path& target, const std::string& shownName) : FTarget(target), FShownName(shownName) {
        const std::string pattern = (target.parent_path() / ".lotmaster-XXXXXX").string();
        std::vector<char> name(pattern.begin(), pattern.end());
        name.push_back('\0');
        FDescriptor = ::mkstemp(name.data());
        if (FDescriptor < 0) {
            Fail(shownName, errno);
        }
        FName = name.data();
    }
    TNewFile(const TNewFile&) = delete;
    TNewFile& operator=(const TNewFile&) = delete;
    ~TNewFile() {
        Close();
        if (!FName.empty()) {
            ::unlink(FName.c_str());
        }
    }

    void Write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t written = ::write(FDescriptor, content.data(), content.size());
            if (written < 0 && errno == EINTR) {
                continue;
            }
            Check(written >= 0);
            content.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    void TakePermissions() {
        struct stat old {};
        if (::stat(FTarget.c_str(), &old) == 0) {
            Check(::fchmod(FDescriptor, old.st_mode & 07777) == 0);
            // Only root may give a file away; for anyone else the writer owns the new file, as with any save.
            [[maybe_unused]] const int ignored = ::fchown(FDescriptor, old.st_uid, old.st_gid);
        } else {
            const mode_t mask = ::umask(0);
            ::umask(mask);
            Check(::fchmod(FDescriptor, 0666 & ~mask) == 0);
        }
    }

    void Replace() {
        Check(::fsync(FDescriptor) == 0);
        Check(Close());
        Check(::rename(FName.c_str(), FTarget.c_str()) == 0);
        FName.clear();
    }

private:
    void Check(bool succeeded) const {
        if (!succeeded) {
            Fail(FShownName, errno);
        }
    }
    bool Close() {
        const int descriptor = FDescriptor;
        FDescriptor = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

    fs::path FTarget;
    std::string FShownName;
    std::string FName;
    int FDescriptor = -1;
};

/// Makes the renaming itself last; a file system that cannot is no reason to fail, the content being whole either way.
void SyncFolder(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

fs::path Target(const std::string& fileName) {
    std::error_code error;
    fs::path target = fs::absolute(fileName, error);
    if (error) {
        target = fileName;
    }
    if (fs::is_symlink(target, error)) {
        const fs::path real = fs::canonical(target, error);
        // A link to nothing yet has its target made.
        target = error ? target.parent_path() / fs::read_symlink(target, error) : real;
    }
    return target;
}

} // namespace

bool IsReadOnlyFile(const std::string& fileName) {
    std::error_code error;
    const fs::file_status status = fs::status(fileName, error);
    if (error || !fs::exists(status)) {
        return false;
    }
    constexpr fs::perms anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (status.permissions() & anyWrite) == fs::perms::none || ::access(fileName.c_str(), W_OK) != 0;
}

void WriteFileAtomically(const std::string& fileName, std::string_view content) {
    const fs::path target = Target(fileName);
    std::error_code error;
    if (const fs::file_status status = fs::status(target, error); fs::exists(status) && !fs::is_regular_file(status)) {
        throw EFileError(fileName + ": is no file that can be replaced");
    }
    TNewFile file(target, fileName);
    file.Write(content);
    file.TakePermissions();
    file.Replace();
    SyncFolder(target.parent_path());
}
