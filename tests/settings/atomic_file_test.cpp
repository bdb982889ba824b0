#include "settings/atomic_file.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/temp_dir.h"

namespace {

namespace fs = std::filesystem;
using aurel::TempFiles;

std::string Contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool Save(const std::string& path, const std::string& text, std::string* why = nullptr,
          TempFiles temps = TempFiles::kUnnamedWherePossible) {
    return aurel::WriteFileAtomically(
        path, [&text](aurel::BinStream& s) { return s.Write(text.size(), text.data()); }, why, temps);
}

std::size_t Entries(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

TEST(AtomicFile, FailureLeavesTheEarlierFileUntouched) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("doc.txt");
    ASSERT_TRUE(Save(path, "old"));
    EXPECT_EQ(Contents(path), "old");
    for (TempFiles temps : {TempFiles::kUnnamedWherePossible, TempFiles::kNamed}) {
        std::string why = "unchanged";
        EXPECT_FALSE(aurel::WriteFileAtomically(
            path,
            [](aurel::BinStream& s) {
                s.Write(3, "new");
                return false;  // the writer gave up half way
            },
            &why, temps));
        EXPECT_EQ(why, "unchanged");  // nothing of the system's to tell
        EXPECT_EQ(Contents(path), "old");
        EXPECT_EQ(Entries(dir.Path()), 1u);  // no temporary left
    }
    std::string why;
    EXPECT_FALSE(Save(dir.File("missing/doc.txt"), "x", &why));
    EXPECT_EQ(why, "No such file or directory");
    ASSERT_TRUE(Save(path, "new"));
    EXPECT_EQ(Contents(path), "new");
}

TEST(AtomicFile, KeepsTheModeOfTheFileItReplaces) {
    kovra::test::TempDir dir;
    const std::string path = dir.File("doc.txt");
    ASSERT_TRUE(Save(path, "old"));
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_TRUE(Save(path, "new", nullptr, TempFiles::kNamed));
    ASSERT_TRUE(Save(path, "newer"));
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST(AtomicFile, WritesThroughSymbolicLinksToTheirTargets) {
    kovra::test::TempDir dir;
    fs::create_directories(dir.Path() / "real");
    ASSERT_TRUE(Save(dir.File("real/doc.ske"), "old"));
    fs::create_symlink("real/doc.ske", dir.Path() / "relative.ske");
    fs::create_symlink(dir.Path() / "relative.ske", dir.Path() / "chain.ske");
    fs::create_symlink("real/new.ske", dir.Path() / "dangling.ske");
    for (const char* link : {"relative.ske", "chain.ske"}) {
        SCOPED_TRACE(link);
        const std::string text = std::string("through ") + link;
        ASSERT_TRUE(Save(dir.File(link), text));
        EXPECT_TRUE(fs::is_symlink(dir.Path() / link));
        EXPECT_EQ(Contents(dir.File("real/doc.ske")), text);
    }
    ASSERT_TRUE(Save(dir.File("dangling.ske"), "created"));
    EXPECT_TRUE(fs::is_symlink(dir.Path() / "dangling.ske"));
    EXPECT_EQ(Contents(dir.File("real/new.ske")), "created");

    fs::create_symlink("loop2", dir.Path() / "loop1");
    fs::create_symlink("loop1", dir.Path() / "loop2");
    std::string why;
    EXPECT_FALSE(Save(dir.File("loop1"), "x", &why));
    EXPECT_EQ(why, "Too many levels of symbolic links");
}

TEST(AtomicFile, ASaveKilledBeforeItsRenameLeavesNothingBehind) {
    for (TempFiles temps : {TempFiles::kUnnamedWherePossible, TempFiles::kNamed}) {
        kovra::test::TempDir dir;
        const std::string path = dir.File("doc.ske");
        ASSERT_TRUE(Save(path, "old"));
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            aurel::WriteFileAtomically(
                path,
                [](aurel::BinStream& s) {
                    const std::string big(1 << 20, 'x');
                    s.Write(big.size(), big.data());
                    raise(SIGKILL);
                    return true;
                },
                nullptr, temps);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(Contents(path), "old");
        // An unnamed file vanishes with the process; a named one is removed by the next save there.
        EXPECT_EQ(Entries(dir.Path()), temps == TempFiles::kNamed ? 2u : 1u);
        ASSERT_TRUE(Save(dir.File("other.ske"), "other"));
        EXPECT_EQ(Entries(dir.Path()), 2u);
    }
}

TEST(AtomicFile, LongNamesAndPaths) {
    kovra::test::TempDir dir;
    const std::string longest(255, 'n');
    for (TempFiles temps : {TempFiles::kUnnamedWherePossible, TempFiles::kNamed}) {
        ASSERT_TRUE(Save(dir.File(longest), "x", nullptr, temps));
        EXPECT_EQ(Contents(dir.File(longest)), "x");
    }
    // A path of 2,049 characters exists on Linux, but no file is written at one.
    fs::path folder = dir.Path();
    while (folder.string().size() < 2049 - 250) {
        folder /= std::string(200, 'd');
    }
    fs::create_directories(folder);
    const std::string path = (folder / std::string(2049 - folder.string().size() - 1, 'f')).string();
    ASSERT_EQ(path.size(), 2049u);
    std::string why;
    EXPECT_FALSE(Save(path, "x", &why));
    EXPECT_NE(why.find("2048"), std::string::npos) << why;
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(Save(path.substr(0, 2048), "x"));
}

// Each runs in a child process of a death test: it drops the privileges that would let it write a
// locked folder, or limits the size of the files it may write, then saves and exits 0 when the save
// failed for `expected`.
void SaveFailsSaying(const std::string& path, const std::string& expected) {
    std::string why;
    const bool saved = Save(path, std::string(1 << 16, 'x'), &why);
    std::fprintf(stderr, "%s\n", why.c_str());
    _exit(!saved && why == expected ? 0 : 1);
}

void SaveWithoutPrivileges(const std::string& path) {
    if (getuid() == 0 && setuid(65534) != 0) {
        _exit(2);
    }
    SaveFailsSaying(path, "Permission denied");
}

void SaveWithSmallFileLimit(const std::string& path) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1024, 1024};
    setrlimit(RLIMIT_FSIZE, &limit);
    SaveFailsSaying(path, "File too large");
}

TEST(AtomicFile, SaysWhyASaveFailed) {
    kovra::test::TempDir dir;
    fs::create_directories(dir.Path() / "locked");
    fs::permissions(dir.Path() / "locked", fs::perms::owner_read | fs::perms::owner_exec);
    fs::permissions(dir.Path(), fs::perms::others_exec, fs::perm_options::add);
    EXPECT_EXIT(SaveWithoutPrivileges(dir.File("locked/doc.ske")), testing::ExitedWithCode(0),
                "Permission denied");
    EXPECT_EXIT(SaveWithSmallFileLimit(dir.File("big.ske")), testing::ExitedWithCode(0), "File too large");
    EXPECT_EQ(Entries(dir.Path()), 1u);
}

}  // namespace
