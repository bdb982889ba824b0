#include "views/nav/gui_nav.h"

#include <gtest/gtest.h>
#include <QPushButton>
#include <QWidget>

#include <cmath>
#include <filesystem>
#include <random>

#include "commands/command_stack.h"
#include "doc/wirrel_writer.h"
#include "gui/gui.h"
#include "settings/theme.h"
#include "support/control_harness.h"
#include "support/english.h"
#include "support/image_library.h"
#include "support/scripted_prompt.h"
#include "views/nav/nav_ids.h"
#include "views/nav/skin_drop.h"

namespace {

using namespace kestrel2::win;
using namespace kovra;

class Hub : public EditorHub {
public:
    int EditMode() const override { return mode; }
    void SetEditMode(int m) override { mode = m; }
    int SkinTool() const override { return tool; }
    void SetSkinTool(int t) override { tool = t; }
    int AnimListSelection() const override { return list; }
    void SetAnimListSelection(int index) override { list = index; }
    bool IsPlaying() const override { return false; }
    void StopPlayback() override {}
    WorkGrid Grid() const override { return grid; }
    void SetGrid(const WorkGrid& g) override { grid = g; }
    aurel::Color32 BackgroundColor() const override { return colour; }
    void SetBackgroundColor(aurel::Color32 c) override { colour = c; }
    void SetBackgroundLoaded(bool) override {}

    int mode = kModeAnimate;
    int tool = kToolSkin;
    int list = 0;
    WorkGrid grid;
    aurel::Color32 colour{10, 20, 30};
};

// A document with a root, a bone that carries a skin on an 8 by 8 texture of image 0, and the column
// hosted in a window with its commands going to a stack, as the editor binds them.
class Nav : public testing::Test {
protected:
    void SetUp() override {
        kovra::test::LoadEnglish();
        kovra::test::StartImageLibrary();
        doc.Reset(true);
        doc.AddPin(0.0f, 3.0f, -1, "root");
        doc.AddPin(0.5f, 2.0f, 0, "arm");
        doc.Wirrel().textures.push_back(WirrelTexture{0, 0, 0, 8, 8});
        doc.Wirrel().skins.push_back(WirrelSkin{0, 0.0f, 0.0f, 1.0f, 1.0f, 0.0f, -1});
        doc.CurrentKey().pins[1].skin = 0;
        host.resize(400, 900);
        gui.SetWindow(Window(&host, false));
        nav = MakeChild<GuiNav>(gui, 5100, 0, 0, 192, 880,
                                NavContext{doc, hub, prompt, pins, textures, images});
        nav->commandListeners.Add(this, &Nav::Run);
        host.show();
        pins.SetCurrent(1, 0);
    }
    void Run(std::shared_ptr<ICommand> command) {
        labels.push_back(command->label.Utf8());
        stack.AddCommand(std::move(command));
    }
    std::vector<std::uint8_t> Bytes() const { return WriteWirrel(doc.Wirrel(), {}, {}); }
    // Types the text into the grid's row as the user does: the mouse on the row, then the focus leaves.
    void Type(int grid, int row, const std::string& text) {
        auto* props = nav->Control<GuiProps>(grid);
        props->input.MouseMove(100, 1 + row * 19 + 9, true);
        ASSERT_EQ(props->EditRow(), row);
        props->overlayEdit->SetText(text);
        props->overlayEdit->FocusLost();
    }
    std::string Value(int grid, int row) const { return nav->Control<GuiProps>(grid)->GetValue(row).Utf8(); }

