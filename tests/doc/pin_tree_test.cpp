#include "doc/pin_tree.h"

#include <gtest/gtest.h>

#include <cmath>

#include "doc/wirrel_doc.h"
#include "support/english.h"
#include "support/scripted_prompt.h"

namespace kovra {
namespace {

constexpr float kQuarter = 1.5707964f;

WirrelPin Pin(PinType type, int parent, float angle, float length, int id, std::uint32_t more = 0) {
    return {.angle = angle, .length = length, .flags = type | more, .parent = parent, .id = id};
}

// Two trees: R (1, 0) <- A (1, 2) <- B (4, 2), with a hidden Tracker under A; and S at (5, 0).
WirrelKey TwoTrees() {
    return {{Pin(Root, -1, 0, 1, 0), Pin(Bone, 0, kQuarter, 2, 1), Pin(Bone, 1, 0, 3, 2),
             Pin(Tracker, 1, 0, 1, 3, kPinHidden), Pin(Root, -1, 0, 5, 4)}};
}

std::vector<WorldPoint> Positions(const WirrelKey& key) {
    std::vector<WorldPoint> out;
    PinPositions(key, out);
    return out;
}

void ExpectSamePlaces(const std::vector<WorldPoint>& actual, const std::vector<WorldPoint>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].x, expected[i].x, 1e-5f) << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, 1e-5f) << i;
    }
}

std::vector<int> Parents(const WirrelKey& key) {
    std::vector<int> parents;
    for (const WirrelPin& pin : key.pins) {
        parents.push_back(pin.parent);
    }
    return parents;
}

TEST(PinTree, NormalizeAngle) {
    const std::vector<std::pair<float, float>> cases = {
        {-0.5f, kTwoPi - 0.5f},
        {kTwoPi, 0.0f},
        {2 * kTwoPi + 1.0f, 2 * kTwoPi + 1.0f - kTwoPi - kTwoPi},  // turn by turn, as the editor always did
        {INFINITY, 0.0f},
        {NAN, 0.0f},
    };
    for (const auto& [in, out] : cases) {
        EXPECT_EQ(NormalizeAngle(in), out) << in;
    }
    const float far = NormalizeAngle(1e30f);  // without a walk of 1e29 turns
    EXPECT_TRUE(far >= 0.0f && far < kTwoPi);
    EXPECT_EQ(NormalizeAngle(-1.0), 6.2831854 - 1.0);
}

TEST(PinTree, LookUps) {
    WirrelKey key = TwoTrees();
    EXPECT_EQ(RootOf(key, 2), 0);
    EXPECT_EQ(RootOf(key, 4), 4);
    EXPECT_EQ(RootOf(key, 9), -1);
    EXPECT_TRUE(IsHiddenWithChildren(key, 3));  // no children: its own state
    EXPECT_FALSE(IsHiddenWithChildren(key, 2));
    key.pins[1].flags |= kPinHidden;
    EXPECT_FALSE(IsHiddenWithChildren(key, 1));  // B is shown
    key.pins[2].flags |= kPinHidden;
    EXPECT_TRUE(IsHiddenWithChildren(key, 1));
    key.pins[1].SetType(Root);
    EXPECT_EQ(RootOf(key, 2), 1);  // the first root on the way up

    // Another key frame holds the same pins in another order: look-ups go by id.
    WirrelKey other = key;
    std::reverse(other.pins.begin(), other.pins.end());
    EXPECT_EQ(FindPin(1, 1, key), 1);
    EXPECT_EQ(FindPin(1, 1, other), 3);  // a stale hint
    EXPECT_EQ(FindPin(4, 99, other), 0);
    EXPECT_EQ(FindPin(7, 0, other), -1);
}

TEST(PinTree, Positions) {
    ExpectSamePlaces(Positions(TwoTrees()), {{1, 0}, {1, 2}, {4, 2}, {2, 2}, {5, 0}});
    // A child before its parent, and a loop that never reaches a root: the loop stays at the origin.
    const WirrelKey key{{Pin(Bone, 1, 0, 2, 0), Pin(Root, -1, kQuarter, 1, 1), Pin(Bone, 3, 0, 1, 2),
                         Pin(Bone, 2, 0, 1, 3), Pin(Bone, 7, 0, 1, 4)}};
    ExpectSamePlaces(Positions(key), {{2, 1}, {0, 1}, {0, 0}, {0, 0}, {0, 0}});
}

