#pragma once
// What a .ske file holds besides the Wirrel tables, and the numbers of its layout that the reader and
// the writer share. A file is a head, then chunks of an id byte, a u32 payload size and the payload,
// ending with the chunk 255. All numbers are little-endian.

#include <cstdint>
#include <vector>

#include "base/dual_string.h"

namespace kovra {

// One image of the document as the file names it; its pixels are loaded by the caller.
struct WirrelImageRecord {
    aurel::DualString path;  // relative to the document in the file; see WirrelDoc::Load
    std::int32_t index = 0;  // its order in the file
    std::uint32_t colorKey = 0;
    bool operator==(const WirrelImageRecord&) const = default;
};

// The editor data of chunk 5: background picture settings, timeline snapping, notes.
struct WirrelEditorData {
    aurel::DualString backgroundPath;
    std::uint8_t backgroundAlpha = 128;
    float backgroundOffsetX = 0.0f;
    float backgroundOffsetY = 0.0f;
    float backgroundScale = 1.0f;
    std::uint32_t snapFrames = 4;
    float spareScale = 1.0f;
    bool spareFlag = false;
    aurel::DualString notes;
    std::vector<std::uint8_t> notesImage;  // the notes picture as the image library encodes it
    bool operator==(const WirrelEditorData&) const = default;
};

namespace ske {

constexpr char kMagic[4] = {'W', 'r', 'l', 'm'};
constexpr std::uint8_t kVersion = 3;

enum ChunkId : std::uint8_t {
    kChunkImages = 4,
    kChunkEditor = 5,
    kChunkAnims = 6,
    kChunkSkins = 7,
    kChunkNames = 8,
    kChunkEvents = 9,
    kChunkAabbs = 10,
    kChunkEnd = 255,
};

// Records of the editor chunk, each led by its u16 type.
enum EditorRecord : std::uint16_t {
    kRecordOldBackground = 0,
    kRecordSettings = 1,
    kRecordBackground = 2,
    kRecordNotes = 3,
    kRecordEnd = 0xFFFF,
};

// Longest texts, their NUL counted.
constexpr std::uint32_t kNameLimit = 32;
constexpr std::uint32_t kPathLimit = 512;
constexpr std::uint32_t kNotesLimit = 65536;

// No document is larger: a bigger file is refused before it is read.
constexpr std::int64_t kFileLimit = std::int64_t{1} << 30;

}  // namespace ske

}  // namespace kovra