    QWidget host;
    Gui gui;
    WirrelDoc doc;
    Hub hub;
    kovra::test::ScriptedPrompt prompt;
    SelectionTracker pins, textures, images;
    CommandStack stack;
    std::shared_ptr<GuiNav> nav;
    std::vector<std::string> labels;
};

TEST_F(Nav, EachDocumentControlBuildsOneCommandThatUndoesByteExact) {
    struct Case {
        std::string name;
        std::function<void()> act;
        std::string label;
    };
    const std::vector<Case> cases = {
        {"angle", [&] { Type(kNavBoneProps, 2, "90"); }, "Set Angle"},
        {"length", [&] { Type(kNavBoneProps, 3, "4.5"); }, "Set Length"},
        {"label", [&] { Type(kNavBoneProps, 1, "elbow"); }, "Set Pin Name"},
        {"skin rotation", [&] { Type(kNavSkinProps, 0, "45"); }, "Rotate Skin"},
        {"skin scale", [&] { Type(kNavSkinProps, 1, "2"); }, "Scale Skin"},
        {"skin offset", [&] { Type(kNavSkinProps, 4, "-1.5"); }, "Move Skin"},
        {"mirror", [&] { nav->OnCommand(kNavSkinMirror); }, "Mirror Skin"},
        {"flip", [&] { nav->OnCommand(kNavSkinFlip); }, "Flip Skin"},
        {"collision",
         [&] {
             nav->Control<GuiComboBox>(kNavSkinCollision)->SetSel(2);
             nav->OnCommand(kNavSkinCollision);
         },
         "Set Collision Type"},
        {"draw order", [&] { nav->OnCommand(kNavSkinDecZ); }, "Change Draw Order"},
        {"texture", [&] { Type(kNavTextureProps, 2, "4"); }, "Set Texture Rectangle"},
        {"pixels per unit",
         [&] {
             auto* edit = nav->Control<GuiEdit>(kNavScaleEdit);
             edit->SetText("48");
             edit->FocusLost();
         },
         "Change PPU"},
        {"new animation", [&] { nav->OnCommand(kNavAnimAdd); }, "New Animation"},
    };
    for (const Case& c : cases) {
        textures.SetCurrent(0, 0);
        pins.SetCurrent(1, 0);
        const auto before = Bytes();
        const std::size_t sent = labels.size();
        c.act();
        ASSERT_EQ(labels.size(), sent + 1) << c.name;
        EXPECT_EQ(labels.back(), c.label) << c.name;
        const auto after = Bytes();
        EXPECT_NE(after, before) << c.name;
        stack.UndoRedo(false, hub);
        EXPECT_EQ(Bytes(), before) << c.name;
        stack.UndoRedo(true, hub);
        EXPECT_EQ(Bytes(), after) << c.name;
        stack.UndoRedo(false, hub);
    }
    EXPECT_TRUE(prompt.asked.empty());
}

TEST_F(Nav, TypedValuesReachTheRecordsAndTheGridsFollowUndo) {
    Type(kNavBoneProps, 2, "90");
    EXPECT_NEAR(doc.CurrentKey().pins[1].angle, 1.5707964f, 1e-5f);
    EXPECT_EQ(Value(kNavBoneProps, 2), "90");
    stack.UndoRedo(false, hub);
    EXPECT_EQ(Value(kNavBoneProps, 2), "28.648");  // 0.5 radians

    // A root is placed by its position; the grid shows it back as typed.
    pins.SetCurrent(0, 0);
    EXPECT_EQ(nav->Control<GuiProps>(kNavBoneProps)->Row(0).name.Utf8(), "Root");
    Type(kNavBoneProps, 3, "-4");
    const WirrelPin& root = doc.CurrentKey().pins[0];
    EXPECT_NEAR(root.length * std::sin(root.angle), -4.0f, 1e-5f);
    EXPECT_NEAR(root.length * std::cos(root.angle), 3.0f, 1e-5f);
    EXPECT_EQ(labels.back(), "Set Position");

    // A refused value sends nothing and leaves the grid as the document holds it.
    const std::size_t entries = stack.Size();
    Type(kNavBoneProps, 2, "abc");
    EXPECT_EQ(stack.Size(), entries);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "This is not a valid floating point number.");
}

