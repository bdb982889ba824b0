#include "doc/wirrel_doc.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "doc/wirrel_reader.h"
#include "ske_bytes.h"
#include "support/english.h"
#include "support/scripted_prompt.h"
#include "support/temp_dir.h"

namespace kovra {
namespace {

class WirrelDocTest : public testing::Test {
public:
    // Each notification is logged as "+<index>" (animation added) or "r<name>" (current animation renamed).
    void Added(int index) { log += "+" + std::to_string(index) + " "; }
    void Renamed(std::string_view name) { log += "r" + std::string(name) + " "; }

protected:
    static void SetUpTestSuite() { test::LoadEnglish(); }

    void Listen(WirrelDoc& doc) {
        doc.onAnimAdded.Add(this, &WirrelDocTest::Added);
        doc.onAnimRenamed.Add(this, &WirrelDocTest::Renamed);
    }

    // The current animation gets two key frames of distinct poses.
    static void AddTwoKeys(WirrelDoc& doc) {
        doc.CurrentAnim().keys = {kFirst, kSecond};
        doc.CurrentAnim().speed = 2.5f;
        doc.Wirrel().pinNames.push_back(MakeName("pin"));
    }
    static inline const WirrelKey kFirst{.pins = {WirrelPin{.angle = 1.0f}}, .ticks = 600};
    static inline const WirrelKey kSecond{.pins = {WirrelPin{.angle = 2.0f}}, .ticks = 700};

    std::string log;
};

TEST_F(WirrelDocTest, MissingTexturePictureIsGreyWithADoubleBlackOutlineAndRedWordsInTheMiddle) {
    const aurel::ImageSurface& picture = WirrelDoc().missingTextureImage;
    aurel::Color32 outline, grey, pixel;
    ASSERT_TRUE(picture.GetPixel(1, 110, outline) && picture.GetPixel(2, 2, grey));
    EXPECT_EQ(outline.argb, 0xFF000000);
    EXPECT_EQ(grey.argb, 0xFF404040);
    int middle = 0, elsewhere = 0;
    for (int y = 0; y < 112; ++y) {
        for (int x = 0; x < 112; ++x) {
            if (picture.GetPixel(x, y, pixel) && pixel.R() > 0x80 && pixel.G() < 0x40) {
                ++(y > 30 && y < 80 ? middle : elsewhere);
            }
        }
    }
    EXPECT_GT(middle, 100);
    EXPECT_EQ(elsewhere, 0);
}

TEST_F(WirrelDocTest, ResetWithoutAnimationKeepsOnlyTheEventName) {
    WirrelDoc doc;
    EXPECT_EQ(NameOf(doc.cursor.animName), "Default");
    AddTwoKeys(doc);
    doc.SetImage(-1, std::make_shared<WirrelTexImage>("/a.png"));
    doc.hasPath = true;  // a template loaded next must not take the path
    doc.Reset(false);
    Wirrel expected;
    expected.eventNames = {MakeName("PlaySound")};
    EXPECT_EQ(doc.Wirrel(), expected);
    EXPECT_TRUE(doc.images.empty());
    EXPECT_EQ(doc.cursor.animIndex, -1);
    EXPECT_EQ(doc.FrameCount(), 0u);
    EXPECT_FALSE(doc.hasPath);

    // Without an animation to take from, a mode gives one empty key frame.
    doc.AddAnim("First", kAnimFromCurrentKey, -1);
    EXPECT_EQ(doc.Wirrel().anims.at(0).keys, std::vector<WirrelKey>{WirrelKey{}});
}

TEST_F(WirrelDocTest, AddAnimModesTakeTheirSource) {
    const std::vector<std::pair<int, std::vector<WirrelKey>>> cases = {
        {kAnimFromCurrentKey, {{.pins = kSecond.pins}}},  // the current key's pins, but the default duration
        {kAnimFromFirstKey, {{.pins = kFirst.pins}}},
        {kAnimCopy, {kFirst, kSecond}},
        {kAnimEmpty, {WirrelKey{}}},
    };
    for (const auto& [mode, keys] : cases) {
        SCOPED_TRACE(mode);
        WirrelDoc doc;
        AddTwoKeys(doc);
        doc.SetFrame(1);
        log.clear();
        Listen(doc);
        doc.AddAnim("Walk", mode, 0);
        EXPECT_EQ(log, "+0 ");
        EXPECT_EQ(doc.Wirrel().anims[0],
                  (WirrelAnim{MakeName("Walk"), keys, mode == kAnimCopy ? 2.5f : 1.0f}));
        EXPECT_EQ(NameOf(doc.Wirrel().anims[1].name), "Default");
        EXPECT_EQ(doc.cursor.animIndex, 0);
        EXPECT_EQ(NameOf(doc.cursor.animName), "Walk");
        EXPECT_EQ(doc.cursor.frameIndex, 0u);
    }
}

TEST_F(WirrelDocTest, FindRemoveAndRenameAnimations) {
    WirrelDoc doc;
    doc.AddAnim("Walk", kAnimEmpty, -1);
    doc.AddAnim("Walk", kAnimEmpty, -1);
    EXPECT_EQ(doc.FindAnim("Walk"), 1);  // the first match
    EXPECT_EQ(doc.FindAnim("Run"), -1);

    Listen(doc);
    doc.RenameCurrentAnim("Walk");  // the same name: nothing
    doc.RenameCurrentAnim(std::string(30, 'x') + "\xC3\xA9");
    EXPECT_EQ(log, "r" + std::string(30, 'x') + " ");  // cut to 31 bytes without splitting a character
    EXPECT_EQ(doc.FindAnim(std::string(30, 'x')), 2);

    doc.RemoveAnim("Walk");
    doc.RemoveAnim("Absent");
    EXPECT_EQ(doc.FindAnim("Walk"), -1);
    EXPECT_EQ(doc.Wirrel().anims.size(), 2u);
    EXPECT_EQ(doc.cursor.animIndex, 2);  // the caller selects another animation
}

TEST_F(WirrelDocTest, KeyFramesWrapAndAddUpToTheLength) {
    WirrelDoc doc;
    const WirrelAnim& anim = doc.CurrentAnim();
    EXPECT_EQ(&anim.NextKeyOf(0), &anim.KeyAt(0));
    AddTwoKeys(doc);
    EXPECT_EQ(anim.NextKeyOf(0).ticks, 700u);
    EXPECT_EQ(anim.NextKeyOf(1).ticks, 600u);
    EXPECT_EQ(AnimLengthSeconds(anim, 1200), 1300.0f / 1200.0f);
    EXPECT_EQ(AnimLengthSeconds(anim, 0), 0.0f);
}

TEST_F(WirrelDocTest, ImageSlotsGrowAndShift) {
    WirrelDoc doc;
    auto a = std::make_shared<WirrelTexImage>("/a.png");
    doc.SetImage(3, a);  // past the end: empty slots before it
    EXPECT_EQ(doc.images, (std::vector<std::shared_ptr<WirrelTexImage>>{nullptr, nullptr, nullptr, a}));
    doc.RemoveImage(0);
    doc.RemoveImage(3);  // past the end now: nothing
    EXPECT_EQ(doc.Image(2), a);
    EXPECT_EQ(doc.Image(3), nullptr);
}

std::vector<std::uint8_t> Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Both passes of a load.
bool ReadsWhole(const std::vector<std::uint8_t>& bytes) {
    Wirrel w;
    std::vector<WirrelImageRecord> images;
    WirrelEditorData editor;
    return ReadWirrel(w, images, bytes) && ReadEditorData(bytes, editor);
}

class WirrelDocFileTest : public WirrelDocTest {
protected:
    WirrelDocFileTest() { std::filesystem::create_directories(dir.Path() / "doc"); }

