#include <gtest/gtest.h>

#include <random>
#include <string>

#include "doc/wirrel_reader.h"
#include "doc/wirrel_writer.h"
#include "ske_bytes.h"

namespace kovra {
namespace {

using test::SkeBytes;

Wirrel Tables(std::uint32_t ticksPerSecond, std::int32_t pixelsPerUnit) {
    Wirrel w;
    w.ticksPerSecond = ticksPerSecond;
    w.pixelsPerUnit = pixelsPerUnit;
    return w;
}

struct RichFile {
    Wirrel tables;
    std::vector<WirrelImageRecord> images;
    WirrelEditorData editor;
};

// A document with something in every table and every editor record.
RichFile Rich() {
    RichFile f{Tables(1200, 64), {{"./a.png", 0, 0xFF00FF}, {"../pics/b.png", 1, 0}}, {}};
    Wirrel& w = f.tables;
    w.pinNames = {MakeName("root"), MakeName("arm"), MakeName("hand")};
    w.eventNames = {MakeName("Step"), MakeName("Hit")};
    w.spareNames = {MakeName("spare")};
    w.textures = {{0, 1, 2, 30, 40}, {1, 0, 0, 8, 8}};
    w.skins = {{0, 0.5f, -0.25f, 1.5f, 1.0f, 3.0f, 2}, {1, 0, 0, 1, 1, 0, -1}};
    w.aabbs = {{-1, -2, 1, 2, 0, 1}, {0, 0, 3, 3, 1, -1}};
    w.events = {{0, 0b1001, {std::bit_cast<std::uint32_t>(2.5f), 7, 0, 0, 0, 0}}};
    const std::vector<WirrelPin> pose = {
        {.angle = 1, .length = 2, .flags = Root, .aabb = 0, .id = 0},
        {.angle = 2, .length = 3, .scale = 2, .skin = 0, .parent = 0, .id = 1},
        {.angle = 4, .length = 1, .flags = 0x10, .skin = 1, .parent = 1, .id = 2}};
    w.anims = {{MakeName("Walk"), {{pose, 600, 0, 1}, {pose, 700, -1, 0}}, 1.5f},
               {MakeName("Idle"), {{{pose[0]}, 1920, -1, 0}}, 1.0f}};
    f.editor = {"./bg.png", 99, 1.5f, -2.0f, 0.5f, 8, 2.0f, true, "Notes\nwith two lines", {1, 2, 3, 4, 5}};
    return f;
}

std::vector<std::uint8_t> RichBytes() {
    const RichFile f = Rich();
    return WriteWirrel(f.tables, f.images, f.editor);
}

// Both passes of a load.
bool ReadsWhole(const std::vector<std::uint8_t>& bytes) {
    Wirrel w;
    std::vector<WirrelImageRecord> images;
    WirrelEditorData editor;
    return ReadWirrel(w, images, bytes) && ReadEditorData(bytes, editor);
}

TEST(WirrelFile, ReadsHandBuiltFiles) {
    struct Case {
        const char* what;
        SkeBytes file;
        bool ok;
        Wirrel tables = {};
        std::vector<WirrelImageRecord> images = {};
    };
    std::vector<Case> cases;
    cases.push_back(
        {"version 2 has 150 pixels to the unit", SkeBytes().Head(2, 0, 1000).End(), true, Tables(1000, 150)});
    cases.push_back(
        {"version 3 with the field", SkeBytes().Head(3, 0, 1200, 42).End(), true, Tables(1200, 42)});
    cases.push_back(
        {"version 3 without the field", SkeBytes().Head(3, 0, 1200).End(), true, Tables(1200, 150)});

    {  // The first versions of every chunk, with the values they lack taken from defaults and positions.
        Case c{"first chunk versions", SkeBytes().Head(2, 2, 1200), true, Tables(1200, 150)};
        c.file.Chunk(8, SkeBytes().U8(1).Text("hip").U32(2).U32(7).U32(8).Text("knee").U32(0))
            .Chunk(4, SkeBytes().U8(1).U32(1).Text("./a.png").U32(1).I32(0).I32(1).I32(2).I32(3).I32(4))
            .Chunk(6, SkeBytes()
                          .U8(1)
                          .U32(1)
                          .Text("Walk")
                          .F32(2)
                          .U32(1)
                          .U32(100)
                          .F32(0.5f)
                          .F32(3)
                          .I32(-1)
                          .U32(1)
                          .I32(0)
                          .F32(1)
                          .F32(1.5f)
                          .F32(2)
                          .I32(0)
                          .U32(0)
                          .I32(-1)
                          .F32(2))
            .Chunk(7, SkeBytes().U8(1).U32(1).I32(0).F32(0.1f).F32(0.2f).F32(1).F32(1).F32(0.3f))
            .Chunk(9, SkeBytes().U8(1).U32(1).U32(0).U32(10).U32(11).U32(12))
            .Chunk(10, SkeBytes().U8(1).U32(1).F32(-1).F32(-2).F32(1).F32(2).I32(1).I32(-1))
            .End();
        c.tables.pinNames = {MakeName("hip"), MakeName("knee")};
        c.images = {{"./a.png", 0, 0}};
        c.tables.textures = {{0, 1, 2, 3, 4}};
        c.tables.anims = {{MakeName("Walk"),
                           {{{{.angle = 0.5f, .length = 3, .flags = 1, .skin = 0, .parent = -1, .id = 0},
                              {.angle = 1.5f, .length = 2, .scale = 2, .parent = 0, .id = 1}},
                             100,
                             -1,
                             0}},
                           2.0f}};
        c.tables.skins = {{0, 0.1f, 0.2f, 1, 1, 0.3f, -1}};
        c.tables.events = {{0, 0, {10, 11, 12, 0, 0, 0}}};
        c.tables.aabbs = {{-1, -2, 1, 2, 1, -1}};
        cases.push_back(c);
    }
    {  // Chunks in any order, an unknown chunk skipped, a collision kind beyond 8 taken as none.
        Case c{"later versions in any order", SkeBytes().Head(3, 1, 2400, 64), true, Tables(2400, 64)};
        c.file.Chunk(7, SkeBytes().U8(2).U32(1).I32(1).F32(0).F32(0).F32(1).F32(1).F32(0).I32(9))
            .Chunk(42, SkeBytes().Raw("junk!"))
            .Chunk(8, SkeBytes().U8(3).Text("root").U32(1).Text("Hit").U32(1).Text("spare"))
            .Chunk(6, SkeBytes()
                          .U8(3)
                          .U32(1)
                          .Text("Run")
                          .F32(1)
                          .U32(1)
                          .U32(50)
                          .I32(0)
                          .I32(1)
                          .F32(1)
                          .F32(2)
                          .I32(-1)
                          .U32(0x11)
                          .I32(0)
                          .F32(1)
                          .I32(0)
                          .I32(5))
            .Chunk(9, SkeBytes().U8(2).U32(1).U32(0).U32(6).U32(1).U32(2).U32(3).U32(4).U32(5).U32(6))
            .Chunk(4, SkeBytes().U8(2).U32(1).Text("../b.png").U32(0xFF00FF00).U32(0))
            .End();
        c.tables.skins = {{1, 0, 0, 1, 1, 0, -1}};
        c.tables.pinNames = {MakeName("root")};
        c.tables.eventNames = {MakeName("Hit")};
        c.tables.spareNames = {MakeName("spare")};
        c.tables.anims = {
            {MakeName("Run"),
             {{{{.angle = 1, .length = 2, .flags = 0x11, .skin = 0, .aabb = 0, .id = 5}}, 50, 0, 1}}}};
        c.tables.events = {{0, 6, {1, 2, 3, 4, 5, 6}}};
        c.images = {{"../b.png", 0, 0xFF00FF00}};
        cases.push_back(c);
    }

    cases.push_back({"version 1", SkeBytes().Head(1, 0, 1200).End(), false});
    cases.push_back({"wrong magic", SkeBytes().Raw("Wrlx").U8(0).U8(3).U8(0).U32(0).U32(1200).End(), false});
    cases.push_back({"no end chunk", SkeBytes().Head(3, 0, 1200, 30), false});
    cases.push_back({"chunk size one too big",
                     SkeBytes().Head(2, 0, 1).Chunk(7, SkeBytes().U8(2).U32(0), 1).End(), false});
    cases.push_back({"size past the end", SkeBytes().Head(2, 0, 1).Chunk(42, SkeBytes(), 1000).End(), false});
    for (const auto& [id, version] :
         std::vector<std::pair<int, int>>{{8, 0}, {8, 4}, {4, 3}, {6, 5}, {7, 3}, {10, 2}, {9, 0}, {9, 3}}) {
        cases.push_back(
            {"unknown chunk version",
             SkeBytes().Head(2, 0, 1).Chunk(id, SkeBytes().U8(version).U32(0).U32(0).U32(0)).End(), false});
    }
    const std::string name32(32, 'n');
    cases.push_back(
        {"name of 32 bytes", SkeBytes().Head(2, 1, 1).Chunk(8, SkeBytes().U8(2).Text(name32)).End(), false});
    cases.push_back({"text without its NUL",
                     SkeBytes().Head(2, 1, 1).Chunk(8, SkeBytes().U8(2).U32(3).Raw("abc")).End(), false});
    const std::string path512(512, 'p');
    cases.push_back(
        {"path of 512 bytes",
         SkeBytes().Head(2, 0, 1).Chunk(4, SkeBytes().U8(2).U32(1).Text(path512).U32(0).U32(0)).End(),
         false});
    cases.push_back({"more animations than bytes",
                     SkeBytes().Head(2, 0, 1).Chunk(6, SkeBytes().U8(4).U32(0xFFFFFFFF)).End(), false});
    cases.push_back({"more key frames than bytes",
                     SkeBytes()
                         .Head(2, 0, 1)
                         .Chunk(6, SkeBytes().U8(4).U32(1).Text("a").F32(1).U32(0xFFFFFFFF).U32(0xFFFFFF))
                         .End(),
                     false});

    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Wirrel w;
        std::vector<WirrelImageRecord> images;
        aurel::MemoryStream stream(c.file.bytes);
        ASSERT_EQ(ReadWirrel(w, images, stream), c.ok);
        if (c.ok) {
            EXPECT_EQ(w, c.tables);
            EXPECT_EQ(images, c.images);
        }
    }
}

TEST(WirrelFile, ReadsEditorRecords) {
    struct Case {
        const char* what;
        SkeBytes records;  // the editor chunk's payload
        bool ok;
        WirrelEditorData expected = {};
    };
    const std::vector<Case> cases = {
        {"all current records, an unknown one passed over",
         SkeBytes()
             .U16(1)
             .U32(8)
             .F32(2)
             .U8(5)
             .U16(7)
             .U16(2)
             .U8(1)
             .Text("./bg.png")
             .U8(50)
             .F32(1)
             .F32(2)
             .F32(3)
             .U16(3)
             .U8(2)
             .Text("hi")
             .U32(3)
             .Raw("PNG")
             .U16(0xFFFF),
         true,
         {"./bg.png", 50, 1, 2, 3, 8, 2.0f, true, "hi", {'P', 'N', 'G'}}},
        {"the old background record",
         SkeBytes()
             .U16(0)
             .Raw("C:\\old.bmp")
             .U8(0)
             .U8(10)
             .F32(4)
             .F32(5)
             .F32(6)
             .U16(3)
             .U8(1)
             .Text("n")
             .U16(0xFFFF),
         true,
         {"C:\\old.bmp", 10, 4, 5, 6, 4, 1.0f, false, "n", {}}},
        {"no records", SkeBytes().U16(0xFFFF), true},
        {"background record version 0",
         SkeBytes().U16(2).U8(0).Text("").U8(0).F32(0).F32(0).F32(0).U16(0xFFFF), false},
        {"notes record version 0", SkeBytes().U16(3).U8(0).Text("").U16(0xFFFF), false},
        {"picture larger than the file", SkeBytes().U16(3).U8(2).Text("").U32(1000).U16(0xFFFF), false},
        {"records without their end", SkeBytes().U16(1).U32(8).F32(2).U8(5), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        // The other chunks are passed over; the editor chunk's size isn't what the records go by.
        const SkeBytes file =
            SkeBytes().Head(3, 0, 1200, 30).Chunk(7, SkeBytes().U8(2).U32(0)).Chunk(5, c.records, -1).End();
        WirrelEditorData editor;
        ASSERT_EQ(ReadEditorData(file.bytes, editor), c.ok);
        if (c.ok) {
            EXPECT_EQ(editor, c.expected);
        }
    }
}

TEST(WirrelFile, NewDocumentBytes) {
    Wirrel w;
    w.anims = {{MakeName("Default"), {WirrelKey{}}, 1.0f}};
    w.eventNames = {MakeName("PlaySound")};
    const SkeBytes expected =
        SkeBytes()
            .Head(3, 0, 1200, 30)
            .Chunk(8, SkeBytes().U8(3).U32(1).Text("PlaySound").U32(0))
            .Chunk(4, SkeBytes().U8(2).U32(0).U32(0))
            .Chunk(6, SkeBytes().U8(4).U32(1).Text("Default").F32(1).U32(1).U32(0).U32(1920).I32(-1).I32(0))
            .Chunk(7, SkeBytes().U8(2).U32(0))
            .Chunk(10, SkeBytes().U8(1).U32(0))
            .Chunk(9, SkeBytes().U8(2).U32(0))
            .Chunk(
                5,
                SkeBytes().U16(1).U32(4).F32(1).U8(0).U16(2).U8(1).Text("").U8(128).F32(0).F32(0).F32(1).U16(
                    0xFFFF),
                -1)
            .End();
    EXPECT_EQ(WriteWirrel(w, {}, WirrelEditorData{}), expected.bytes);
}

TEST(WirrelFile, WrittenTablesReadBack) {
    const RichFile f = Rich();
    const std::vector<std::uint8_t> bytes = WriteWirrel(f.tables, f.images, f.editor);
    Wirrel w;
    std::vector<WirrelImageRecord> images;
    WirrelEditorData editor;
    ASSERT_TRUE(ReadWirrel(w, images, bytes));
    ASSERT_TRUE(ReadEditorData(bytes, editor));
    EXPECT_EQ(w, f.tables);
    EXPECT_EQ(images, f.images);
    EXPECT_EQ(editor, f.editor);

    // Without notes and picture there is no notes record, and notes too long for their field are cut.
    WirrelEditorData plain = f.editor;
    plain.notes = aurel::DualString();
    plain.notesImage.clear();
    EXPECT_EQ(WriteWirrel(f.tables, f.images, plain).size(),
              bytes.size() - (8 + f.editor.notes.size() + 4 + f.editor.notesImage.size()));
    plain.notes = std::string(70000, 'x');
    ASSERT_TRUE(ReadEditorData(WriteWirrel(f.tables, f.images, plain), editor));
    EXPECT_EQ(editor.notes.size(), 65535u);
}

TEST(WirrelFile, EveryTruncationIsRefused) {
    const std::vector<std::uint8_t> bytes = RichBytes();
    ASSERT_TRUE(ReadsWhole(bytes));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(ReadsWhole({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)})) << size;
    }
}

TEST(WirrelFile, CorruptedFilesAreReadSafely) {
    const std::vector<std::uint8_t> bytes = RichBytes();
    std::mt19937 random(20240611);
    std::uniform_int_distribution<std::size_t> position(0, bytes.size() - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> changes(1, 4);
    int accepted = 0;
    for (int run = 0; run < 4000; ++run) {
        std::vector<std::uint8_t> damaged = bytes;
        for (int i = changes(random); i > 0; --i) {
            damaged[position(random)] = static_cast<std::uint8_t>(byte(random));
        }
        accepted += ReadsWhole(damaged) ? 1 : 0;
    }
    // Damage to values passes; damage to structure doesn't. Both kinds must have been met.
    EXPECT_GT(accepted, 0);
    EXPECT_LT(accepted, 4000);
}

}  // namespace
}  // namespace kovra
