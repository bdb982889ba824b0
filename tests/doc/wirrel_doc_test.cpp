#include "doc/wirrel_doc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/english.h"

namespace kovra {
namespace {

class WirrelDocTest : public testing::Test {
protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    // A document whose current animation has two key frames of distinct poses.
    static void AddTwoKeys(WirrelDoc& doc) {
        WirrelAnim& anim = doc.CurrentAnim();
        anim.keys[0].pins = {WirrelPin{.angle = 1.0f, .id = 0}};
        anim.keys[0].ticks = 600;
        anim.keys.push_back(WirrelKey{.pins = {WirrelPin{.angle = 2.0f, .id = 0}}, .ticks = 700});
        anim.speed = 2.5f;
        doc.Wirrel().pinNames.push_back(MakeName("pin"));
    }
};

TEST_F(WirrelDocTest, NewDocumentHasItsDefaults) {
    WirrelDoc doc;
    const Wirrel& w = doc.Wirrel();
    ASSERT_EQ(w.anims.size(), 1u);
    EXPECT_EQ(NameOf(w.anims[0].name), "Default");
    ASSERT_EQ(w.anims[0].keys.size(), 1u);
    EXPECT_TRUE(w.anims[0].keys[0].pins.empty());
    EXPECT_EQ(w.anims[0].keys[0].ticks, 1920u);
    EXPECT_EQ(w.anims[0].keys[0].eventFirst, -1);
    EXPECT_EQ(w.anims[0].speed, 1.0f);
    ASSERT_EQ(w.eventNames.size(), 1u);
    EXPECT_EQ(NameOf(w.eventNames[0]), "PlaySound");
    EXPECT_EQ(w.pixelsPerUnit, 30);
    EXPECT_EQ(w.ticksPerSecond, 1200u);
    EXPECT_EQ(doc.cursor.animIndex, 0);
    EXPECT_EQ(NameOf(doc.cursor.animName), "Default");
    EXPECT_EQ(doc.snapFrames, 4u);
    EXPECT_TRUE(doc.fileWith);
    EXPECT_FALSE(doc.hasPath);
    EXPECT_EQ(doc.viewFlags, (std::array<bool, 7>{false, true, true, true, true, true, true}));
    EXPECT_EQ(doc.PinCount(), 0u);
    EXPECT_EQ(doc.FrameCount(), 1u);
}

TEST_F(WirrelDocTest, MissingTexturePictureIsGreyWithADoubleBlackOutlineAndRedWords) {
    WirrelDoc doc;
    const aurel::ImageSurface& picture = doc.missingTextureImage;
    ASSERT_EQ(picture.Width(), 112);
    ASSERT_EQ(picture.Height(), 112);
    aurel::Color32 pixel;
    for (const auto& [x, y, expected] : std::vector<std::tuple<int, int, std::uint32_t>>{
             {0, 0, 0xFF000000}, {111, 111, 0xFF000000}, {1, 50, 0xFF000000}, {110, 1, 0xFF000000},
             {2, 2, 0xFF404040}, {109, 109, 0xFF404040}}) {
        ASSERT_TRUE(picture.GetPixel(x, y, pixel));
        EXPECT_EQ(pixel.argb, expected) << x << "," << y;
    }
    // The two lines of words sit in the middle rows, in red over the grey.
    int redRows = 0;
    for (int y = 0; y < 112; ++y) {
        for (int x = 2; x < 110; ++x) {
            picture.GetPixel(x, y, pixel);
            if (pixel.R() > 0x80 && pixel.G() < 0x40) {
                EXPECT_GT(y, 30);
                EXPECT_LT(y, 80);
                ++redRows;
                break;
            }
        }
    }
    EXPECT_GT(redRows, 20);
}

TEST_F(WirrelDocTest, ResetWithoutAnimationClearsEverything) {
    WirrelDoc doc;
    AddTwoKeys(doc);
    doc.SetImage(-1, std::make_shared<WirrelTexImage>("/a.png"));
    doc.notes = "notes";
    doc.hasPath = true;
    doc.snapFrames = 9;
    doc.Reset(false);
    EXPECT_TRUE(doc.Wirrel().anims.empty());
    EXPECT_TRUE(doc.Wirrel().pinNames.empty());
    EXPECT_TRUE(doc.images.empty());
    EXPECT_EQ(doc.cursor.animIndex, -1);
    EXPECT_EQ(doc.FrameCount(), 0u);
    EXPECT_TRUE(doc.notes.empty());
    EXPECT_FALSE(doc.hasPath);
    EXPECT_EQ(doc.snapFrames, 4u);
    EXPECT_EQ(doc.Wirrel().eventNames.size(), 1u);
}

TEST_F(WirrelDocTest, AddAnimModesTakeTheirSource) {
    struct Case {
        int mode;
        std::size_t keys;
        float firstAngle;  // of the first key frame's pin, NaN for no pin
        std::uint32_t ticks;
        float speed;
    };
    const float none = std::nanf("");
    const std::vector<Case> cases = {
        {kAnimFromCurrentKey, 1, 2.0f, 1920, 1.0f},  // the current key's pins, but the default duration
        {kAnimFromFirstKey, 1, 1.0f, 1920, 1.0f},
        {kAnimCopy, 2, 1.0f, 600, 2.5f},
        {kAnimEmpty, 1, none, 1920, 1.0f},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.mode);
        WirrelDoc doc;
        AddTwoKeys(doc);
        doc.SetFrame(1);
        std::vector<int> added;
        struct Listener {
            std::vector<int>* added;
            void OnAdded(int index) { added->push_back(index); }
        } listener{&added};
        doc.onAnimAdded.Add(&listener, &Listener::OnAdded);

        doc.AddAnim("Walk", c.mode, 0);
        EXPECT_EQ(added, std::vector<int>{0});
        const WirrelAnim& anim = doc.Wirrel().anims[0];
        EXPECT_EQ(NameOf(anim.name), "Walk");
        EXPECT_EQ(NameOf(doc.Wirrel().anims[1].name), "Default");
        EXPECT_EQ(doc.cursor.animIndex, 0);
        EXPECT_EQ(NameOf(doc.cursor.animName), "Walk");
        EXPECT_EQ(doc.cursor.frameIndex, 0u);
        ASSERT_EQ(anim.keys.size(), c.keys);
        EXPECT_EQ(anim.keys[0].ticks, c.ticks);
        EXPECT_EQ(anim.speed, c.speed);
        if (std::isnan(c.firstAngle)) {
            EXPECT_TRUE(anim.keys[0].pins.empty());
        } else {
            ASSERT_EQ(anim.keys[0].pins.size(), 1u);
            EXPECT_EQ(anim.keys[0].pins[0].angle, c.firstAngle);
        }
    }
}

TEST_F(WirrelDocTest, AddAnimWithoutAnimationGivesOneEmptyKeyFrame) {
    WirrelDoc doc;
    doc.Reset(false);
    doc.AddAnim("First", kAnimFromCurrentKey, -1);
    ASSERT_EQ(doc.Wirrel().anims.size(), 1u);
    EXPECT_EQ(doc.Wirrel().anims[0].keys.size(), 1u);
    EXPECT_TRUE(doc.Wirrel().anims[0].keys[0].pins.empty());
}

TEST_F(WirrelDocTest, FindRemoveAndRenameAnimations) {
    WirrelDoc doc;
    doc.AddAnim("Walk", kAnimEmpty, -1);
    doc.AddAnim("Walk", kAnimEmpty, -1);
    EXPECT_EQ(doc.FindAnim("Walk"), 1);  // the first match
    EXPECT_EQ(doc.FindAnim("Run"), -1);

    std::vector<std::string> renamed;
    struct Listener {
        std::vector<std::string>* renamed;
        void OnRenamed(std::string_view name) { renamed->emplace_back(name); }
    } listener{&renamed};
    doc.onAnimRenamed.Add(&listener, &Listener::OnRenamed);
    doc.RenameCurrentAnim("Walk");  // the same name: nothing
    EXPECT_TRUE(renamed.empty());
    const std::string longName(40, 'x');
    doc.RenameCurrentAnim(longName);
    ASSERT_EQ(renamed.size(), 1u);
    EXPECT_EQ(renamed[0], std::string(31, 'x'));  // cut to 31 bytes
    EXPECT_EQ(NameOf(doc.Wirrel().anims[2].name), std::string(31, 'x'));

    doc.RemoveAnim("Walk");
    EXPECT_EQ(doc.Wirrel().anims.size(), 2u);
    EXPECT_EQ(doc.cursor.animIndex, 2);  // the caller selects another animation
    doc.RemoveAnim("Absent");
    EXPECT_EQ(doc.Wirrel().anims.size(), 2u);
}

TEST_F(WirrelDocTest, NamesAreCutWithoutSplittingACharacter) {
    // 30 ASCII bytes then a two-byte character: 32 bytes, cut before the character.
    const std::string text = std::string(30, 'a') + "\xC3\xA9";
    EXPECT_EQ(NameOf(MakeName(text)), std::string(30, 'a'));
    EXPECT_EQ(NameOf(MakeName("short")), "short");
}

TEST_F(WirrelDocTest, ImageSlotsGrowAndShift) {
    WirrelDoc doc;
    std::vector<int> set, removed;
    struct Listener {
        std::vector<int>*set, *removed;
        void OnSet(int i) { set->push_back(i); }
        void OnRemoved(int i) { removed->push_back(i); }
    } listener{&set, &removed};
    doc.onImageSet.Add(&listener, &Listener::OnSet);
    doc.onImageRemoved.Add(&listener, &Listener::OnRemoved);

    auto a = std::make_shared<WirrelTexImage>("/a.png");
    auto b = std::make_shared<WirrelTexImage>("/b.png");
    doc.SetImage(-1, a);
    doc.SetImage(3, b);  // past the end: empty slots in between
    ASSERT_EQ(doc.images.size(), 4u);
    EXPECT_EQ(doc.Image(0), a);
    EXPECT_EQ(doc.Image(1), nullptr);
    EXPECT_EQ(doc.Image(3), b);
    EXPECT_EQ(doc.Image(7), nullptr);
    doc.RemoveImage(1);
    EXPECT_EQ(doc.Image(2), b);
    EXPECT_EQ(set, (std::vector<int>{0, 3}));
    EXPECT_EQ(removed, std::vector<int>{1});
}

}  // namespace
}  // namespace kovra