    // A document with something in every table and every editor value, to be saved in dir/doc.
    void Fill(WirrelDoc& doc) {
        Wirrel w;
        w.pixelsPerUnit = 64;
        w.pinNames = {MakeName("root"), MakeName("arm"), MakeName("hand")};
        w.eventNames = {MakeName("Step"), MakeName("Hit")};
        w.spareNames = {MakeName("spare")};
        w.textures = {{0, 1, 2, 30, 40}, {2, 0, 0, 8, 8}};
        w.skins = {{0, 0.5f, -0.25f, 1.5f, 1.0f, 3.0f, 2}, {1, 0, 0, 1, 1, 0, -1}};
        w.aabbs = {{-1, -2, 1, 2, 0, 1}, {0, 0, 3, 3, 1, -1}};
        w.events = {{1, 0b1001, {std::bit_cast<std::uint32_t>(2.5f), 7, 0, 0, 0, 0}}};
        const std::vector<WirrelPin> pose = {
            {.angle = 1, .length = 2, .flags = Root, .aabb = 0, .id = 0},
            {.angle = 2, .length = 3, .scale = 2, .skin = 0, .parent = 0, .id = 1},
            {.angle = 4, .length = 1, .flags = kPinHidden, .skin = 1, .parent = 1, .id = 2}};
        w.anims = {{MakeName("Walk"), {{pose, 600, 0, 1}, {pose, 700, -1, 0}}, 1.5f},
                   {MakeName("Idle"), {{{pose[0]}, 1920, -1, 0}}, 1.0f}};
        doc.SetWirrel(w);
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("doc/img/a.png"), 0xFF00FF));
        doc.SetImage(-1, nullptr);
        doc.SetImage(-1, std::make_shared<WirrelTexImage>(dir.File("pics/b.png")));
        doc.background.path = dir.File("doc/bg.png");
        doc.background.alpha = 77;
        doc.background.offsetX = -2.0f;
        doc.notes = "Notes\nwith two lines";
        doc.notesImageData = {1, 2, 3};
        doc.snapFrames = 6;
        doc.spareScale = 0.5f;
        doc.spareFlag = true;
    }

