#include "state/state_title.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "anim/playback.h"
#include "app/app.h"
#include "fake_shell_window.h"
#include "gui/anchoring.h"
#include "settings/lang.h"
#include "settings/path_info.h"
#include "settings/theme.h"
#include "support/english.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

namespace fs = std::filesystem;

constexpr int kKeySpace = 0x20;
constexpr int kKeyLeft = 0x25;
constexpr int kKeyRight = 0x27;
constexpr int kKeyF5 = 0x74;

// The editor state over a scripted window, with a program folder of its own that holds copies of the
// shipped language and theme files.
class StateTitleTest : public ::testing::Test {
protected:
    StateTitleTest() {
        for (const char* folder : {"Lang", "Themes"}) {
            fs::copy(fs::path(KOVRA_DATA) / folder, dir.Path() / folder, fs::copy_options::recursive);
        }
    }
    ~StateTitleTest() override {
        if (state) {
            state->Shutdown();
        }
        test::LoadEnglish();
        aurel::LoadTheme(aurel::DualString(std::string(KOVRA_DATA) + "/Themes/Paleform.txt"), "Paleform",
                         app.Settings());
    }

    void Start() {
        state = std::make_unique<StateTitle>(window, dir.Path().string() + "/", aurel::DualString());
        state->Attach(app);
        state->Init();
        state->Update();
    }

    const kestrel2::win::MenuNode& Entry(int id) { return *state->Menu().Find(id); }
    std::string Title() { return window.title.Utf8(); }

    test::TempDir dir;
    aurel::App app{"Kovra", ""};
    test::FakeShellWindow window;
    std::unique_ptr<StateTitle> state;
};

TEST_F(StateTitleTest, StartsWithAnUntitledDocumentInTextureModeAndTheWholeMenu) {
    Start();
    EXPECT_EQ(Title(), "Untitled - Kovra");
    EXPECT_EQ(state->EditMode(), kModeTextures);
    EXPECT_EQ(state->Document().Wirrel().anims.size(), 1u);
    EXPECT_EQ(window.timerMs, 500);
    EXPECT_EQ(window.menus, state->Menu().Items());
    EXPECT_EQ(window.menus[1].children[8].children.size(), 1u) << "the one shipped language";
    EXPECT_TRUE(Entry(368).checked);
    EXPECT_TRUE(window.prompt.asked.empty());
}

TEST_F(StateTitleTest, TheViewsStandInTheirPlacesAndFollowTheWindowsSize) {
    Start();
    kestrel2::win::Gui& root = window.Root();
    const auto box = [&](int id) {
        const kestrel2::win::IGuiWindow& view = *root.GetDlgControl(id);
        return kestrel2::win::Box{view.x, view.y, view.width, view.height};
    };
    const int column = 180 + 2 * aurel::CurrentTheme().panels.padding;
    for (const auto& [width, height] :
         {std::pair{root.width, root.height}, std::pair{1300, 900}, std::pair{400, 200}}) {
        root.SetPos(0, 0, width, height);
        EXPECT_EQ(box(1), (kestrel2::win::Box{0, 0, width - column, height - 120})) << width;
        EXPECT_EQ(box(2), (kestrel2::win::Box{0, height - 120, width - column, 120}));
        EXPECT_EQ(box(3), (kestrel2::win::Box{width - column, 0, column, height}));
    }
}

