#include "commands/editor_commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "commands/bg_commands.h"
#include "commands/command_stack.h"
#include "commands/skin_commands.h"
#include "skin_rig.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

using std::make_shared;
using Edit = std::function<std::shared_ptr<ICommand>()>;

std::vector<std::uint8_t> ReadBytes(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class EditorCommandsTest : public test::SkinRig {
protected:
    void SetUp() override {
        SkinRig::SetUp();
        picture = folder.File("picture.png");
        std::filesystem::copy_file(KOVRA_TEST_DATA "/images/rgb.png", picture,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    // The document as its file holds it, and everything else a command may change.
    auto State() {
        EXPECT_TRUE(doc.Save(folder.File("state.ske"), true, prompt));
        return std::make_tuple(ReadBytes(folder.File("state.ske")), test::StateOf(doc, selection, hub),
                               doc.viewFlags, doc.background.bitmap.Width(), doc.notesImage.Width());
    }

    // A drag of grip `part` of the current pin in `moves` mouse moves to `mouse`, the view following
    // the skins.
    std::vector<Edit> GripDrag(int part, Vec2 mouse, int moves,
                               const std::function<std::shared_ptr<ICommand>(const SkinDrag&)>& make) {
        std::vector<Edit> edits;
        for (int move = 1; move <= moves; ++move) {
            edits.push_back([=, this] {
                if (move == 1) {
                    start = GripAt(selection.currentItem, part);
                }
                const float t = static_cast<float>(move) / static_cast<float>(moves);
                auto command = make(
                    {start, start, {start.x + (mouse.x - start.x) * t, start.y + (mouse.y - start.y) * t}});
                Refresh();
                return command;
            });
        }
        return edits;
    }

    // The press on a grip that such a drag begins with.
    std::function<void()> Press(int pin, int part) {
        return [=, this] {
            Pick(pin, part);
            Refresh();
        };
    }

    test::TempDir folder;
    std::string picture;
    test::ScriptedPrompt prompt;
    Vec2 start;
};

// Every command of the skins, the editor, the selection and the background, alone or as a run that the
// stack may merge: the run ends as `steps` steps whose first has the label and kind given; undoing them
// all gives back the document's bytes and the editor's state exactly, redoing them the state after, and
// undoing them again the state before.
TEST_F(EditorCommandsTest, EveryCommandAppliesUndoesAndRedoesExactly) {
    const auto property = [&](int kind, float angle) -> Edit {
        return [=, this] {
            return make_shared<CommandSkinProperty>(doc, "Skin Angle", kind, 1,
                                                    WirrelSkin{.texture = 0, .angle = angle});
        };
    };
    const auto rotate = [&](const SkinDrag& d) {
        return make_shared<CommandSkinRotate>(d, grips, doc, selection);
    };
    const auto scale = [&](bool expand) {
        return [=, this](const SkinDrag& d) {
            return make_shared<CommandSkinScale>(d, grips, doc, selection, expand);
        };
    };
    const auto offset = [&](bool separate) {
        std::vector<Edit> edits;
        for (int move = 0; move < 5; ++move) {
            edits.push_back([=, this] {
                auto command =
                    make_shared<CommandSkinOffset>(6.0f, -3.0f, selection, doc, grips, view, separate);
                Refresh();
                return command;
            });
        }
        return edits;
    };
    const auto rig = [&] {
        std::vector<Edit> edits;
        for (const Vec2 mouse : {Vec2{400, 260}, Vec2{131, 336}}) {
            edits.push_back([=, this] {
                auto command = make_shared<CommandSkinPin>(
                    SkinDrag{{view.pinPixels[1].x, view.pinPixels[1].y}, {448, 240}, mouse}, selection, doc,
                    view, test::kPinRadius, true);
                Refresh();
                return command;
            });
        }
        return edits;
    };
    const auto mode = [&](int m) -> Edit {
        return [=, this] { return make_shared<CommandEditorMode>(hub, m); };
    };
    const auto ppu = [&](int value) -> Edit {
        return [=, this] { return make_shared<CommandEditorPpu>(doc, value); };
    };
    const auto select = [&](int pin, int part, bool keep) -> Edit {
        return [=, this] {
            return make_shared<CommandSel>(doc, selection, "Pin Selection", 13, pin, part, keep);
        };
    };
    const auto place = [&](int kind, float dx) -> Edit {
        return [=, this] {
            BgPlacement placement = BgPlacement::Of(doc.background);
            placement.offsetX += dx;
            placement.scale *= 1.1f;
            return make_shared<CommandBgChange>(doc, "Change Background Offset", kind, placement);
        };
    };
    const auto withPicture = [&] {
        doc.background.bitmap.Resize(4, 4);
        doc.background.path = picture;
        doc.background.offsetX = 2;
        hub.backgroundLoaded = true;
    };
    const auto hotPinOnly = [&] { selection.SetHot(1, 0); };
    const auto rotatedSkin = [&] { doc.Wirrel().skins[0].angle = 2.5f; };
    const std::vector<std::uint8_t> png = ReadBytes(picture);
    EventDefinitions events{
        {MakeName("PlaySound"), MakeName("Hit")}, {{.name = 1, .types = 2, .vars = {7}}}, {{0, 1}, {-1, 0}}};

    struct Case {
        std::string name;
        std::vector<Edit> edits;
        std::size_t steps;
        std::string label;
        int kind;
        std::function<void()> setUp = nullptr;
    };
    const std::vector<Case> cases = {
        {"skin set", {[&] { return make_shared<CommandSkinSet>(doc, selection, 3, 0); }}, 1, "Set Skin", 1},
        {"skin set, shared",
         {[&] { return make_shared<CommandSkinSet>(doc, selection, 1, 1); }},
         1,
         "Set Skin",
         1},
        {"skin cleared",
         {[&] { return make_shared<CommandSkinSet>(doc, selection, 4, -1); }},
         1,
         "Set Skin",
         1},
        {"skin property merged", {property(200, 1), property(200, 2)}, 1, "Skin Angle", 200},
        {"skin properties of two kinds", {property(200, 1), property(201, 2)}, 2, "Skin Angle", 200},
        {"skin reset",
         {[&] { return MakeSkinReset(doc, 1, kGripRotate0, false, false); }},
         1,
         "Reset Skin Angle",
         8,
         rotatedSkin},
        {"rotate drag", GripDrag(kGripRotate0 + 1, {400, 272}, 20, rotate), 1, "Rotate Skin", 2,
         Press(1, kGripRotate0 + 1)},
        {"scale drag", GripDrag(kGripScaleRight, {368, 250}, 20, scale(false)), 1, "Scale Skin", 4,
         Press(1, kGripScaleRight)},
        {"expand, then scale",
         {GripDrag(kGripScaleBottom, {390, 300}, 1, scale(true))[0],
          GripDrag(kGripScaleBottom, {390, 200}, 1, scale(false))[0]},
         2,
         "Expand Skin",
         4,
         Press(1, kGripScaleBottom)},
        {"offset drag", offset(false), 1, "Offset Skin", 3, Press(2, kGripBody)},
        {"separating drag", offset(true), 1, "Separate Bones/Offset Skin", 3, Press(2, kGripBody)},
        {"rig drag, inserted and snapped", rig(), 1, "Rig Skin", 5},
        {"edit mode", {mode(kModeBackground)}, 1, "Background Edit Mode", 47},
        {"edit modes", {mode(kModeAnimate), mode(kModeTextures)}, 2, "Bones Edit Mode", 47},
        {"skin tool",
         {[&] { return make_shared<CommandEditorModeSkin>(hub, kToolRectangle); }},
         1,
         "AABB Mode",
         48},
        {"playback stop",
         {[&] { return make_shared<CommandEditorPlay>(doc, selection, 1, 2, 0, 1); }},
         1,
         "Playback Change",
         49,
         hotPinOnly},
        {"notes",
         {[&] {
             aurel::ImageSurface image;
             image.Resize(2, 2);
             return make_shared<CommandEditorNotes>(doc, "Remember", image,
                                                    std::vector<std::uint8_t>{1, 2, 3});
         }},
         1,
         "Edit Notes",
         50},
        {"pixels per unit", {ppu(64), ppu(16)}, 2, "Change PPU", 51},
        {"events", {[&] { return make_shared<CommandEditorEvents>(doc, events); }}, 1, "Edit Events", 52},
        {"pin selection", {select(3, 0, false)}, 1, "Pin Selection", 13},
        {"pin added to the selection", {select(3, 1, true), select(4, 0, true)}, 2, "Pin Selection", 13},
        {"selection cleared", {select(-1, 0, false)}, 1, "Pin Selection", 13},
        {"background drag", {place(40, 1), place(40, 2), place(40, 3)}, 1, "Change Background Offset", 40},
        {"background offset, then scale", {place(40, 1), place(41, 2)}, 2, "Change Background Offset", 40},
        {"background cleared",
         {[&] { return make_shared<CommandBgClear>(doc, hub); }},
         1,
         "Clear Background Image",
         42,
         withPicture},
        {"background loaded",
         {[&] { return make_shared<CommandBgLoad>(doc, hub, prompt, aurel::DualString(picture)); }},
         1,
         "Load Background Image",
         43},
        {"background pasted",
         {[&] { return make_shared<CommandBgLoad>(doc, hub, prompt, png.data(), png.size()); }},
         1,
         "Paste Background Image",
         43,
         withPicture},
        {"background hidden",
         {[&] { return make_shared<CommandBgToggle>(doc); }},
         1,
         "Disable Background Image",
         44},
        {"grid",
         {[&] {
             return make_shared<CommandBgGrid>(hub, WorkGrid{.stepX = 4,
                                                             .stepY = 8,
                                                             .color0 = 0xFF000000,
                                                             .color1 = 0xFFFFFFFF,
                                                             .origin = 0xFFFF0000,
                                                             .enabled = false});
         }},
         1,
         "Set Grid",
         45},
        {"background colour",
         {[&] { return make_shared<CommandBgColor>(hub, 0xFF112233); }},
         1,
         "Set Background Color",
         46},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SetUp();
        if (c.setUp) {
            c.setUp();
        }
        const auto before = State();
        CommandStack stack;
        for (const Edit& edit : c.edits) {
            stack.AddCommand(edit());
        }
        stack.FinishDrag(stack.TopCommand()->GetType(), true);
        ASSERT_EQ(stack.Size(), c.steps);
        EXPECT_TRUE(stack.IsTopFrozen());
        EXPECT_EQ(stack.At(0).label.Utf8(), c.label);
        EXPECT_EQ(stack.At(0).GetType(), c.kind);
        const auto after = State();
        EXPECT_FALSE(after == before) << "nothing done";
        for (const bool redo : {false, true, false}) {
            while (redo ? stack.CanRedo() : stack.CanUndo()) {
                stack.UndoRedo(redo, hub);
            }
            EXPECT_TRUE(State() == (redo ? after : before)) << (redo ? "redo" : "undo");
        }
        EXPECT_EQ(stack.At(0).label.Utf8(), c.label);
    }
}

TEST_F(EditorCommandsTest, ModeAndToolLabelsNameTheNewOne) {
    const std::vector<std::string> modes = {"Bones Edit Mode", "Skin Edit Mode", "Texture Edit Mode",
                                            "Background Edit Mode", "Change Edit Mode"};
    for (int m = 0; m < 5; ++m) {
        EXPECT_EQ(CommandEditorMode(hub, m).label.Utf8(), modes[m]);
    }
    const std::vector<std::string> tools = {"Skinning Mode", "AABB Mode", "Change Skin Edit Mode"};
    for (int t = 0; t < 3; ++t) {
        EXPECT_EQ(CommandEditorModeSkin(hub, t).label.Utf8(), tools[t]);
    }
}

TEST_F(EditorCommandsTest, TheToggleNamesTheActionAsItRanAndSwapsAreTheirOwnInverse) {
    CommandBgToggle hide(doc);
    CommandBgToggle show(doc);
    EXPECT_EQ(hide.label.Utf8(), "Disable Background Image");
    EXPECT_EQ(show.label.Utf8(), "Enable Background Image");
    show.Undo();
    hide.Undo();
    EXPECT_TRUE(doc.viewFlags[kViewBackground]);
    EXPECT_EQ(show.label.Utf8(), "Enable Background Image");

    CommandEditorPpu ppu(doc, 48);
    EXPECT_EQ(doc.Wirrel().pixelsPerUnit, 48);
    ppu.Redo();
    ppu.Redo();
    EXPECT_EQ(doc.Wirrel().pixelsPerUnit, 48);
    ppu.Undo();
    EXPECT_EQ(doc.Wirrel().pixelsPerUnit, 32);
}

TEST_F(EditorCommandsTest, APictureThatCantBeReadIsToldAndChangesNothing) {
    const auto start = State();
    CommandBgLoad missing(doc, hub, prompt, aurel::DualString(folder.File("missing.png")));
    EXPECT_FALSE(missing.valid);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Error");
    EXPECT_NE(prompt.asked[0].text.Utf8().find("\"" + folder.File("missing.png") + "\""), std::string::npos);
    const std::uint8_t junk[] = {1, 2, 3, 4};
    CommandBgLoad pasted(doc, hub, prompt, junk, sizeof junk);
    EXPECT_FALSE(pasted.valid);
    EXPECT_EQ(prompt.asked.size(), 2u);
    EXPECT_TRUE(State() == start);

    CommandBgLoad loaded(doc, hub, prompt, aurel::DualString(picture));
    ASSERT_TRUE(loaded.valid);
    EXPECT_TRUE(hub.backgroundLoaded);
    EXPECT_FALSE(doc.background.bitmap.IsEmpty());
    EXPECT_EQ(doc.background.path.Utf8(), picture);
}

// With the flag a click holds on to the selection: a pin joins it, nothing under the mouse changes
// nothing. Without it the pin is all that is selected, or nothing is.
TEST_F(EditorCommandsTest, ASelectionClickReplacesOrKeeps) {
    struct Case {
        int pin;
        bool keep;
        std::set<int> selected;
        int hot;
    };
    const std::vector<Case> cases = {
        {3, false, {3}, 3}, {3, true, {1, 3}, 3}, {1, true, {1}, 1}, {-1, true, {1}, 1}, {-1, false, {}, 1},
    };
    for (const Case& c : cases) {
        SetUp();
        CommandSel command(doc, selection, "Pin Selection", 13, c.pin, 2, c.keep);
        EXPECT_EQ(selection.selected, c.selected) << c.pin << " " << c.keep;
        EXPECT_EQ(selection.hotItem, c.hot) << c.pin << " " << c.keep;
        if (c.pin >= 0) {
            EXPECT_EQ(selection.currentItem, c.pin);
            EXPECT_EQ(selection.currentPart, 2);
        }
    }
}

}  // namespace
}  // namespace kovra