TEST_F(Nav, HubCommandsAndViewOptions) {
    nav->Control<GuiToolbar>(kNavEditMode)->Click(kNavModeAnimate + kModeBuild);
    EXPECT_EQ(hub.mode, kModeBuild);
    EXPECT_EQ(nav->Chain(), (std::vector<int>{kNavEditModePanel, kNavAnimPanel, kNavTexturesPanel,
                                              kNavSkinPanel, kNavViewPanel}));
    EXPECT_FALSE(nav->Control<GuiCheckbox>(kNavViewSkinning)->IsEnabled());

    // The rectangle and tile tools warn, and are chosen all the same.
    nav->OnCommand(kNavToolSkin + kToolRectangle);
    nav->OnCommand(kNavToolTile);
    EXPECT_EQ(hub.tool, kToolTile);
    ASSERT_EQ(prompt.asked.size(), 2u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "WIP");
    EXPECT_EQ(prompt.asked[1].text.Utf8(),
              "This is demo functionality. Completed implementation coming in a future version of Kovra.");
    // The tile tool keeps the rectangle tool's chain.
    EXPECT_EQ(nav->Chain(),
              (std::vector<int>{kNavEditModePanel, kNavAnimPanel, kNavCollisionPanel, kNavViewPanel}));
    stack.UndoRedo(false, hub);
    EXPECT_EQ(hub.tool, kToolRectangle);

    Type(kNavBgProps, 4, "7");
    EXPECT_EQ(hub.grid.stepX, 7);
    nav->Control<GuiProps>(kNavBgProps)->chooseColour = [](aurel::Color32& c) {
        c = aurel::Color32(1, 2, 3);
        return true;
    };
    nav->Control<GuiProps>(kNavBgProps)->input.ButtonDown(kButtonLeft, 100, 1 + 6 * 19 + 9, false, {});
    EXPECT_EQ(hub.colour, aurel::Color32(1, 2, 3));
    stack.UndoRedo(false, hub);
    EXPECT_EQ(hub.colour, aurel::Color32(10, 20, 30));

    // View options flip the document without a stack entry; the background switch is a command.
    const std::size_t entries = stack.Size();
    const std::size_t sent = labels.size();
    const auto before = Bytes();
    nav->OnCommand(kNavViewLabels);
    nav->OnCommand(kNavViewBones);
    EXPECT_TRUE(doc.viewFlags[kViewLabels]);
    EXPECT_FALSE(doc.viewFlags[kViewBones]);
    EXPECT_EQ(nav->Control<GuiCheckbox>(kNavViewLabels)->GetCheck(), kChecked);
    EXPECT_EQ(nav->Control<GuiCheckbox>(kNavViewBones)->GetCheck(), kUnchecked);
    EXPECT_EQ(stack.Size(), entries);
    nav->OnCommand(kNavOptionIk);
    EXPECT_FALSE(doc.viewFlags[kViewIk]);
    EXPECT_FALSE(nav->Control<GuiToolbar>(kNavOptions)->GetButtonState(kNavOptionIk));
    nav->OnCommand(kNavViewBg);
    EXPECT_EQ(labels.size(), sent + 1);
    EXPECT_EQ(Bytes(), before);
}

TEST_F(Nav, AnimationsAreAddedRenamedSelectedAndNeverAllDeleted) {
    auto* list = nav->Control<GuiListBox>(kNavAnimList);
    static_cast<QPushButton*>(nav->Control<GuiButton>(kNavAnimAdd)->window.handle())->click();
    ASSERT_EQ(doc.Wirrel().anims.size(), 2u);
    EXPECT_EQ(list->GetCount(), 2);
    EXPECT_EQ(list->GetSel(), 1);
    EXPECT_EQ(list->Item(1).text.Utf8(), "Animation 2");

    list->BeginEdit(1);
    list->itemEdit->SetText("walk");
    list->itemEdit->FocusLost();
    EXPECT_EQ(labels.back(), "Rename Animation");
    EXPECT_EQ(NameOf(doc.Wirrel().anims[1].name), "walk");

    kovra::test::ControlHarness harness(*list, list->width, list->height);
    harness.Press(kButtonLeft, 20, 5);
    EXPECT_EQ(doc.cursor.animIndex, 0);
    EXPECT_EQ(labels.back(), "Animation Selection");
    stack.UndoRedo(false, hub);
    EXPECT_EQ(list->GetSel(), 1);

    nav->OnCommand(kNavAnimDel);
    EXPECT_EQ(doc.Wirrel().anims.size(), 1u);
    EXPECT_EQ(list->GetCount(), 1);
    const std::size_t entries = stack.Size();
    nav->OnCommand(kNavAnimDel);
    EXPECT_EQ(stack.Size(), entries);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Error");
    EXPECT_EQ(prompt.asked[0].text.Utf8(),
              "A document needs at least one animation, so the last one can't be deleted.");
}