TEST(PinTree, ReparentKeepsThePlacesOrRefusesALoop) {
    struct Case {
        const char* what;
        int index;
        int newParent;
        std::vector<int> parents;  // none: refused
    };
    const std::vector<Case> cases = {
        {"onto another tree, the old chain inverted below it", 2, 4, {1, 2, 4, 1, -1}},
        {"made a root", 1, -1, {1, -1, 1, 1, -1}},
        {"already there", 2, 1, {-1, 0, 1, 1, -1}},
        {"under its own child", 0, 2, {}},
        {"under a pin of its own tree", 2, 3, {}},
        {"under itself", 1, 1, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        WirrelKey key = TwoTrees();
        test::ScriptedPrompt prompt;
        EXPECT_EQ(Reparent(key, c.index, c.newParent, prompt), !c.parents.empty());
        if (c.parents.empty()) {
            EXPECT_EQ(key, TwoTrees());
            ASSERT_EQ(prompt.asked.size(), 1u);
            EXPECT_EQ(prompt.asked[0].title.Utf8(), "Invalid action");
            EXPECT_EQ(prompt.asked[0].text.Utf8(), "Invalid action. Creating this bone would form a loop.");
            continue;
        }
        EXPECT_TRUE(prompt.asked.empty());
        EXPECT_EQ(Parents(key), c.parents);
        ExpectSamePlaces(Positions(key), Positions(TwoTrees()));
        for (const WirrelPin& pin : key.pins) {
            EXPECT_TRUE(pin.angle >= 0.0f && pin.angle < kTwoPi);
        }
    }
}

TEST(PinTree, UnlinkFreesTheChildren) {
    WirrelKey key = TwoTrees();
    key.pins[2].skin = 4;
    UnlinkPin(key, 1);
    // The bone child becomes a root where it stood, without its skin; the tracker keeps its type.
    EXPECT_EQ(Parents(key), (std::vector<int>{-1, 0, -1, -1, -1}));
    EXPECT_EQ(key.pins[2].Type(), Root);
    EXPECT_EQ(key.pins[2].skin, -1);
    EXPECT_NEAR(key.pins[2].angle, std::atan2(2.0f, 4.0f), 1e-6f);
    EXPECT_NEAR(key.pins[2].length, std::sqrt(20.0f), 1e-5f);
    EXPECT_EQ(key.pins[3].Type(), Tracker);
    EXPECT_EQ(key.pins[1].flags, Bone | kPinHidden);
}

class PinTreeDocTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    // The current animation has two key frames; a second animation exists beside it.
    PinTreeDocTest() {
        doc.AddAnim("Other", kAnimEmpty, -1);
        doc.cursor.animIndex = 0;
        doc.CurrentAnim().keys.push_back(WirrelKey{});
    }
    std::vector<WirrelPin>& PinsOf(std::size_t key) { return doc.Wirrel().anims[0].keys[key].pins; }

    WirrelDoc doc;
};

TEST_F(PinTreeDocTest, AddPinAndRemoveItWhenUnused) {
    EXPECT_EQ(doc.AddPin(0, 1, -1, "root"), 0);
    EXPECT_EQ(doc.AddPin(0.5f, 2, 0, "arm"), 1);
    EXPECT_EQ(PinsOf(0), (std::vector<WirrelPin>{Pin(Root, -1, 0, 1, 0), Pin(Bone, 0, 0.5f, 2, 1)}));
    EXPECT_EQ(PinsOf(1), (std::vector<WirrelPin>{Pin(Root, -1, 0, 1, 0, kPinHidden),
                                                 Pin(Bone, 0, 0.5f, 2, 1, kPinHidden)}));
    EXPECT_TRUE(doc.Wirrel().anims[1].keys[0].pins.empty());

    // The root still holds the arm in the second key frame, then in none; it stays shown in the first.
    UnlinkPin(doc.CurrentKey(), 0);
    EXPECT_FALSE(RemovePinIfUnused(doc.Wirrel(), 0));
    UnlinkPin(doc.Wirrel().anims[0].keys[1], 0);
    EXPECT_TRUE(RemovePinIfUnused(doc.Wirrel(), 0));
    for (std::size_t key : {0, 1}) {
        EXPECT_EQ(Parents(doc.Wirrel().anims[0].keys[key]), std::vector<int>{-1});
        EXPECT_EQ(PinsOf(key).at(0).id, 0);
    }
    EXPECT_EQ(doc.Wirrel().pinNames, std::vector<Name32>{MakeName("arm")});
    EXPECT_FALSE(RemovePinIfUnused(doc.Wirrel(), 0));  // shown in the first key frame
}

TEST_F(PinTreeDocTest, TailThereAndBack) {
    doc.AddPin(0, 1, -1, "root");
    doc.AddPin(0, 3, 0, "tail");
    const std::vector<WorldPoint> before = Positions(doc.CurrentKey());
    MakeTail(doc, 1);

    const float third = 3 * 0.33333334f;
    EXPECT_EQ(PinsOf(0), (std::vector<WirrelPin>{Pin(Root, -1, 0, 1, 0), Pin(Tail, 3, 0, third, 1, kTailEnd),
                                                 Pin(Tail, 0, 0, third, 2, kTailAnchor),
                                                 Pin(Tail, 2, 0, third, 3, kTailSegment)}));
    EXPECT_EQ(PinsOf(1)[2], Pin(Bone, 0, 0, third, 2, kPinHidden));
    EXPECT_NEAR(Positions(doc.CurrentKey())[1].x, before[1].x, 1e-5f);

    EndTail(doc.Wirrel(), doc.CurrentKey(), 1, Bone);
    EXPECT_EQ(PinsOf(0),
              (std::vector<WirrelPin>{Pin(Root, -1, 0, 1, 0), Pin(Bone, 0, 0, third + third + third, 1)}));
    EXPECT_EQ(PinsOf(1).size(), 2u);
    EXPECT_EQ(doc.PinCount(), 2u);
}

}  // namespace
}  // namespace kovra
