// The workspace inside the running editor state: its gestures land on the state's undo stack, the keys
// and the wheel it leaves reach the state, and the state's mode, tool, playback and document reach it.

#include <gtest/gtest.h>

#include <filesystem>

#include "app/app.h"
#include "doc/wirrel_writer.h"
#include "fake_shell_window.h"
#include "gui/virtual_keys.h"
#include "settings/theme.h"
#include "state/main_menu.h"
#include "state/state_title.h"
#include "support/control_harness.h"
#include "support/english.h"
#include "support/temp_dir.h"
#include "views/gui_main_view.h"

namespace kovra {
namespace {

namespace fs = std::filesystem;
using kestrel2::win::kButtonLeft;
using kestrel2::win::kButtonMiddle;

class StateTitleWorkspaceTest : public ::testing::Test {
protected:
    StateTitleWorkspaceTest() {
        for (const char* folder : {"Lang", "Themes"}) {
            fs::copy(fs::path(KOVRA_DATA) / folder, dir.Path() / folder, fs::copy_options::recursive);
        }
        state = std::make_unique<StateTitle>(window, dir.Path().string() + "/", aurel::DualString());
        state->Attach(app);
        state->Init();
        state->Update();
        view = &state->Workspace();
        harness = std::make_unique<test::ControlHarness>(*view, view->width, view->height);
        centreX = view->width / 2;
        centreY = view->height / 2;
    }
    ~StateTitleWorkspaceTest() override {
        state->Shutdown();
        test::LoadEnglish();
        aurel::LoadTheme(aurel::DualString(std::string(KOVRA_DATA) + "/Themes/Paleform.txt"), "Paleform",
                         app.Settings());
    }

    // Animate mode, then a bone drawn with Shift from (x0, y0) to (x1, y1): a root and its first child.
    void DrawBone(int x0, int y0, int x1, int y1) {
        state->OnKey('1');
        for (const auto& [x, y] : {std::pair{x0, y0}, std::pair{x1, y1}}) {
            harness->Move(x, y).Press(kButtonLeft, x, y, {.shift = true}).Release(kButtonLeft, x, y);
        }
        harness->KeyUp(kestrel2::win::kVkShift);
        view->Paint();
    }
    std::vector<std::uint8_t> Saved() { return WriteWirrel(state->Document().Wirrel(), {}, {}); }
    WirrelKey& Key() { return state->Document().CurrentKey(); }