TEST_F(StateTitleTest, WhatsNewShowsTheChangesOnceAfterTheyChanged) {
    std::ofstream(dir.File("Changes.txt")) << "Bones bend.";
    aurel::SettingsStore& settings = app.Settings();
    const auto date = static_cast<std::int32_t>(
        aurel::PathInfo(aurel::DualString(dir.File("Changes.txt"))).ModificationTime());
    const struct {
        bool stored;
        std::int32_t recent;
        const char* version;
        const char* title;  // null: nothing is shown
    } cases[] = {
        {false, 0, "", nullptr},
        {true, date, "0.0.1", nullptr},
        {true, date - 60, "0.0.1", "What's New Since v0.0.1"},
        {true, date - 60, "", "What's New"},
    };
    for (const auto& c : cases) {
        settings.Clear();
        settings.Select("App");
        if (c.stored) {
            settings.SetInt("RecentChanges", c.recent);
        }
        if (*c.version) {
            settings.SetString("RecentVersion", c.version);
        }
        window.prompt.asked.clear();
        Start();
        state->Shutdown();
        state.reset();
        if (c.title) {
            ASSERT_EQ(window.prompt.asked.size(), 1u);
            EXPECT_EQ(window.prompt.asked[0].title.Utf8(), c.title);
            EXPECT_EQ(window.prompt.asked[0].text.Utf8(), "Bones bend.");
        } else {
            EXPECT_TRUE(window.prompt.asked.empty());
        }
        settings.Select("App");
        std::int32_t stored = 0;
        EXPECT_TRUE(settings.GetInt("RecentChanges", stored));
        EXPECT_EQ(stored, date);
        EXPECT_EQ(settings.GetString("RecentVersion", "").Utf8() != c.version, c.title != nullptr);
    }
}

TEST_F(StateTitleTest, UndoAndRedoLabelsNameTheCandidateAndTheTitleMarksChangesUntilUndone) {
    Start();
    EXPECT_EQ(Entry(kMenuUndo).text.Utf8(), "&Undo\tCtrl+Z");
    EXPECT_FALSE(Entry(kMenuUndo).enabled);

    state->SetEditMode(kModeAnimate);
    state->OnMenuCommand(kMenuMirror);
    state->Update();
    EXPECT_EQ(Entry(kMenuUndo).text.Utf8(), "&Undo \"Mirror Frame\"\tCtrl+Z");
    EXPECT_TRUE(Entry(kMenuUndo).enabled);
    EXPECT_EQ(Entry(kMenuRedo).text.Utf8(), "&Redo\tCtrl+Y");
    EXPECT_FALSE(Entry(kMenuRedo).enabled);
    EXPECT_EQ(Title(), "*Untitled - Kovra");

    window.textBoxFocused = true;
    state->OnMenuCommand(kAccelUndo);
    EXPECT_EQ(state->Stack().Cursor(), 1u) << "a focused text box takes the undo";
    window.textBoxFocused = false;

    state->OnMenuCommand(kAccelUndo);
    state->Update();
    EXPECT_EQ(Title(), "Untitled - Kovra");
    EXPECT_EQ(Entry(kMenuUndo).text.Utf8(), "&Undo\tCtrl+Z");
    EXPECT_EQ(Entry(kMenuRedo).text.Utf8(), "&Redo \"Mirror Frame\"\tCtrl+Y");

    state->OnMenuCommand(kAccelRedo);
    state->Update();
    EXPECT_EQ(Title(), "*Untitled - Kovra");
}

TEST_F(StateTitleTest, MenuEntriesFollowModeClipboardFocusAndSelection) {
    Start();
    struct Case {
        int mode;
        bool bitmap, textBox, pins, selection;
        bool pasteBg, cutCopy, paste, del, mirror;
    };
    const Case cases[] = {
        {kModeAnimate, true, false, false, false, true, false, false, false, true},
        {kModeTextures, true, true, false, false, false, true, false, false, false},
        {kModeBuild, false, false, true, true, false, false, true, true, true},
        {kModeTextures, false, false, false, true, false, false, false, false, false},
    };
    for (const Case& c : cases) {
        state->SetEditMode(c.mode);
        window.clipboardBitmap = c.bitmap;
        window.textBoxFocused = c.textBox;
        state->Clipboard().Clear();
        if (c.pins) {
            state->Clipboard().Copy(WirrelKey{.pins = {WirrelPin{}}}, {0});
        }
        state->PinSelection().Clear();
        if (c.selection) {
            state->PinSelection().Add(0, true);
        }
        state->Update();
        EXPECT_EQ(Entry(kMenuPasteBackground).enabled, c.pasteBg) << c.mode;
        EXPECT_EQ(Entry(kMenuCut).enabled, c.cutCopy);
        EXPECT_EQ(Entry(kMenuCopy).enabled, c.cutCopy);
        EXPECT_EQ(Entry(kMenuPaste).enabled, c.paste);
        EXPECT_EQ(Entry(kMenuDelete).enabled, c.del);
        EXPECT_EQ(Entry(kMenuMirror).enabled, c.mirror);
        EXPECT_EQ(Entry(kMenuFlip).enabled, c.mirror);
    }
}