    test::TempDir dir;
    test::ScriptedPrompt prompt;
    std::vector<WirrelImageRecord> records;
};

TEST_F(WirrelDocFileTest, NewDocumentIsSavedByteByByte) {
    using test::SkeBytes;
    const SkeBytes anims =
        SkeBytes().U8(4).U32(1).Text("Default").F32(1).U32(1).U32(0).U32(1920).I32(-1).I32(0);
    const SkeBytes editor =
        SkeBytes().U16(1).U32(4).F32(1).U8(0).U16(2).U8(1).Text("").U8(128).F32(0).F32(0).F32(1).U16(0xFFFF);
    SkeBytes expected =
        SkeBytes().Head(3, 0, 1200, 30).Chunk(8, SkeBytes().U8(3).U32(1).Text("PlaySound").U32(0));
    expected.Chunk(4, SkeBytes().U8(2).U32(0).U32(0)).Chunk(6, anims).Chunk(7, SkeBytes().U8(2).U32(0));
    expected.Chunk(10, SkeBytes().U8(1).U32(0)).Chunk(9, SkeBytes().U8(2).U32(0)).Chunk(5, editor, -1).End();
    WirrelDoc doc;
    ASSERT_TRUE(doc.Save(dir.File("new.ske"), false, prompt));
    EXPECT_EQ(Bytes(dir.File("new.ske")), expected.bytes);
    EXPECT_FALSE(doc.fileWith);
    EXPECT_TRUE(doc.hasPath);
}

TEST_F(WirrelDocFileTest, SavedLoadedAndSavedAgainGivesTheSameBytes) {
    const std::string target = dir.File("doc/x.ske");
    WirrelDoc doc;
    Fill(doc);
    ASSERT_TRUE(doc.Save(target, true, prompt));
    const std::vector<std::uint8_t> first = Bytes(target);

    WirrelDoc loaded;
    Listen(loaded);
    ASSERT_TRUE(loaded.Load(target, prompt, records, false));
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_EQ(log, "+0 +1 ");  // the views hear of each animation
    EXPECT_EQ(loaded.cursor.animIndex, 0);
    EXPECT_EQ(loaded.path.Utf8(), target);
    EXPECT_EQ(loaded.Wirrel(), doc.Wirrel());
    EXPECT_EQ(records,
              (std::vector<WirrelImageRecord>{
                  {dir.File("doc/img/a.png"), 0, 0xFF00FF}, {"", 1, 0}, {dir.File("pics/b.png"), 2, 0}}));
    EXPECT_EQ(loaded.background.path.Utf8(), "./bg.png");  // as the file holds it

    // Every editor value must have come back for the bytes to be the same.
    for (const WirrelImageRecord& image : records) {
        loaded.SetImage(
            -1, image.path.empty() ? nullptr : std::make_shared<WirrelTexImage>(image.path, image.colorKey));
    }
    ASSERT_TRUE(loaded.Save(target, true, prompt));
    EXPECT_EQ(Bytes(target), first);
}

TEST_F(WirrelDocFileTest, DamagedFilesAreReadSafely) {
    WirrelDoc doc;
    Fill(doc);
    ASSERT_TRUE(doc.Save(dir.File("doc/x.ske"), true, prompt));
    const std::vector<std::uint8_t> bytes = Bytes(dir.File("doc/x.ske"));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(ReadsWhole({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)})) << size;
    }

    std::mt19937 random(20240611);
    std::uniform_int_distribution<std::size_t> position(0, bytes.size() - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    int accepted = 0;
    for (int run = 0; run < 4000; ++run) {
        std::vector<std::uint8_t> damaged = bytes;
        for (int i = 1 + run % 4; i > 0; --i) {
            damaged[position(random)] = static_cast<std::uint8_t>(byte(random));
        }
        accepted += ReadsWhole(damaged) ? 1 : 0;
    }
    // Damage to values passes; damage to structure doesn't. Both kinds must have been met.
    EXPECT_GT(accepted, 0);
    EXPECT_LT(accepted, 4000);
}

