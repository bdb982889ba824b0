#include "doc/wirrel_doc.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ske_bytes.h"
#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

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
    for (const auto& [x, y, expected] :
         std::vector<std::tuple<int, int, std::uint32_t>>{{0, 0, 0xFF000000},
                                                          {111, 111, 0xFF000000},
                                                          {1, 50, 0xFF000000},
                                                          {110, 1, 0xFF000000},
                                                          {2, 2, 0xFF404040},
                                                          {109, 109, 0xFF404040}}) {
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

TEST_F(WirrelDocTest, KeyFramesWrapAndAddUpToTheLength) {
    WirrelDoc doc;
    const WirrelAnim& one = doc.CurrentAnim();
    EXPECT_EQ(&one.NextKeyOf(0), &one.KeyAt(0));
    AddTwoKeys(doc);
    const WirrelAnim& two = doc.CurrentAnim();
    EXPECT_EQ(two.NextKeyOf(0).ticks, 700u);
    EXPECT_EQ(two.NextKeyOf(1).ticks, 600u);
    EXPECT_EQ(AnimLengthSeconds(two, 1200), 1300.0f / 1200.0f);
    EXPECT_EQ(AnimLengthSeconds(two, 0), 0.0f);
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

std::vector<std::uint8_t> Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void Write(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

class WirrelDocFileTest : public WirrelDocTest {
protected:
    WirrelDocFileTest() { std::filesystem::create_directories(dir.Path() / "doc"); }

    // A document with pins, skins, events, images and every editor value, to be saved in dir/doc.
    void Fill(WirrelDoc& doc) {
        doc.AddPin(0.5f, 2, -1, "root");
        doc.AddPin(1.5f, 3, 0, "arm");
        doc.AddAnim("Walk", kAnimCopy, -1);
        Wirrel& w = doc.Wirrel();
        w.textures = {{0, 1, 2, 3, 4}};
        w.skins = {{0, 1, 2, 3, 4, 5, 1}};
        w.events = {{0, 1, {std::bit_cast<std::uint32_t>(1.5f)}}};
        doc.CurrentKey().pins[1].skin = 0;
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("doc/img/a.png"), 0xFF00FF));
        doc.SetImage(-1, nullptr);
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("pics/b.png")));
        doc.background.path = dir.File("doc/bg.png");
        doc.background.alpha = 77;
        doc.background.scale = 2.5f;
        doc.notes = "Notes";
        doc.notesImageData = {1, 2, 3};
        doc.snapFrames = 6;
        doc.spareScale = 0.5f;
        doc.spareFlag = true;
    }

    test::TempDir dir;
    test::ScriptedPrompt prompt;
    std::vector<WirrelImageRecord> records;
};

