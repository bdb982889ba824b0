#include "state/pin_clipboard.h"

#include <gtest/gtest.h>

#include "anim/playback.h"
#include "doc/pin_tree.h"

namespace kovra {
namespace {

// A root and a bone under it in animation "Walk" of two key frames, and an animation "Idle" of two
// key frames that doesn't hold them.
class PinClipboardTest : public ::testing::Test {
protected:
    void SetUp() override {
        doc.Reset(false);
        doc.AddAnim("Idle", kAnimEmpty, -1);
        doc.CurrentAnim().keys.push_back(doc.CurrentKey());
        doc.AddAnim("Walk", kAnimEmpty, -1);
        doc.CurrentAnim().keys.push_back(doc.CurrentKey());
        doc.AddPin(0.5f, 20.0f, -1, "hip");
        doc.AddPin(1.0f, 10.0f, 0, "thigh");
    }

    WirrelDoc doc;
    PinClipboard clipboard;
};

TEST_F(PinClipboardTest, CopyKeepsParentsById) {
    WirrelKey frame = doc.CurrentKey();
    std::swap(frame.pins[0], frame.pins[1]);
    frame.pins[0].parent = 1;
    frame.pins[1].parent = -1;
    clipboard.Copy(frame, {0, 1});
    ASSERT_TRUE(clipboard.HoldsPins());
    EXPECT_EQ(clipboard.pins[0].id, 1);
    EXPECT_EQ(clipboard.pins[0].parent, 0);
    EXPECT_EQ(clipboard.pins[1].parent, -1);
    clipboard.Clear();
    EXPECT_FALSE(clipboard.HoldsPins());
}

TEST_F(PinClipboardTest, PinsMissingFromTheAnimationAreAddedHiddenExceptInTheCurrentKeyFrame) {
    clipboard.Copy(doc.CurrentKey(), {1, 0});
    SwitchAnimation(doc, 0);
    doc.SetFrame(1);
    const std::shared_ptr<ICommand> paste = PastePins(doc, clipboard);

    for (const std::size_t key : {0u, 1u}) {
        const std::vector<WirrelPin>& pins = doc.Wirrel().anims[0].keys[key].pins;
        ASSERT_EQ(pins.size(), 2u);
        EXPECT_EQ(pins[0].id, 1);
        EXPECT_EQ(pins[0].parent, 1) << "the thigh hangs from the hip wherever the hip lands";
        EXPECT_EQ(pins[1].parent, -1);
        EXPECT_EQ((pins[0].flags & kPinHidden) != 0, key == 0);
        EXPECT_EQ(pins[0].angle, 1.0f);
    }
    paste->Undo();
    EXPECT_TRUE(doc.Wirrel().anims[0].keys[1].pins.empty());
}

TEST_F(PinClipboardTest, PinsTheKeyFrameHoldsAreReplacedThereOnly) {
    doc.CurrentAnim().keys[1].pins[1].parent = -1;
    clipboard.Copy(doc.CurrentKey(), {1});
    clipboard.pins[0].angle = 2.5f;
    clipboard.pins[0].flags &= ~kPinHidden;
    doc.SetFrame(1);
    const std::vector<WirrelKey> keys = PastedKeys(doc, clipboard);

    EXPECT_EQ(keys[1].pins.size(), 2u);
    EXPECT_EQ(keys[1].pins[1].angle, 2.5f);
    EXPECT_EQ(keys[1].pins[1].parent, 0);
    EXPECT_EQ(keys[0], doc.CurrentAnim().keys[0]);
}

}  // namespace
}  // namespace kovra
