#include "views/dialogs/history_list.h"

#include <gtest/gtest.h>

#include "commands/doc_state.h"
#include "commands/editor_commands.h"
#include "commands/pin_commands.h"
#include "support/english.h"

namespace kovra {
namespace {

// "Default" has four frames and "Run" three; each holds a root with a chain of two bones.
void BuildAnimation(WirrelDoc& doc) {
    doc.Reset(true);
    Wirrel& w = doc.Wirrel();
    w.pinNames = {MakeName("hip"), MakeName("leg"), MakeName("foot")};
    const WirrelKey key{.pins = {{.flags = Root, .id = 0},
                                 {.angle = 1.0f, .length = 2, .flags = Bone, .parent = 0, .id = 1},
                                 {.angle = 0.5f, .length = 3, .flags = Bone, .parent = 1, .id = 2}}};
    w.anims[0].keys.assign(4, key);
    doc.AddAnim("Run", kAnimCopy, -1);
    w.anims[1].keys.pop_back();
    doc.cursor.animIndex = 0;
    doc.cursor.animName = w.anims[0].name;
    doc.SetFrame(1);
}

class HistoryListTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    std::vector<HistoryRowKind> Kinds() const {
        std::vector<HistoryRowKind> kinds;
        for (const HistoryRow& row : HistoryRows(stack)) {
            kinds.push_back(row.kind);
        }
        return kinds;
    }

    WirrelDoc doc;
    CommandStack stack;
    test::RecordingHub hub;
};

TEST_F(HistoryListTest, RowsFollowUndoRedoAndNewCommands) {
    using enum HistoryRowKind;
    BuildAnimation(doc);
    ASSERT_EQ(HistoryRows(stack).size(), 1u);
    EXPECT_EQ(HistoryRows(stack)[0].text, "New Document");
    EXPECT_EQ(HistorySelection(stack), 0);

    stack.AddCommand(std::make_shared<CommandPinType>(doc, 2, Attachment));
    stack.AddCommand(std::make_shared<CommandEditorPpu>(doc, 40));
    EXPECT_EQ(Kinds(), (std::vector{Applied, Applied, Applied}));
    EXPECT_EQ(HistoryRows(stack)[1].text, stack.At(0).label.Utf8());
    EXPECT_EQ(HistorySelection(stack), 2);

    stack.UndoRedo(false, hub);
    EXPECT_EQ(Kinds(), (std::vector{Applied, Applied, Undone}));
    EXPECT_EQ(HistorySelection(stack), 1);
    stack.UndoRedo(true, hub);
    EXPECT_EQ(HistorySelection(stack), 2);
    stack.UndoRedo(false, hub);
    stack.UndoRedo(false, hub);
    EXPECT_EQ(Kinds(), (std::vector{Applied, Undone, Undone}));
    EXPECT_TRUE(OfferedRepeats(stack).empty());

    stack.AddCommand(std::make_shared<CommandPinType>(doc, 1, Attachment));
    EXPECT_EQ(Kinds(), (std::vector{Applied, Applied}));
    EXPECT_EQ(HistorySelection(stack), 1);
}

TEST_F(HistoryListTest, AnOpenTopIsMarkedAndColoured) {
    BuildAnimation(doc);
    const aurel::Theme theme;
    stack.AddCommand(std::make_shared<CommandEditorPpu>(doc, 40));
    stack.AddCommand(std::make_shared<CommandEditorMode>(hub, kModeBuild));
    const bool open = !stack.IsTopFrozen();
    const HistoryRowKind top = HistoryRows(stack).back().kind;
    EXPECT_EQ(top, open ? HistoryRowKind::Open : HistoryRowKind::Applied);
    EXPECT_EQ(HistoryRowColor(HistoryRowKind::Open, theme), theme.panels.undoActiveColor);
    EXPECT_EQ(HistoryRowColor(HistoryRowKind::Undone, theme), theme.panels.undoRedoColor);
    EXPECT_EQ(HistoryRowColor(HistoryRowKind::Applied, theme), theme.ui.listFontColor);
}

// Repeat from the dialog's menu gives, for each mode, the very document that the same repeat gives when
// made through the command API, and one undo brings the whole document back.
TEST_F(HistoryListTest, RepeatFromTheMenuMatchesTheCommandForEveryMode) {
    BuildAnimation(doc);
    stack.AddCommand(std::make_shared<CommandPinType>(doc, 2, Attachment));
    const std::vector<RepeatMode> offered = OfferedRepeats(stack);
    ASSERT_EQ(offered.size(), 12u);
    for (std::size_t i = 0; i < offered.size(); ++i) {
        EXPECT_EQ(offered[i].menuId, kRepeatModes[i].menuId);
    }
    const Wirrel afterChange = doc.Wirrel();
    for (const RepeatMode& mode : kRepeatModes) {
        SCOPED_TRACE(mode.text);
        RunRepeat(stack, doc, mode.menuId);
        EXPECT_EQ(stack.At(stack.Cursor() - 1).label.Utf8(), "Repeat " + stack.At(0).label.Utf8());
        const Wirrel viaMenu = doc.Wirrel();

        WirrelDoc direct;
        BuildAnimation(direct);
        auto change = std::make_shared<CommandPinType>(direct, 2, Attachment);
        CommandRepeat repeat(direct, change, mode.mask);
        EXPECT_TRUE(viaMenu == direct.Wirrel());

        stack.UndoRedo(false, hub);
        EXPECT_TRUE(doc.Wirrel() == afterChange);
    }
}

TEST_F(HistoryListTest, ACommandThatCannotRepeatOffersNothing) {
    BuildAnimation(doc);
    stack.AddCommand(std::make_shared<CommandEditorPpu>(doc, 40));
    EXPECT_TRUE(OfferedRepeats(stack).empty());
}

}  // namespace
}  // namespace kovra