TEST_F(WirrelDocFileTest, SavedLoadedAndSavedAgainGivesTheSameBytes) {
    const std::string target = dir.File("doc/x.ske");
    WirrelDoc doc;
    Fill(doc);
    ASSERT_TRUE(doc.Save(target, true, prompt));
    EXPECT_TRUE(doc.hasPath);
    EXPECT_EQ(doc.path.Utf8(), target);

    WirrelDoc loaded;
    std::vector<int> added;
    struct Listener {
        std::vector<int>* added;
        void OnAdded(int index) { added->push_back(index); }
    } listener{&added};
    loaded.onAnimAdded.Add(&listener, &Listener::OnAdded);
    ASSERT_TRUE(loaded.Load(target, prompt, records, false));
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_EQ(added, (std::vector<int>{0, 1}));
    EXPECT_EQ(loaded.cursor.animIndex, 0);
    EXPECT_EQ(loaded.Wirrel(), doc.Wirrel());
    EXPECT_EQ(records,
              (std::vector<WirrelImageRecord>{
                  {dir.File("doc/img/a.png"), 0, 0xFF00FF}, {"", 1, 0}, {dir.File("pics/b.png"), 2, 0}}));
    EXPECT_EQ(loaded.background.path.Utf8(), "./bg.png");  // as the file holds it
    EXPECT_EQ(loaded.background.alpha, 77);
    EXPECT_EQ(loaded.background.scale, 2.5f);
    EXPECT_EQ(loaded.notes.Utf8(), "Notes");
    EXPECT_EQ(loaded.notesImageData, (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_EQ(loaded.snapFrames, 6u);
    EXPECT_EQ(loaded.spareScale, 0.5f);
    EXPECT_TRUE(loaded.spareFlag);

    const std::vector<std::uint8_t> first = Bytes(target);
    for (const WirrelImageRecord& image : records) {
        loaded.SetImage(
            -1, image.path.empty() ? nullptr : std::make_shared<WirrelTexImage>(image.path, image.colorKey));
    }
    ASSERT_TRUE(loaded.Save(target, true, prompt));
    EXPECT_EQ(Bytes(target), first);
}

TEST_F(WirrelDocFileTest, LoadMakesRelativePathsAbsoluteAndWarnsOfAbsoluteOnes) {
    const std::string target = dir.File("doc/x.ske");
    Write(
        target,
        test::SkeBytes()
            .Head(3, 0, 1200, 30)
            .Chunk(4, test::SkeBytes()
                          .U8(2)
                          .U32(4)
                          .Text("..\\img\\a.png")
                          .U32(0)
                          .Text("./b.png")
                          .U32(0)
                          .Text("/abs/c.png")
                          .U32(0)
                          .Text("")
                          .U32(0)
                          .U32(0))
            // An early file: every id 0, so each pin takes its position.
            .Chunk(6, test::SkeBytes()
                          .U8(4)
                          .U32(1)
                          .Text("A")
                          .F32(1)
                          .U32(1)
                          .U32(2)
                          .U32(1)
                          .I32(-1)
                          .I32(0)
                          .F32(0)
                          .F32(1)
                          .I32(-1)
                          .U32(1)
                          .I32(-1)
                          .F32(1)
                          .I32(-1)
                          .I32(0)
                          .F32(0)
                          .F32(1)
                          .I32(0)
                          .U32(0)
                          .I32(-1)
                          .F32(1)
                          .I32(-1)
                          .I32(0))
            .Chunk(5, test::SkeBytes().U16(2).U8(1).Text("C:\\bg.png").U8(1).F32(0).F32(0).F32(1).U16(0xFFFF),
                   -1)
            .End()
            .bytes);
    WirrelDoc doc;
    ASSERT_TRUE(doc.Load(target, prompt, records, true));
    EXPECT_FALSE(doc.hasPath);  // a template
    EXPECT_EQ(records[0].path.Utf8(), dir.File("img/a.png"));
    EXPECT_EQ(records[1].path.Utf8(), dir.File("doc/b.png"));
    EXPECT_EQ(records[2].path.Utf8(), "/abs/c.png");
    EXPECT_EQ(records[3].path.Utf8(), "");
    EXPECT_EQ(doc.background.path.Utf8(), "C:\\bg.png");
    EXPECT_EQ(doc.CurrentKey().pins[1].id, 1);
    EXPECT_EQ(doc.snapFrames, 4u);
    ASSERT_EQ(prompt.asked.size(), 2u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "WARNING");
    EXPECT_EQ(
        prompt.asked[0].text.Utf8(),
        "The texture /abs/c.png is stored as an absolute path instead of a relative path. For maximum "
        "portability, the next time you save your document it will be saved as a relative path. This is "
        "now a requirement of the Kovra format.");
    EXPECT_EQ(prompt.asked[1].text.Utf8().rfind("The background image C:\\bg.png is stored", 0), 0u);
}

TEST_F(WirrelDocFileTest, FilesThatDontLoad) {
    Write(dir.File("v1.ske"), test::SkeBytes().Head(1, 0, 1200).End().bytes);
    Write(dir.File("text.ske"), std::vector<std::uint8_t>{'h', 'e', 'l', 'l', 'o', '!', '!'});
    WirrelDoc doc;
    EXPECT_FALSE(doc.Load(dir.File("missing.ske"), prompt, records, false));
    EXPECT_FALSE(doc.Load(dir.File("text.ske"), prompt, records, false));
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_FALSE(doc.Load(dir.File("v1.ske"), prompt, records, false));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Format deprecated");
}

TEST_F(WirrelDocFileTest, AFailedSaveLeavesTheEarlierFile) {
    const std::string target = dir.File("doc/x.ske");
    WirrelDoc doc;
    Fill(doc);
    ASSERT_TRUE(doc.Save(target, true, prompt));
    const std::vector<std::uint8_t> earlier = Bytes(target);
    doc.Wirrel().pinNames.push_back(MakeName("changed"));

    // An image on another drive, and the copy declined.
    doc.SetImage(-1, std::make_shared<WirrelTexImage>("D:\\pics\\c.png"));
    EXPECT_FALSE(doc.Save(target, true, prompt));
    EXPECT_EQ(Bytes(target), earlier);
    doc.RemoveImage(3);

    // A write that fails half-way, at the limit of the file size.
    doc.notesImageData.assign(100000, 7);
    signal(SIGXFSZ, SIG_IGN);
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const bool saved = doc.Save(target, true, prompt);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(saved);
    EXPECT_EQ(Bytes(target), earlier);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path() / "doc"), {}),
              1);  // no temporary left
}

}  // namespace
}  // namespace kovra