// A sheet with two opaque squares on a clear ground, which detection finds.
std::shared_ptr<WirrelTexImage> TwoSquares() {
    auto image = std::make_shared<WirrelTexImage>();
    image->surface.Resize(32, 16);
    image->surface.FillRect(2, 2, 9, 9, 0xFF336699);
    image->surface.FillRect(20, 4, 27, 13, 0xFF993366);
    return image;
}

TEST_F(StateTitleTest, AutoDetectionRunsOnlyInTextureModeWithAnImageSelected) {
    Start();
    state->Document().SetImage(-1, TwoSquares());
    const struct {
        int mode;
        bool imageSelected;
        bool runs;
    } cases[] = {
        {kModeAnimate, true, false},   {kModeBuild, true, false},   {kModeBackground, true, false},
        {kModeTextures, false, false}, {kModeTextures, true, true},
    };
    for (const auto& c : cases) {
        state->SetEditMode(c.mode);
        state->ImageSelection().Clear();
        if (c.imageSelected) {
            state->ImageSelection().Add(0, true);
        }
        state->OnKey(kKeyF5);
        EXPECT_EQ(state->Document().Wirrel().textures.size(), c.runs ? 2u : 0u) << c.mode;
        EXPECT_EQ(state->Stack().Size(), c.runs ? 1u : 0u) << c.mode;
    }
    EXPECT_TRUE(window.prompt.asked.empty());
}

TEST_F(StateTitleTest, TheTextureViewTakesTheWorkspacesPlaceInTextureModeAndDeletesFromTheMenu) {
    Start();
    kestrel2::win::Gui& root = window.Root();
    const kestrel2::win::IGuiWindow& workspace = *root.GetDlgControl(1);
    const kestrel2::win::IGuiWindow* texture = root.GetDlgControl(4);
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ((kestrel2::win::Box{texture->x, texture->y, texture->width, texture->height}),
              (kestrel2::win::Box{workspace.x, workspace.y, workspace.width, workspace.height}));
    const auto shown = [&] { return std::pair{texture->IsVisible(), workspace.IsVisible()}; };
    EXPECT_EQ(shown(), std::pair(true, false));
    state->OnKey('1');
    state->Update();
    EXPECT_EQ(shown(), std::pair(false, true));
    state->Stack().UndoRedo(false, *state);
    state->Update();
    EXPECT_EQ(shown(), std::pair(true, false));

    state->Document().SetImage(-1, TwoSquares());
    state->Document().Wirrel().textures = {WirrelTexture{0, 2, 2, 8, 8}, WirrelTexture{0, 20, 4, 8, 10}};
    state->TextureSelection().SetCurrent(1, 0);
    state->OnMenuCommand(kMenuDelete);
    ASSERT_EQ(state->Document().Wirrel().textures.size(), 1u);
    EXPECT_EQ(state->Stack().UndoLabel().Utf8(), "Delete Texture");
}

TEST_F(StateTitleTest, ALanguageChosenFromTheMenuRelabelsItAndMovesTheCheckMark) {
    std::ofstream(dir.File("Lang/Zz.txt")) << "[MAINMENU]\nFile = \"&Datei\"\nFileNew = \"&Neu\"\n";
    Start();
    ASSERT_EQ(state->Menu().FindSubmenu("EditLang")->children.size(), 2u);

    state->OnMenuCommand(kMenuLanguageFirst + 1);
    state->Update();
    EXPECT_EQ(window.menus[0].text.Utf8(), "&Datei");
    EXPECT_EQ(Entry(kMenuNew).text.Utf8(), "&Neu\tCtrl+N");
    EXPECT_EQ(Entry(kMenuUndo).text.Utf8(), "[MISSING STRING]\tCtrl+Z");
    EXPECT_FALSE(Entry(kMenuLanguageFirst).checked);
    EXPECT_TRUE(Entry(kMenuLanguageFirst + 1).checked);
    app.Settings().Select("App");
    EXPECT_EQ(app.Settings().GetString("Language", "").Utf8(), "Zz");
}

