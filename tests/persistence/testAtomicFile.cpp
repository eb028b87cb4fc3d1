// SPDX-License-Identifier: GPL-3.0-or-later
//
// Saving as one step: the old file or the new one is there, whole, and nothing besides.
#include "common/vipErrors.h"
#include "persistence/lotAtomicFile.h"
#include "support/lotFiles.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace fs = std::filesystem;

namespace {

TEST(AtomicFile, ReplacedFileKeepsItsPermissions) {
    const TTempFolder folder;
    const std::string file = folder.Write("shared.lot", "old");
    constexpr fs::perms mode = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_write;
    fs::permissions(file, mode);
    WriteFileAtomically(file, "new");
    EXPECT_EQ(ReadBytes(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), mode);
    EXPECT_EQ(folder.Count(), 1);
}

TEST(AtomicFile, LinkStaysALinkAndItsTargetIsReplaced) {
    const TTempFolder folder;
    fs::create_directory(folder.File("store"));
    const std::string real = folder.Write("store/real.lot", "old");
    fs::create_symlink("store/real.lot", folder.File("link.lot"));
    WriteFileAtomically(folder.File("link.lot"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.File("link.lot")));
    EXPECT_EQ(ReadBytes(real), "new");
}

std::string Failure(const std::string& file, const std::string& content) {
    try {
        WriteFileAtomically(file, content);
    } catch (const EFileError& error) {
        return error.what();
    }
    return {};
}

TEST(AtomicFile, FullDiskLeavesTheOldFileAndNoOther) {
    const TTempFolder folder;
    const std::string file = folder.Write("scheme.lot", "old");
    // A limit on the size of files stands in for the end of the disk.
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{4096, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &full);
    const std::string message = Failure(file, std::string(10'000, 'n'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(message.rfind(file + ": ", 0), 0U) << message;
    EXPECT_EQ(ReadBytes(file), "old");
    EXPECT_EQ(folder.Count(), 1);
}

/// Runs in a child process that is killed, and must never return into the test's code there: a failure ends it.
[[noreturn]] void SaveForEver(const std::string& file, const std::string (&contents)[2]) noexcept {
    for (unsigned i = 0;; ++i) {
        WriteFileAtomically(file, contents[i % 2]);
    }
}

TEST(AtomicFile, SaverThatIsKilledLeavesAWholeFile) {
    const TTempFolder folder;
    const std::string contents[] = {std::string(400'000, 'a'), std::string(700'000, 'b')};
    const std::string file = folder.Write("scheme.lot", contents[0]);
    for (int round = 0; round < 10; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            SaveForEver(file, contents);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(3 + 2 * round));
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the saver failed";
        const std::string found = ReadBytes(file);
        EXPECT_TRUE(found == contents[0] || found == contents[1]) << found.size() << " bytes";
    }
}

} // namespace