    test::TempDir dir;
    aurel::App app{"Kovra", ""};
    test::FakeShellWindow window;
    std::unique_ptr<StateTitle> state;
    GuiMainView* view = nullptr;
    std::unique_ptr<test::ControlHarness> harness;
    int centreX = 0;
    int centreY = 0;
};

TEST_F(StateTitleWorkspaceTest, TheWorkspaceStandsInItsPlaceAndSharesTheOneSelection) {
    EXPECT_EQ(window.Root().GetDlgControl(1), view);
    EXPECT_EQ(&state->PinSelection(), &view->state.pinSelection);
    EXPECT_EQ(&state->TextureSelection(), &view->state.texSelection);
    EXPECT_EQ(view->state.editMode, kModeTextures);
    state->SetEditMode(kModeBuild);
    state->SetSkinTool(kToolRectangle);
    EXPECT_EQ(view->state.editMode, kModeBuild);
    EXPECT_EQ(view->state.skinTool, kToolRectangle);
}

TEST_F(StateTitleWorkspaceTest, ADragIsOneStepOfTheHistoryAndUndoGivesBackTheDocumentExactly) {
    DrawBone(centreX, centreY, centreX + 64, centreY);
    ASSERT_EQ(Key().pins.size(), 2u);
    EXPECT_EQ(state->PinSelection().selected, std::set<int>{1}) << "the new bone's end is selected";
    const std::vector<std::uint8_t> before = Saved();
    const std::size_t entries = state->Stack().Size();
    for (const bool ik : {false, true}) {
        state->Document().viewFlags[kViewIk] = ik;
        harness->Move(centreX + 64, centreY).Drag(centreX + 64, centreY, centreX, centreY + 64, 8);
        EXPECT_EQ(state->Stack().Size(), entries + 1) << "ik " << ik;
        EXPECT_NE(Saved(), before);
        if (!ik) {
            EXPECT_NEAR(view->state.view.pinPixels[1].y, 64.0f, 2.0f) << "the end follows the mouse";
        }

        state->OnMenuCommand(kMenuUndo);
        EXPECT_EQ(Saved(), before);
        EXPECT_NEAR(view->state.view.pinPixels[1].x, 64.0f, 1.0f) << "the view shows the undone pose";
        state->OnMenuCommand(kMenuRedo);
        EXPECT_NE(Saved(), before);
        state->OnMenuCommand(kMenuUndo);
    }
}

TEST_F(StateTitleWorkspaceTest, MenuDeleteAndPasteActOnTheWorkspacesSelection) {
    DrawBone(centreX, centreY, centreX + 64, centreY);
    const std::vector<std::uint8_t> drawn = Saved();
    state->Update();
    EXPECT_TRUE(state->Menu().Find(kMenuDelete)->enabled);

    state->OnMenuCommand(kMenuCopy);
    state->OnMenuCommand(kMenuDelete);
    EXPECT_EQ(Key().pins.size(), 0u) << "the lone root goes with its only bone";
    EXPECT_TRUE(state->PinSelection().selected.empty());
    state->Update();
    EXPECT_FALSE(state->Menu().Find(kMenuDelete)->enabled);

    state->OnMenuCommand(kMenuUndo);
    EXPECT_EQ(Saved(), drawn);
    state->OnMenuCommand(kMenuPaste);
    EXPECT_EQ(Key().pins.size(), 2u) << "the pasted pin replaces its namesake";
}

TEST_F(StateTitleWorkspaceTest, KeysAndTheWheelTheViewLeavesReachTheEditor) {
    harness->Move(centreX, centreY).Key('1');
    EXPECT_EQ(state->EditMode(), kModeAnimate) << "from texture mode too";
    harness->Key('2');
    EXPECT_EQ(state->EditMode(), kModeBuild);
    EXPECT_EQ(view->state.editMode, kModeBuild);
    harness->Key('1');

    const struct {
        int delta;
        float zoom;
    } turns[] = {{120, 1.1f}, {120, 1.21f}, {-120, 1.089f}};
    for (const auto& turn : turns) {
        harness->Wheel(turn.delta);
        EXPECT_NEAR(view->state.view.zoom, turn.zoom, 1e-5f) << turn.delta;
    }

    harness->Key(kestrel2::win::kVkSpace);
    EXPECT_TRUE(state->IsPlaying());
    EXPECT_TRUE(view->state.playing);
    harness->Key(kestrel2::win::kVkSpace);
    EXPECT_FALSE(view->state.playing);
}

TEST_F(StateTitleWorkspaceTest, ANewDocumentClearsTheSelectionAndTheCamera) {
    DrawBone(centreX, centreY, centreX + 64, centreY);
    harness->Move(10, 10).Press(kButtonMiddle, 10, 10).Move(42, 10).Release(kButtonMiddle, 42, 10);
    harness->Wheel(120);
    ASSERT_NE(view->state.view.cameraX, 0.0f);
    window.prompt.Answer(aurel::kAnswerNo);
    state->OnMenuCommand(kMenuNew);
    EXPECT_TRUE(state->PinSelection().selected.empty());
    EXPECT_EQ(state->PinSelection().currentItem, -1);
    EXPECT_EQ(view->state.view.cameraX, 0.0f);
    EXPECT_EQ(view->state.view.zoom, 1.0f);
    EXPECT_EQ(view->state.editMode, kModeTextures);
}

TEST_F(StateTitleWorkspaceTest, PinsThatLeaveTheDocumentLeaveTheSelection) {
    DrawBone(centreX, centreY, centreX + 64, centreY);
    SelectionTracker& selection = state->PinSelection();
    selection.Add(0, false);
    selection.SetHot(1, 4);
    ASSERT_EQ(selection.selected, (std::set<int>{0, 1}));
    Key().pins.resize(1);
    state->Document().onChanged.Call();
    EXPECT_EQ(selection.selected, std::set<int>{0});
    EXPECT_EQ(selection.hotItem, -1);
    EXPECT_EQ(selection.currentItem, -1);
    // Before any paint, where the gone pin stood is empty space: the drag pans.
    harness->Move(centreX + 64, centreY).Drag(centreX + 64, centreY, centreX, centreY + 64, 4);
    EXPECT_EQ(Key().pins.size(), 1u);
    EXPECT_NE(view->state.view.cameraY, 0.0f);
}

}  // namespace
}  // namespace kovra
