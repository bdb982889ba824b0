#include "doc/recovery_store.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

namespace fs = std::filesystem;

class RecoveryStoreTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    // A document saved once at dir/work/doc.ske, with an image and a background beside it, then changed.
    void SetUp() override {
        fs::create_directories(dir.Path() / "work");
        doc.Reset(true);
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("work/img/a.png"), 0xFF00FF));
        doc.background.path = dir.File("work/bg.png");
        ASSERT_TRUE(doc.Save(dir.File("work/doc.ske"), true, prompt));
        doc.Wirrel().pinNames.push_back(MakeName("unsaved"));
        doc.notes = "changed since the save";
    }

    std::string Folder() const { return dir.File("state/recovery"); }

    std::size_t Entries() const {
        std::error_code ignored;
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(Folder(), ignored), {}));
    }

    // A session that writes its copy and ends without removing it, as a crash would.
    void CrashAfterWriting(const WirrelDoc& edited) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            RecoveryStore store(Folder());
            _exit(store.Write(edited, prompt) ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }

    test::TempDir dir;
    test::ScriptedPrompt prompt;
    WirrelDoc doc;
};

TEST_F(RecoveryStoreTest, ACrashLeavesACopyThatRestoresAsTheUnsavedDocument) {
    CrashAfterWriting(doc);
    EXPECT_EQ(doc.path.Utf8(), dir.File("work/doc.ske"));  // writing a copy left the document alone

    RecoveryStore next(Folder());
    const std::vector<RecoveryCopy> copies = next.Leftovers();
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_EQ(copies[0].originalPath, dir.File("work/doc.ske"));

    WirrelDoc restored;
    std::vector<WirrelImageRecord> images;
    ASSERT_TRUE(RecoveryStore::Restore(copies[0], restored, prompt, images));
    EXPECT_EQ(restored.Wirrel(), doc.Wirrel());
    EXPECT_EQ(restored.notes.Utf8(), "changed since the save");
    EXPECT_TRUE(restored.hasPath);
    EXPECT_EQ(restored.path.Utf8(), dir.File("work/doc.ske"));
    ASSERT_EQ(images.size(), 1u);
    EXPECT_EQ(images[0].path.Utf8(), dir.File("work/img/a.png"));
    EXPECT_EQ(restored.background.path.Utf8(), dir.File("work/bg.png"));
    EXPECT_TRUE(prompt.asked.empty());

    RecoveryStore::Discard(copies[0]);
    EXPECT_TRUE(next.Leftovers().empty());
    EXPECT_EQ(Entries(), 0u);
}

TEST_F(RecoveryStoreTest, ACleanSaveOrCloseLeavesNoCopy) {
    RecoveryStore store(Folder());
    ASSERT_TRUE(store.Write(doc, prompt));
    doc.notes = "changed again";
    ASSERT_TRUE(store.Write(doc, prompt));  // the copy is replaced, not added to
    EXPECT_EQ(Entries(), 3u);
    // A copy of a session that is still running is not offered.
    EXPECT_TRUE(RecoveryStore(Folder()).Leftovers().empty());
    store.Remove();
    EXPECT_EQ(Entries(), 0u);
    EXPECT_TRUE(RecoveryStore(Folder()).Leftovers().empty());
}

TEST_F(RecoveryStoreTest, ADocumentNeverSavedComesBackWithoutAPath) {
    WirrelDoc fresh;
    fresh.Reset(true);
    fresh.notes = "new work";
    CrashAfterWriting(fresh);
    CrashAfterWriting(doc);
    const std::vector<RecoveryCopy> copies = RecoveryStore(Folder()).Leftovers();
    ASSERT_EQ(copies.size(), 2u);
    const auto unsaved = std::find_if(copies.begin(), copies.end(),
                                      [](const RecoveryCopy& copy) { return copy.originalPath.empty(); });
    ASSERT_NE(unsaved, copies.end());
    WirrelDoc restored;
    std::vector<WirrelImageRecord> images;
    ASSERT_TRUE(RecoveryStore::Restore(*unsaved, restored, prompt, images));
    EXPECT_FALSE(restored.hasPath);
    EXPECT_EQ(restored.notes.Utf8(), "new work");
}

TEST(RecoveryFolder, UnderTheUsersStateFolder) {
    const char* saved = std::getenv("XDG_STATE_HOME");
    const std::string kept = saved ? saved : "";
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(RecoveryFolder(), "/state/Kovra/recovery");
    setenv("XDG_STATE_HOME", "", 1);
    EXPECT_EQ(RecoveryFolder(), std::string(std::getenv("HOME")) + "/.local/state/Kovra/recovery");
    if (saved) {
        setenv("XDG_STATE_HOME", kept.c_str(), 1);
    } else {
        unsetenv("XDG_STATE_HOME");
    }
}

}  // namespace
}  // namespace kovra