TEST_F(WirrelDocFileTest, LoadMakesRelativePathsAbsoluteAndWarnsOfAbsoluteOnes) {
    using test::SkeBytes;
    SkeBytes images = SkeBytes().U8(2).U32(4).Text("..\\img\\a.png").U32(0).Text("./b.png").U32(0);
    images.Text("/abs/c.png").U32(0).Text("").U32(0).U32(0);
    // An early file: every id 0, so each pin takes its position.
    SkeBytes anims = SkeBytes().U8(4).U32(1).Text("A").F32(1).U32(1).U32(2).U32(1).I32(-1).I32(0);
    anims.Pin(0, 1, -1, 1).I32(-1).I32(0).Pin(0, 1, 0, 0).I32(-1).I32(0);
    const SkeBytes editor = SkeBytes().U16(2).U8(1).Text("C:\\bg.png").U8(1).F32(0).F32(0).F32(1).U16(0xFFFF);
    const std::vector<std::uint8_t> file =
        SkeBytes().Head(3, 0, 1200, 30).Chunk(4, images).Chunk(6, anims).Chunk(5, editor, -1).End().bytes;
    const std::string target = dir.File("doc/x.ske");
    std::ofstream(target, std::ios::binary).write(reinterpret_cast<const char*>(file.data()), file.size());

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
    EXPECT_EQ(prompt.asked[0].text.Utf8().rfind("The texture /abs/c.png is stored as an absolute path", 0),
              0u);
    EXPECT_EQ(prompt.asked[1].text.Utf8().rfind("The background image C:\\bg.png is stored", 0), 0u);
}

TEST_F(WirrelDocFileTest, FilesThatDontLoad) {
    WirrelDoc doc;
    ASSERT_TRUE(doc.Save(dir.File("whole.ske"), true, prompt));
    const std::vector<std::uint8_t> whole = Bytes(dir.File("whole.ske"));
    // The tables end before the last byte: only the editor records miss it.
    std::ofstream(dir.File("cut.ske"), std::ios::binary)
        .write(reinterpret_cast<const char*>(whole.data()), whole.size() - 1);
    std::ofstream(dir.File("v1.ske"), std::ios::binary)
        << std::string("Wrlm\0\1", 6) << std::string(13, '\0');
    for (const char* name : {"missing.ske", "cut.ske"}) {
        EXPECT_FALSE(doc.Load(dir.File(name), prompt, records, false)) << name;
    }
    EXPECT_TRUE(prompt.asked.empty());
    EXPECT_FALSE(doc.Load(dir.File("v1.ske"), prompt, records, false));
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_EQ(prompt.asked[0].title.Utf8(), "Format deprecated");
}

TEST_F(WirrelDocFileTest, OnlyRegularFilesOfADocumentsSizeAreRead) {
    WirrelDoc doc;
    ASSERT_TRUE(doc.Save(dir.File("doc.ske"), true, prompt));
    const std::vector<std::uint8_t> head(Bytes(dir.File("doc.ske")));
    ASSERT_EQ(mkfifo(dir.File("pipe.ske").c_str(), 0600), 0);
    // Sparse files: nothing of them is read but their head.
    const auto sparse = [&](const char* name, std::int64_t size, bool withHead) {
        std::ofstream(dir.File(name), std::ios::binary)
            .write(reinterpret_cast<const char*>(head.data()), withHead ? 6 : 0);
        std::filesystem::resize_file(dir.File(name), static_cast<std::uintmax_t>(size));
    };
    sparse("zeros.ske", std::int64_t{1} << 30, false);
    sparse("huge.ske", std::int64_t{64} << 30, true);
    sparse("limit.ske", ske::kFileLimit + 1, true);
    for (const auto& [name, reason] : std::vector<std::pair<std::string, std::string>>{
             {"missing.ske", "No such file or directory"},
             {"", "it is a folder, not a file"},
             {"pipe.ske", "it is a named pipe, not a file"},
             {"zeros.ske", ""},  // not a document, which the head says at once
             {"huge.ske", "it is 68719476736 bytes, more than the 1 GiB a document can be"},
             {"limit.ske", "it is 1073741825 bytes, more than the 1 GiB a document can be"}}) {
        SCOPED_TRACE(name);
        std::string why = "unchanged";
        EXPECT_FALSE(doc.Load(dir.File(name), prompt, records, false, &why));
        EXPECT_EQ(why, reason.empty() ? "unchanged" : reason);
    }
    std::string why;
    EXPECT_FALSE(doc.Load("/dev/zero", prompt, records, false, &why));
    EXPECT_EQ(why, "it is a device, not a file");
    EXPECT_TRUE(doc.Load(dir.File("doc.ske"), prompt, records, false, &why));
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
    std::string why;
    const bool saved = doc.Save(target, true, prompt, &why);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(saved);
    EXPECT_EQ(why, "File too large");
    EXPECT_EQ(Bytes(target), earlier);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path() / "doc"), {}),
              1);  // no temporary left
}

}  // namespace
}  // namespace kovra