TEST_F(StateTitleTest, AVanishedRecentFileIsOfferedForRemovalAndStaysOnNo) {
    std::ofstream(dir.File("kept.ske")) << "";
    app.Settings().Select("App");
    app.Settings().SetStrings(
        "MRU", {aurel::DualString(dir.File("gone.ske")), aurel::DualString(dir.File("kept.ske"))});
    Start();
    ASSERT_NE(state->Menu().Find(kMenuRecentFirst + 1), nullptr);

    window.prompt.Answer(aurel::kAnswerNo);
    state->OnMenuCommand(kMenuRecentFirst);
    ASSERT_EQ(window.prompt.asked.size(), 1u);
    EXPECT_EQ(window.prompt.asked[0].title.Utf8(), aurel::Lang("COMMON", "RemoveQ").Utf8());
    EXPECT_EQ(window.prompt.asked[0].text.Utf8(), aurel::Lang("MESSAGES", "FileRemove").Utf8());
    EXPECT_NE(state->Menu().Find(kMenuRecentFirst + 1), nullptr);

    window.prompt.Answer(aurel::kAnswerYes);
    state->OnMenuCommand(kMenuRecentFirst);
    EXPECT_EQ(state->Menu().Find(kMenuRecentFirst + 1), nullptr);
    EXPECT_NE(state->Menu().Find(kMenuRecentFirst)->text.Utf8().find("kept.ske"), std::string::npos);
}

TEST_F(StateTitleTest, ExitAsksAboutChangesAndCancelKeepsTheWindow) {
    Start();
    state->SetEditMode(kModeAnimate);
    state->OnMenuCommand(kMenuFlip);
    for (const int answer : {aurel::kAnswerCancel, aurel::kAnswerNo}) {
        window.prompt.Answer(answer);
        state->OnMenuCommand(kMenuExit);
        EXPECT_EQ(window.closed, answer == aurel::kAnswerNo);
    }
    window.prompt.Answer(aurel::kAnswerCancel);
    EXPECT_FALSE(state->OnCloseRequest());
    EXPECT_EQ(window.prompt.asked.size(), 3u);
}

TEST_F(StateTitleTest, NewAsksAboutChangesThenStartsAFreshHistory) {
    Start();
    state->SetEditMode(kModeAnimate);
    state->OnMenuCommand(kMenuMirror);
    window.prompt.Answer(aurel::kAnswerNo);
    state->OnMenuCommand(kAccelNew);
    state->Update();
    EXPECT_EQ(state->Stack().Size(), 0u);
    EXPECT_EQ(state->EditMode(), kModeTextures);
    EXPECT_EQ(Title(), "Untitled - Kovra");
}

TEST_F(StateTitleTest, LeftAndRightStepThroughKeyFramesAndWrap) {
    Start();
    state->Document().CurrentAnim().keys.resize(3);
    const std::pair<int, std::uint32_t> steps[] = {
        {kKeyLeft, 2}, {kKeyLeft, 1}, {kKeyRight, 2}, {kKeyRight, 0}};
    for (const auto& [key, frame] : steps) {
        state->OnKey(key);
        EXPECT_EQ(state->Document().cursor.frameIndex, frame);
    }
    EXPECT_EQ(state->Stack().Size(), 4u);
}

TEST_F(StateTitleTest, DigitsChooseEditModesAsStepsOfTheHistoryAndSpaceTogglesPlayback) {
    Start();
    for (const int key : {'1', '2', '4', '3'}) {
        state->OnKey(key);
        EXPECT_EQ(state->EditMode(), key - '1');
    }
    EXPECT_EQ(state->Stack().Size(), 4u);
    state->OnMenuCommand(kMenuUndo);
    EXPECT_EQ(state->EditMode(), kModeBackground);

    state->OnKey(kKeySpace);
    EXPECT_TRUE(state->IsPlaying());
    state->OnKey(kKeySpace);
    EXPECT_FALSE(state->IsPlaying());
    EXPECT_EQ(state->Stack().Size(), 4u) << "a stop where playback began leaves no step";

    WirrelDoc& doc = state->Document();
    doc.CurrentAnim().keys.resize(2);
    state->OnKey(kKeySpace);
    doc.cursor.frameIndex = 1;
    state->OnKey(kKeySpace);
    ASSERT_EQ(state->Stack().Size(), 4u) << "three modes, the fourth cut as the redo tail, and the stop";
    EXPECT_EQ(state->Stack().UndoLabel().Utf8(), "Playback Change");

    state->OnKey(kKeySpace);
    doc.cursor.frameIndex = 0;
    state->OnMenuCommand(kMenuUndo);
    EXPECT_FALSE(state->IsPlaying());
    EXPECT_EQ(state->Stack().Size(), 4u) << "an undo during playback takes its stop back with it";
    EXPECT_EQ(state->Stack().Cursor(), 3u);
    EXPECT_EQ(doc.cursor.frameIndex, 0u);
}

