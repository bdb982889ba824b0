#include "textures/texture_commands.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>

#include "commands/command_stack.h"
#include "commands/doc_state.h"
#include "sheet.h"
#include "support/scripted_prompt.h"
#include "textures/detection.h"
#include "textures/texture_edit.h"

namespace kovra {
namespace {

using test::Sheet;

// Two images; textures 0 and 1 on the first, 2 and 3 on the second; skins on textures 1, 3, 1; one key
// frame whose pins show skins 0, 1 and 2.
struct Fixture {
    Fixture() {
        doc.SetImage(0, Sheet({"####.......", "####..####.", "####..####.", "####..####.", "......####."}));
        doc.SetImage(1, Sheet({"kkkkkkkk", "krrrrkkk", "krrrrkkk", "krrrrkkk", "krrrrkkk", "kkkkkkkk"}));
        Wirrel& w = doc.Wirrel();
        w.textures = {{0, 0, 0, 4, 4}, {0, 6, 1, 4, 4}, {1, 1, 1, 4, 4}, {1, 0, 0, 8, 6}};
        w.skins = {{1}, {3}, {1}};
        for (int skin = 0; skin < 3; ++skin) {
            doc.AddPin(0.5f, 2.0f, -1, "pin");
            doc.CurrentKey().pins.back().skin = skin;
        }
        // Masks as loading leaves them, without the colour key.
        for (int image = 0; image < 2; ++image) {
            int keyChoice = 0;
            ApplyDetection(true, *doc.Image(image), image, doc, prompt, textures, keyChoice, images);
        }
    }

    std::vector<std::int32_t> PinSkins() const {
        std::vector<std::int32_t> out;
        for (const WirrelPin& pin : doc.Wirrel().anims[0].keys[0].pins) {
            out.push_back(pin.skin);
        }
        return out;
    }

