#include <gtest/gtest.h>

#include <string>

#include "doc/wirrel_reader.h"
#include "doc/wirrel_writer.h"
#include "ske_bytes.h"

namespace kovra {
namespace {

using test::SkeBytes;

Wirrel Tables(std::uint32_t ticksPerSecond, std::int32_t pixelsPerUnit, std::vector<Name32> pinNames = {}) {
    Wirrel w;
    w.ticksPerSecond = ticksPerSecond;
    w.pixelsPerUnit = pixelsPerUnit;
    w.pinNames = std::move(pinNames);
    return w;
}

TEST(WirrelFile, ReadsHandBuiltFiles) {
    struct Case {
        const char* what;
        SkeBytes file;
        bool ok;
        Wirrel tables = {};
        std::vector<WirrelImageRecord> images = {};
    };
    // A version 2 file of one pin with one chunk.
    const auto oneChunk = [](std::uint8_t id, const SkeBytes& payload, int sizeOffset = 0) {
        return SkeBytes().Head(2, 1, 1).Chunk(id, payload, sizeOffset).End();
    };
    std::vector<Case> cases = {
        {"version 2 has 150 pixels to the unit, and names without event names",
         SkeBytes().Head(2, 1, 1000).Chunk(8, SkeBytes().U8(2).Text("hip")).End(), true,
         Tables(1000, 150, {MakeName("hip")})},
        {"version 3 with the field", SkeBytes().Head(3, 0, 1200, 42).End(), true, Tables(1200, 42)},
        {"version 3 without the field", SkeBytes().Head(3, 0, 1200).End(), true, Tables(1200, 150)},
        {"version 1", SkeBytes().Head(1, 0, 1200).End(), false},
        {"wrong magic", SkeBytes().Raw("Wrlx").U8(0).U8(3).U8(0).U32(0).U32(1200).End(), false},
        {"no zero after the magic", SkeBytes().Raw("Wrlm").U8(1).U8(3).U8(0).U32(0).U32(1200).End(), false},
        {"no end chunk", SkeBytes().Head(3, 0, 1200, 30), false},
        {"chunk size one too big", oneChunk(7, SkeBytes().U8(2).U32(0), 1), false},
        {"size past the end", oneChunk(42, SkeBytes(), 1000), false},
        {"name of 32 bytes", oneChunk(8, SkeBytes().U8(2).Text(std::string(32, 'n'))), false},
        {"text without its NUL", oneChunk(8, SkeBytes().U8(2).U32(3).Raw("abc")), false},
        {"path of 512 bytes", oneChunk(4, SkeBytes().U8(2).U32(1).Text(std::string(512, 'p')).U32(0).U32(0)),
         false},
        {"more animations than bytes", oneChunk(6, SkeBytes().U8(4).U32(~0u)), false},
        {"pins whose size passes 32 bits",
         oneChunk(6, SkeBytes().U8(4).U32(1).Text("a").F32(1).U32(1).U32(1 << 27).U32(0).U32(0).U32(0)),
         false},
        {"more key frames than bytes",
         oneChunk(6, SkeBytes().U8(4).U32(1).Text("a").F32(1).U32(~0u).U32(0xFFFFFF)), false},
    };
    for (const auto& [id, version] :
         std::vector<std::pair<int, int>>{{8, 0}, {8, 4}, {4, 3}, {6, 5}, {7, 3}, {10, 2}, {9, 0}, {9, 3}}) {
        cases.push_back(
            {"unknown chunk version", oneChunk(id, SkeBytes().U8(version).U32(0).U32(0).U32(0)), false});
    }
    {  // The first version of every chunk: what it lacks comes from defaults and positions.
        Case c{"first chunk versions", SkeBytes().Head(2, 2, 1200), true, Tables(1200, 150)};
        const SkeBytes walk = SkeBytes().U8(1).U32(1).Text("Walk").F32(2).U32(1).U32(100);
        c.file.Chunk(8, SkeBytes().U8(1).Text("hip").U32(2).U32(7).U32(8).Text("knee").U32(0))
            .Chunk(4, SkeBytes().U8(1).U32(1).Text("./a.png").U32(1).I32(0).I32(1).I32(2).I32(3).I32(4))
            .Chunk(6, SkeBytes(walk).Pin(0.5f, 3, -1, 1, 0).Pin(1.5f, 2, 0, 0, -1, 2))
            .Chunk(7, SkeBytes().U8(1).U32(1).I32(0).F32(0.1f).F32(0.2f).F32(1).F32(1).F32(0.3f))
            .Chunk(9, SkeBytes().U8(1).U32(1).U32(0).U32(10).U32(11).U32(12))
            .Chunk(10, SkeBytes().U8(1).U32(1).F32(-1).F32(-2).F32(1).F32(2).I32(1).I32(-1))
            .End();
        const WirrelPin hip{.angle = 0.5f, .length = 3, .flags = 1, .skin = 0, .parent = -1, .id = 0};
        const WirrelPin knee{.angle = 1.5f, .length = 2, .scale = 2, .parent = 0, .id = 1};
        c.tables.anims = {{MakeName("Walk"), {{{hip, knee}, 100, -1, 0}}, 2.0f}};
        c.tables.pinNames = {MakeName("hip"), MakeName("knee")};
        c.tables.textures = {{0, 1, 2, 3, 4}};
        c.tables.skins = {{0, 0.1f, 0.2f, 1, 1, 0.3f, -1}};
        c.tables.events = {{0, 0, {10, 11, 12, 0, 0, 0}}};
        c.tables.aabbs = {{-1, -2, 1, 2, 1, -1}};
        c.images = {{"./a.png", 0, 0}};
        cases.push_back(c);
    }
    {  // Chunks in any order, an unknown chunk skipped, a collision kind beyond 8 taken as none.
        Case c{"later versions in any order", SkeBytes().Head(3, 1, 2400, 64), true, Tables(2400, 64)};
        const SkeBytes run = SkeBytes().U8(3).U32(1).Text("Run").F32(1).U32(1).U32(50).I32(0).I32(1);
        c.file.Chunk(7, SkeBytes().U8(2).U32(1).I32(1).F32(0).F32(0).F32(1).F32(1).F32(0).I32(9))
            .Chunk(42, SkeBytes().Raw("junk!"))
            .Chunk(8, SkeBytes().U8(3).Text("root").U32(1).Text("Hit").U32(1).Text("spare"))
            .Chunk(6, SkeBytes(run).Pin(1, 2, -1, 0x11, 0).I32(0).I32(5))
            .Chunk(9, SkeBytes().U8(2).U32(1).U32(0).U32(6).U32(1).U32(2).U32(3).U32(4).U32(5).U32(6))
            .Chunk(4, SkeBytes().U8(2).U32(1).Text("../b.png").U32(0xFF00FF00).U32(0))
            .End();
        const WirrelPin root{.angle = 1, .length = 2, .flags = 0x11, .skin = 0, .aabb = 0, .id = 5};
        c.tables.anims = {{MakeName("Run"), {{{root}, 50, 0, 1}}}};
        c.tables.pinNames = {MakeName("root")};
        c.tables.eventNames = {MakeName("Hit")};
        c.tables.spareNames = {MakeName("spare")};
        c.tables.skins = {{1, 0, 0, 1, 1, 0, -1}};
        c.tables.events = {{0, 6, {1, 2, 3, 4, 5, 6}}};
        c.images = {{"../b.png", 0, 0xFF00FF00}};
        cases.push_back(c);
    }

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
    // Settings, an unknown record 7 passed over, background, and notes with a picture.
    SkeBytes all = SkeBytes().U16(1).U32(8).F32(2).U8(5).U16(7);
    all.U16(2).U8(1).Text("./bg.png").U8(50).F32(1).F32(2).F32(3).U16(3).U8(2).Text("hi").U32(3).Raw("PNG");
    const SkeBytes old = SkeBytes().U16(0).Raw("C:\\old.bmp").U8(0).U8(10).F32(4).F32(5).F32(6);
    const WirrelEditorData allRead{"./bg.png", 50, 1, 2, 3, 8, 2.0f, true, "hi", {'P', 'N', 'G'}};
    const WirrelEditorData oldRead{"C:\\old.bmp", 10, 4, 5, 6, 4, 1.0f, false, "n", {}};
    const std::vector<Case> cases = {
        {"all current records", all.U16(0xFFFF), true, allRead},
        {"the old background record", SkeBytes(old).U16(3).U8(1).Text("n").U16(0xFFFF), true, oldRead},
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

TEST(WirrelFile, NotesRecordOnlyWithNotesAndCutToItsFieldBetweenCharacters) {
    WirrelEditorData editor;
    const std::size_t plain = WriteWirrel({}, {}, editor).size();
    editor.notes = std::string(65534, 'x') + "\xC3\xA9 and more";  // the cut would split the character
    const std::vector<std::uint8_t> bytes = WriteWirrel({}, {}, editor);
    EXPECT_EQ(bytes.size(), plain + 2 + 1 + 4 + 65535);  // type, version, length, the text with its NUL
    ASSERT_TRUE(ReadEditorData(bytes, editor));
    EXPECT_EQ(editor.notes.Utf8(), std::string(65534, 'x'));
}

}  // namespace
}  // namespace kovra