TEST_F(StateTitleTest, TheThemeWatchReloadsARewrittenThemeFile) {
    Start();
    std::ifstream original(dir.File("Themes/Paleform.txt"));
    std::string text((std::istreambuf_iterator<char>(original)), std::istreambuf_iterator<char>());
    text.replace(text.find("BoneWidth = 8.0"), 15, "BoneWidth = 3.5");
    std::ofstream(dir.File("Themes/Paleform.txt")) << text;
    const int redraws = window.redraws;
    state->OnTimer();
    EXPECT_EQ(aurel::CurrentTheme().workspace.boneWidth, 3.5f);
    EXPECT_GT(window.redraws, redraws);
    const int afterReload = window.redraws;
    state->OnTimer();
    EXPECT_EQ(window.redraws, afterReload) << "an unchanged file is not read again";
}

TEST_F(StateTitleTest, AThemeChosenFromTheMenuIsCheckedAndBringsItsWorkspaceColours) {
    Start();
    const aurel::Color32 pale = state->BackgroundColor();
    state->OnMenuCommand(kMenuThemeFirst);
    state->Update();
    EXPECT_TRUE(Entry(kMenuThemeFirst).checked);
    EXPECT_FALSE(Entry(kMenuThemeFirst + 1).checked);
    EXPECT_EQ(state->BackgroundColor(), aurel::CurrentTheme().workspace.defBgColor);
    EXPECT_NE(state->BackgroundColor(), pale);
    EXPECT_EQ(state->Grid().origin, aurel::CurrentTheme().workspace.defGridColor0);
}

TEST_F(StateTitleTest, TheTimelineOpensItsLanesOnTAndPlaysAndEditsThroughTheState) {
    Start();
    kestrel2::win::Gui& root = window.Root();
    auto& timeline = dynamic_cast<GuiFrames&>(*root.GetDlgControl(2));
    state->OnKey('T');
    EXPECT_TRUE(timeline.Extended());
    EXPECT_EQ(timeline.height, root.height / 2);
    EXPECT_EQ(timeline.y + timeline.height, root.height);
    timeline.Toolbar()->Click(0x3F4);
    EXPECT_FALSE(timeline.Extended());
    EXPECT_EQ(timeline.height, 120);

    timeline.Toolbar()->Click(0x3EE);
    EXPECT_TRUE(state->IsPlaying());
    timeline.Toolbar()->Click(0x3EF);
    EXPECT_FALSE(state->IsPlaying());

    // A new length from the frame count edit is one undoable step.
    kestrel2::win::GuiEdit& count = *timeline.Edit(0x3F9);
    count.SetText(aurel::DualString("7"));
    count.FocusLost();
    ASSERT_TRUE(state->Stack().CanUndo());
    std::uint64_t ticks = 0;
    for (const WirrelKey& key : state->Document().CurrentAnim().keys) {
        ticks += key.ticks;
    }
    const WirrelDoc& doc = state->Document();
    EXPECT_EQ(ticks, doc.Wirrel().ticksPerSecond * 7u / kSnapRates[doc.snapFrames]);
    state->OnMenuCommand(kMenuUndo);
    EXPECT_FALSE(state->Stack().CanUndo());

    timeline.eventsDialogListeners.Call(0);
    ASSERT_FALSE(window.prompt.asked.empty());
    EXPECT_EQ(window.prompt.asked.back().title.Utf8(), "WIP");
}

}  // namespace
}  // namespace kovra
