// The file commands as the editor reaches them: the menus of examples and recent files, the save
// question on closing the window and on Exit, and the offer of a recovery copy at start.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "app/app.h"
#include "commands/pin_commands.h"
#include "doc/recovery_store.h"
#include "fake_shell_window.h"
#include "settings/theme.h"
#include "state/main_menu.h"
#include "state/state_title.h"
#include "support/english.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

namespace fs = std::filesystem;

// The editor state over a scripted window, with a program folder that holds the shipped language,
// themes and examples, and a recovery folder of its own.
class StateWorkflowTest : public ::testing::Test {
protected:
    StateWorkflowTest() {
        fs::create_directories(dir.Path() / "program");
        for (const char* folder : {"Lang", "Themes", "Examples"}) {
            fs::copy(fs::path(KOVRA_DATA) / folder, dir.Path() / "program" / folder,
                     fs::copy_options::recursive);
        }
        std::ofstream(dir.File("program/Examples/Read me.txt")) << "not an example";
        setenv("XDG_STATE_HOME", dir.File("state").c_str(), 1);
    }
    ~StateWorkflowTest() override {
        if (state) {
            state->Shutdown();
        }
        unsetenv("XDG_STATE_HOME");
        test::LoadEnglish();
        aurel::LoadTheme(aurel::DualString(std::string(KOVRA_DATA) + "/Themes/Paleform.txt"), "Paleform",
                         app.Settings());
    }

    void Start() {
        state = std::make_unique<StateTitle>(window, dir.File("program/"), aurel::DualString());
        state->Attach(app);
        state->Init();
        state->Update();
    }
    // A saved document of one pin, changed since.
    std::string SavedAndChanged(const std::string& name) {
        state->Document().AddPin(0.0f, 1.0f, -1, "root");
        EXPECT_TRUE(state->Document().Save(dir.File(name), true, window.prompt));
        state->Stack().MarkSaved();
        SelectionTracker selection;
        state->Stack().AddCommand(std::make_shared<CommandPinNew>(state->Document(), selection,
                                                                  PinDescription{1.0f, 2.0f, 0, "bone"}));
        return dir.File(name);
    }
    const kestrel2::win::MenuNode* Entry(int id) { return state->Menu().Find(id); }

    test::TempDir dir;
    aurel::App app{"Kovra", ""};
    test::FakeShellWindow window;
    std::unique_ptr<StateTitle> state;
};

TEST_F(StateWorkflowTest, ExamplesAreOfferedByNameAndOpenAsTemplates) {
    Start();
    ASSERT_NE(Entry(kMenuExampleFirst), nullptr);
    EXPECT_EQ(Entry(kMenuExampleFirst)->text.Utf8(), "Cat");
    EXPECT_EQ(Entry(kMenuExampleFirst + 1)->text.Utf8(), "Crane");
    EXPECT_EQ(Entry(kMenuExampleFirst + 2), nullptr) << "only .ske and .ski files are examples";
    EXPECT_NE(Entry(kMenuThemeFirst + 1), nullptr);

    state->OnMenuCommand(kMenuExampleFirst + 1);
    state->Update();
    EXPECT_TRUE(window.prompt.asked.empty());
    EXPECT_GT(state->Document().PinCount(), 3u);
    ASSERT_FALSE(state->Document().images.empty());
    EXPECT_FALSE(state->Document().images[0]->surface.IsEmpty()) << "the sprite sheet lies beside it";
    EXPECT_EQ(window.title.Utf8(), "Untitled - Kovra");
    EXPECT_EQ(Entry(kMenuRecentFirst), nullptr) << "an example stays out of the recent list";
}

TEST_F(StateWorkflowTest, AnEmptyExamplesFolderLeavesTheSubmenuDisabled) {
    fs::remove_all(dir.Path() / "program" / "Examples");
    Start();
    EXPECT_EQ(Entry(kMenuExampleFirst), nullptr);
    const std::vector<kestrel2::win::MenuNode>& file = state->Menu().Items()[0].children;
    const auto examples = std::find_if(file.begin(), file.end(),
                                       [](const auto& node) { return node.text.Utf8() == "Open Example"; });
    ASSERT_NE(examples, file.end());
    EXPECT_FALSE(examples->enabled);
}

TEST_F(StateWorkflowTest, ARecentFileThatVanishedMayLeaveTheList) {
    Start();
    const std::string path = SavedAndChanged("gone.ske");
    window.prompt.Answer(aurel::kAnswerNo);
    ASSERT_TRUE(state->Open(path, false));
    state->Update();
    ASSERT_NE(Entry(kMenuRecentFirst), nullptr);
    fs::remove(path);
    for (const int answer : {aurel::kAnswerNo, aurel::kAnswerYes}) {
        window.prompt.asked.clear();
        window.prompt.Answer(answer);
        state->OnMenuCommand(kMenuRecentFirst);
        ASSERT_EQ(window.prompt.asked.size(), 1u);
        EXPECT_EQ(window.prompt.asked[0].title.Utf8(), "Remove from List?");
        EXPECT_EQ(Entry(kMenuRecentFirst) != nullptr, answer == aurel::kAnswerNo);
    }
}

TEST_F(StateWorkflowTest, ClosingTheWindowAndExitAskToSaveFirst) {
    Start();
    SavedAndChanged("doc.ske");
    struct Case {
        int answer;
        bool closes;
    };
    for (const Case c : {Case{aurel::kAnswerCancel, false}, Case{aurel::kAnswerNo, true}}) {
        window.prompt.asked.clear();
        window.prompt.Answer(c.answer);
        EXPECT_EQ(window.handler->OnCloseRequest(), c.closes);
        window.prompt.Answer(c.answer);
        state->OnMenuCommand(kMenuExit);
        EXPECT_EQ(window.closed, c.closes);
        ASSERT_EQ(window.prompt.asked.size(), 2u);
        EXPECT_EQ(window.prompt.asked[1].title.Utf8(), "Save Changes?");
    }
}

TEST_F(StateWorkflowTest, AfterACrashTheStartOffersTheRecoveryCopy) {
    {
        WirrelDoc doc;
        doc.AddPin(0.0f, 1.0f, -1, "survivor");
        doc.hasPath = true;
        doc.path = dir.File("work.ske");
        RecoveryStore crashed(RecoveryFolder());
        aurel::SilentPrompt silent;
        ASSERT_TRUE(crashed.Write(doc, silent));
    }
    window.prompt.Answer(kRecoveryRestore);
    Start();
    ASSERT_EQ(window.prompt.asked.size(), 1u);
    EXPECT_EQ(window.prompt.asked[0].labels.size(), 2u);
    EXPECT_EQ(NameOf(state->Document().Wirrel().pinNames.at(0)), "survivor");
    EXPECT_EQ(window.title.Utf8(), "*" + dir.File("work.ske") + " - Kovra");

    // Closing without saving is a clean end: the next start finds nothing to offer.
    window.prompt.Answer(aurel::kAnswerNo);
    EXPECT_TRUE(window.handler->OnCloseRequest());
    state->Shutdown();
    state.reset();
    EXPECT_TRUE(RecoveryStore(RecoveryFolder()).Leftovers().empty());
}

}  // namespace
}  // namespace kovra