TEST_F(Nav, ImagesAreAddedAllOrNoneAndDeletedAfterTheWarning) {
    doc.Wirrel().textures.clear();
    doc.Wirrel().skins.clear();
    doc.CurrentKey().pins[1].skin = -1;
    const std::string good = std::string(KOVRA_TEST_DATA) + "/images/rgb.png";
    std::vector<aurel::DualString> offered = {good, "/nonexistent/missing.png", good};
    nav->openImages = [&](const aurel::DualString&, bool multiple) {
        EXPECT_TRUE(multiple);
        return offered;
    };
    const auto before = Bytes();
    nav->OnCommand(kNavImageAdd);
    EXPECT_TRUE(doc.images.empty());
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(stack.Size() == 0);
    // Only the failure is told; the colour-key question of the first file may come before it.
    int failures = 0;
    for (const aurel::PromptRequest& asked : prompt.asked) {
        failures += asked.text.Utf8().find("missing.png") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(failures, 1);

    offered = {good};
    nav->OnCommand(kNavImageAdd);
    ASSERT_EQ(doc.images.size(), 1u);
    EXPECT_EQ(nav->Control<GuiListBox>(kNavImageList)->Item(0).text.Utf8(), "rgb.png");
    EXPECT_EQ(labels.back(), "Load Image");

    // A skin on one of its textures: the delete asks first, and Cancel keeps the image.
    if (doc.Wirrel().textures.empty()) {
        doc.Wirrel().textures.push_back(WirrelTexture{0, 0, 0, 2, 2});
    }
    doc.Wirrel().skins.push_back(WirrelSkin{0, 0.0f, 0.0f, 1.0f, 1.0f, 0.0f, -1});
    images.SetCurrent(0, 1);
    prompt.asked.clear();
    prompt.Answer(aurel::kAnswerCancel);
    nav->OnCommand(kNavImageDel);
    EXPECT_EQ(doc.images.size(), 1u);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Warning");
    EXPECT_EQ(prompt.asked[0].text.Utf8(), "A skin uses a texture on this image, and will be reset. Go on?");
    prompt.Answer(aurel::kAnswerOk);
    nav->OnCommand(kNavImageDel);
    EXPECT_TRUE(doc.images.empty() || doc.images[0] == nullptr);
    EXPECT_EQ(labels.back(), "Delete Image");
}

TEST_F(Nav, ModesChainTheirPanelsAndTheFillTellsNoListener) {
    const struct {
        int mode;
        int tool;
        std::vector<int> chain;
    } cases[] = {
        {kModeAnimate, kToolSkin, {kNavEditModePanel, kNavAnimPanel, kNavBonePanel, kNavViewPanel}},
        {kModeBuild,
         kToolSkin,
         {kNavEditModePanel, kNavAnimPanel, kNavTexturesPanel, kNavSkinPanel, kNavViewPanel}},
        {kModeBuild, kToolRectangle, {kNavEditModePanel, kNavAnimPanel, kNavCollisionPanel, kNavViewPanel}},
        {kModeTextures, kToolSkin, {kNavEditModePanel, kNavImagePanel, kNavTexturePanel}},
        {kModeBackground, kToolSkin, {kNavEditModePanel, kNavBgPanel, kNavViewPanel}},
    };
    const int padding = aurel::CurrentTheme().panels.padding;
    for (const auto& c : cases) {
        hub.mode = c.mode;
        hub.tool = c.tool;
        nav->Update();
        EXPECT_EQ(nav->Chain(), c.chain);
        int y = padding;
        for (const int id : c.chain) {
            auto* panel = dynamic_cast<GuiSubPanel*>(nav->GetDlgControl(id));
            ASSERT_NE(panel, nullptr);
            EXPECT_TRUE(panel->IsVisible());
            EXPECT_EQ(panel->x, padding);
            EXPECT_EQ(panel->y, y);
            y += panel->height + padding;
        }
        EXPECT_TRUE(nav->Control<GuiToolbar>(kNavEditMode)->GetButtonState(kNavModeAnimate + c.mode));
        EXPECT_EQ(nav->Control<GuiToolbar>(kNavOptions)->IsVisible(), c.mode == kModeAnimate);
    }
    // A collapsed panel pulls the ones below it up.
    auto* anim = dynamic_cast<GuiSubPanel*>(nav->GetDlgControl(kNavAnimPanel));
    kovra::test::ControlHarness harness(*anim, anim->width, anim->height);
    harness.Press(kButtonLeft, 30, 5);
    EXPECT_EQ(nav->GetDlgControl(kNavBgPanel)->IsVisible(), true);
    hub.mode = kModeAnimate;
    nav->Update();
    EXPECT_EQ(nav->GetDlgControl(kNavBonePanel)->y, anim->y + GuiSubPanel::BarHeight() + padding);

    // Selections and undo refill every control, and no refill makes a command.
    pins.SetCurrent(0, 0);
    EXPECT_EQ(nav->Control<GuiComboBox>(kNavBoneTypes)->GetSel(), static_cast<int>(Root));
    EXPECT_EQ(nav->Control<GuiProps>(kNavSkinProps)->RowCount(), 0);
    pins.SetCurrent(1, 0);
    EXPECT_EQ(nav->Control<GuiProps>(kNavSkinProps)->RowCount(), 5);
    EXPECT_EQ(nav->Control<GuiComboBox>(kNavBoneTypes)->GetSel(), static_cast<int>(Bone));
    doc.onChanged.Call();
    EXPECT_EQ(stack.Size(), 0u);
    EXPECT_TRUE(labels.empty());
}

TEST_F(Nav, ASkinDroppedOnAPinOrOnEmptySpaceIsOneStep) {
    doc.Wirrel().textures.push_back(WirrelTexture{0, 8, 0, 4, 4});
    const auto before = Bytes();
    auto onPin = MakeSkinDrop(doc, pins, 1, 0, 0.0f, 0.0f);
    ASSERT_NE(onPin, nullptr);
    EXPECT_EQ(onPin->label.Utf8(), "Drop Skin on Pin");
    ASSERT_NE(SkinOf(doc, 0), nullptr);
    EXPECT_EQ(SkinOf(doc, 0)->texture, 1);
    onPin->Undo();
    EXPECT_EQ(Bytes(), before);

    auto onSpace = MakeSkinDrop(doc, pins, 1, -1, 0.0f, -2.0f);
    ASSERT_EQ(doc.CurrentKey().pins.size(), 3u);
    const WirrelPin& root = doc.CurrentKey().pins[2];
    EXPECT_EQ(root.Type(), Root);
    EXPECT_NEAR(root.length, 2.0f, 1e-6f);
    EXPECT_NEAR(root.angle, 3.0f * 1.5707964f, 1e-5f);
    EXPECT_EQ(NameOf(doc.Wirrel().pinNames[2]), "Pin 2");
    EXPECT_EQ(SkinOf(doc, 2)->texture, 1);
    const auto after = Bytes();
    onSpace->Undo();
    EXPECT_EQ(Bytes(), before);
    onSpace->Redo();
    EXPECT_EQ(Bytes(), after);
    EXPECT_EQ(MakeSkinDrop(doc, pins, 7, 0, 0.0f, 0.0f), nullptr);
}

// Random clicks, typed values, selections and modes over the whole column: nothing breaks, and undoing
// every step gives the document back byte for byte.
TEST_F(Nav, ARandomWalkOverTheColumnUndoesToTheStart) {
    nav->openImages = [](const aurel::DualString&, bool) { return std::vector<aurel::DualString>{}; };
    const auto start = Bytes();
    const std::vector<int> commands = {
        kNavModeAnimate,   kNavModeAnimate + 1, kNavModeAnimate + 2, kNavModeBackground, kNavOptionIk,
        kNavOptionRotate,  kNavToolSkin,        kNavToolSkin + 1,    kNavImageAdd,       kNavImageDel,
        kNavImageReplace,  kNavAnimAdd,         kNavAnimDel,         kNavAnimList,       kNavSkinMirror,
        kNavSkinFlip,      kNavSkinIncZ,        kNavSkinDecZ,        kNavSkinCollision,  kNavBoneTypes,
        kNavBgAlpha,       kNavBgSource,        kNavViewLabels,      kNavViewBones,      kNavViewSkinning,
        kNavViewCollision, kNavViewBg,          kNavScaleEdit};
    const std::vector<int> grids = {kNavBoneProps, kNavSkinProps, kNavTextureProps, kNavBgProps};
    const std::vector<std::string> texts = {
        "1", "-3.5", "abc", "", "720", "0.25", "12345678901234567890123456789012345"};
    std::mt19937 random(20261123);
    auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int step = 0; step < 600; ++step) {
        switch (pick(5)) {
            case 0: {
                const int id = commands[static_cast<std::size_t>(pick(static_cast<int>(commands.size())))];
                if (auto* combo = nav->Control<GuiComboBox>(id)) {
                    combo->SetSel(pick(combo->GetCount() + 1) - 1);
                }
                if (auto* list = nav->Control<GuiListBox>(id)) {
                    list->SetSel(pick(list->GetCount() + 1) - 1);
                }
                nav->OnCommand(id);
                break;
            }
            case 1: {
                auto* grid = nav->Control<GuiProps>(grids[static_cast<std::size_t>(pick(4))]);
                const int row = pick(std::max(1, grid->RowCount()));
                grid->input.MouseMove(100, 1 + row * 19 + 9, true);
                if (grid->EditRow() == row) {
                    grid->overlayEdit->SetText(
                        texts[static_cast<std::size_t>(pick(static_cast<int>(texts.size())))]);
                    grid->overlayEdit->FocusLost();
                }
                break;
            }
            case 2:
                pins.SetCurrent(pick(4) - 1, 0);
                break;
            case 3:
                textures.SetCurrent(pick(3) - 1, 0);
                break;
            default:
                hub.mode = pick(4);
                hub.tool = pick(3);
                nav->Update();
                break;
        }
    }
    EXPECT_GT(stack.Size(), 0u);
    while (stack.CanUndo()) {
        stack.UndoRedo(false, hub);
    }
    EXPECT_EQ(Bytes(), start);
}

}  // namespace