    WirrelDoc doc;
    SelectionTracker textures;
    SelectionTracker images;
    test::ScriptedPrompt prompt;
};

TEST(TextureCommands, MoveEveryGripAtTheImageEdges) {
    // A 6 by 4 rectangle at (2, 3) on a 20 by 10 image.
    const TexRect start{2, 3, 8, 7};
    struct Case {
        int grip;
        int dx;
        int dy;
        WirrelTexture result;  // image index -1, x, y, w, h
    };
    const Case cases[] = {
        {kGripMove, -5, -5, {-1, 0, 0, 6, 4}},
        {kGripMove, 100, 100, {-1, 14, 6, 6, 4}},
        {kGripMove + 1, 1, 1, {-1, 3, 4, 6, 4}},
        {kGripRight, 100, 0, {-1, 2, 3, 18, 4}},
        {kGripRight, -6, 0, {-1, 2, 3, 1, 4}},
        {kGripRight, -7, 0, {-1, 1, 3, 1, 4}},
        {kGripRight, -100, 0, {-1, 0, 3, 2, 4}},
        {kGripLeft, -100, 0, {-1, 0, 3, 8, 4}},
        {kGripLeft, 6, 0, {-1, 7, 3, 1, 4}},
        {kGripLeft, 10, 0, {-1, 8, 3, 4, 4}},
        {kGripLeft, 100, 0, {-1, 8, 3, 12, 4}},
        {kGripTop, 0, -100, {-1, 2, 0, 6, 7}},
        {kGripTop, 0, 3, {-1, 2, 5, 6, 1}},
        {kGripTop, 0, 4, {-1, 2, 7, 6, 0}},
        {kGripTop, 0, 100, {-1, 2, 7, 6, 3}},
        {kGripBottom, 0, 100, {-1, 2, 3, 6, 7}},
        {kGripBottom, 0, -4, {-1, 2, 3, 6, 1}},
        {kGripBottom, 0, -100, {-1, 2, 0, 6, 3}},
        {kGripTop, 100, 0, {-1, 2, 3, 6, 4}},
        {kGripRight, 0, 100, {-1, 2, 3, 6, 4}},
        {kGripTopLeft, -100, -100, {-1, 0, 0, 8, 7}},
        {kGripTopRight, 100, -100, {-1, 2, 0, 18, 7}},
        {kGripBottomLeft, -100, 100, {-1, 0, 3, 8, 7}},
        {kGripBottomRight, 100, 100, {-1, 2, 3, 18, 7}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "grip " << c.grip << " by " << c.dx << ", " << c.dy);
        EXPECT_EQ(CommandTexMove::Moved(start, c.grip, c.dx, c.dy, 20, 10), c.result);
    }
}

TEST(TextureCommands, DragMergesAndMarksAtFreeze) {
    Fixture f;
    CommandStack stack;
    f.textures.SetCurrent(1, 0);
    f.doc.Image(0)->UpdateMarks(1, 6, 1, 4, 4);
    const auto marksBefore = f.doc.Image(0)->marks[1];
    for (float dx : {0.7f, 1.5f, -2.9f}) {
        stack.AddCommand(
            std::make_shared<CommandTexMove>(f.doc, f.textures, TexRect{6, 1, 10, 5}, kGripMove, dx, 0.0f));
    }
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(f.doc.Wirrel().textures[1], (WirrelTexture{0, 4, 1, 4, 4}));
    EXPECT_EQ(f.doc.Image(0)->marks[1], marksBefore);
    stack.FinishDrag(kKindTexMove, true);
    EXPECT_EQ(f.doc.Image(0)->marks[1], (std::vector<TexMark>{{2.0f / 3, 1.0f}}));
    test::RecordingHub hub;
    stack.UndoRedo(false, hub);
    EXPECT_EQ(f.doc.Wirrel().textures[1], (WirrelTexture{0, 6, 1, 4, 4}));
    EXPECT_EQ(f.doc.Image(0)->marks[1], marksBefore);
    stack.UndoRedo(true, hub);
    EXPECT_EQ(f.doc.Wirrel().textures[1], (WirrelTexture{0, 4, 1, 4, 4}));
}

TEST(TextureCommands, RemoveTexturesRenumbersSkinsAndKeys) {
    struct Case {
        std::set<int> removed;
        std::vector<WirrelTexture> textures;
        std::vector<WirrelSkin> skins;
        std::vector<std::int32_t> pinSkins;
    };
    const Case cases[] = {
        {{1}, {{0, 0, 0, 4, 4}, {1, 1, 1, 4, 4}, {1, 0, 0, 8, 6}}, {{2}}, {-1, 0, -1}},
        {{0, 2}, {{0, 6, 1, 4, 4}, {1, 0, 0, 8, 6}}, {{0}, {1}, {0}}, {0, 1, 2}},
        {{3, 1}, {{0, 0, 0, 4, 4}, {1, 1, 1, 4, 4}}, {}, {-1, -1, -1}},
        {{},
         {{0, 0, 0, 4, 4}, {0, 6, 1, 4, 4}, {1, 1, 1, 4, 4}, {1, 0, 0, 8, 6}},
         {{1}, {3}, {1}},
         {0, 1, 2}},
    };
    for (const Case& c : cases) {
        Fixture f;
        RemoveTextures(f.doc, c.removed);
        EXPECT_EQ(f.doc.Wirrel().textures, c.textures);
        EXPECT_EQ(f.doc.Wirrel().skins, c.skins);
        EXPECT_EQ(f.PinSkins(), c.pinSkins);
    }
}

TEST(TextureCommands, DeleteSelectsWhatTakesThePlace) {
    struct Case {
        std::set<int> selected;
        int current;
        const char* label;
        int currentAfter;
        std::size_t left;
    };
    const Case cases[] = {
        {{1, 2}, 2, "Delete Textures", 1, 2},
        {{0}, 0, "Delete Texture", 0, 3},
        {{0, 1, 2, 3}, 3, "Delete Textures", -1, 0},
    };
    for (const Case& c : cases) {
        Fixture f;
        for (int i : c.selected) {
            f.textures.Add(i, false);
        }
        f.textures.SetCurrent(c.current, 0);
        const auto saved = f.textures.Snapshot();
        CommandTexDelete command(f.doc, f.textures);
        EXPECT_EQ(command.label.Utf8(), c.label);
        EXPECT_EQ(f.doc.Wirrel().textures.size(), c.left);
        EXPECT_EQ(f.textures.currentItem, c.currentAfter);
        EXPECT_EQ(f.textures.selected,
                  c.currentAfter == -1 ? std::set<int>{} : std::set<int>{c.currentAfter});
        command.Undo();
        EXPECT_EQ(f.textures.Snapshot(), saved);
        EXPECT_EQ(f.doc.Wirrel().textures.size(), 4u);
    }
}

TEST(TextureCommands, PropertyEditsOfOneKindMerge) {
    Fixture f;
    CommandStack stack;
    f.textures.SetCurrent(2, 0);
    stack.AddCommand(std::make_shared<CommandTexProperty>(f.doc, f.textures, 90, "Texture X",
                                                          WirrelTexture{1, 2, 1, 4, 4}));
    stack.AddCommand(std::make_shared<CommandTexProperty>(f.doc, f.textures, 90, "Texture X",
                                                          WirrelTexture{1, 3, 1, 4, 4}));
    EXPECT_EQ(stack.Size(), 1u);
    stack.AddCommand(std::make_shared<CommandTexProperty>(f.doc, f.textures, 91, "Texture Y",
                                                          WirrelTexture{1, 3, 0, 4, 4}));
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(stack.At(1).GetType(), 91);
    EXPECT_EQ(f.doc.Wirrel().textures[2], (WirrelTexture{1, 3, 0, 4, 4}));
    test::RecordingHub hub;
    stack.UndoRedo(false, hub);
    EXPECT_EQ(f.doc.Wirrel().textures[2], (WirrelTexture{1, 3, 1, 4, 4}));
    stack.UndoRedo(false, hub);
    EXPECT_EQ(f.doc.Wirrel().textures[2], (WirrelTexture{1, 1, 1, 4, 4}));
}

TEST(TextureCommands, CreateMarksAndSelects) {
    Fixture f;
    CommandTexCreate command(0, f.doc, f.textures, TexRect{5, 0, 11, 5});
    EXPECT_EQ(f.doc.Wirrel().textures.back(), (WirrelTexture{0, 5, 0, 6, 5}));
    EXPECT_EQ(f.textures.currentItem, 4);
    EXPECT_EQ(f.textures.currentPart, 0);
    ASSERT_TRUE(f.doc.Image(0)->marks.contains(4));
    command.Undo();
    EXPECT_FALSE(f.doc.Image(0)->marks.contains(4));
    EXPECT_EQ(f.doc.Wirrel().textures.size(), 4u);
    EXPECT_EQ(f.textures.currentItem, -1);
}

TEST(TextureCommands, AutoDetectAsksOnceAndKeepsTheAnswer) {
    Fixture f;
    f.images.SetCurrent(1, 0);
    f.prompt.Answer(aurel::kAnswerOk);   // skins use textures of the image
    f.prompt.Answer(aurel::kAnswerYes);  // the colour key
    CommandTexAutoDetect command(f.doc, f.prompt, f.textures, f.images);
    ASSERT_TRUE(command.succeeded);
    ASSERT_EQ(f.prompt.asked.size(), 2u);
    EXPECT_EQ(f.prompt.asked[1].title.Utf8(), "Color key");
    const Wirrel after = f.doc.Wirrel();
    EXPECT_EQ(after.textures,
              (std::vector<WirrelTexture>{{0, 0, 0, 4, 4}, {0, 6, 1, 4, 4}, {1, 1, 1, 4, 4}}));
    command.Undo();
    command.Redo();
    EXPECT_EQ(f.prompt.asked.size(), 2u);
    EXPECT_EQ(f.doc.Wirrel(), after);
    EXPECT_EQ(f.doc.Image(1)->colorKey, 0xFF00FFu);

    f.images.SetCurrent(0, 0);
    f.prompt.Answer(aurel::kAnswerCancel);
    CommandTexAutoDetect cancelled(f.doc, f.prompt, f.textures, f.images);
    EXPECT_FALSE(cancelled.succeeded);
    EXPECT_EQ(f.doc.Wirrel(), after);
}

// Every texture command, undone and redone, gives back the saved document byte for byte.
TEST(TextureCommands, UndoRedoIsByteExact) {
    using Make = std::function<std::shared_ptr<ICommand>(Fixture&)>;
    const std::pair<const char*, Make> commands[] = {
        {"create",
         [](Fixture& f) {
             return std::make_shared<CommandTexCreate>(1, f.doc, f.textures, TexRect{0, 0, 3, 2});
         }},
        {"move",
         [](Fixture& f) {
             f.textures.SetCurrent(2, 0);
             return std::make_shared<CommandTexMove>(f.doc, f.textures, TexRect{1, 1, 5, 5}, kGripTopLeft,
                                                     -3.0f, 2.0f);
         }},
        {"delete",
         [](Fixture& f) {
             f.textures.Add(1, false);
             f.textures.Add(3, true);
             return std::make_shared<CommandTexDelete>(f.doc, f.textures);
         }},
        {"property",
         [](Fixture& f) {
             f.textures.SetCurrent(0, 0);
             return std::make_shared<CommandTexProperty>(f.doc, f.textures, 90, "Texture W",
                                                         WirrelTexture{0, 0, 0, 2, 4});
         }},
        {"auto-detect",
         [](Fixture& f) {
             f.images.SetCurrent(0, 0);
             f.prompt.Answer(aurel::kAnswerOk);
             return std::make_shared<CommandTexAutoDetect>(f.doc, f.prompt, f.textures, f.images);
         }},
    };
    for (const auto& [name, make] : commands) {
        SCOPED_TRACE(name);
        Fixture f;
        const auto before = test::Saved(f.doc);
        const auto command = make(f);
        const auto after = test::Saved(f.doc);
        EXPECT_NE(after, before);
        for (int round = 0; round < 2; ++round) {
            command->Undo();
            EXPECT_EQ(test::Saved(f.doc), before);
            command->Redo();
            EXPECT_EQ(test::Saved(f.doc), after);
        }
    }
}

}  // namespace
}  // namespace kovra
