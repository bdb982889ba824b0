#include "doc/wirrel_writer.h"

#include <bit>
#include <string_view>

namespace kovra {

namespace {

class ByteWriter {
public:
    explicit ByteWriter(std::vector<std::uint8_t>& out) : out_(out) {}

    void U8(std::uint8_t value) { out_.push_back(value); }
    void U16(std::uint16_t value) { Put(value, 2); }
    void U32(std::uint32_t value) { Put(value, 4); }
    void I32(std::int32_t value) { Put(static_cast<std::uint32_t>(value), 4); }
    void F32(float value) { Put(std::bit_cast<std::uint32_t>(value), 4); }
    void Count(std::size_t count) { U32(static_cast<std::uint32_t>(count)); }

    // A u32 length with the NUL counted, the bytes and the NUL; cut to fit `limit` without splitting a
    // UTF-8 character.
    void Text(std::string_view text, std::uint32_t limit) {
        std::size_t length = text.size();
        if (length >= limit) {
            length = limit - 1;
            while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
                --length;
            }
        }
        Count(length + 1);
        out_.insert(out_.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
        U8(0);
    }

    void Bytes(const std::vector<std::uint8_t>& bytes) {
        out_.insert(out_.end(), bytes.begin(), bytes.end());
    }

    // Starts a chunk with a size to be filled in by EndChunk.
    std::size_t BeginChunk(std::uint8_t id) {
        U8(id);
        U32(0);
        return out_.size();
    }

    // The editor chunk's size is one byte short of its payload: every reader of the format expects it so.
    void EndChunk(std::size_t start, std::size_t shortBy = 0) {
        const std::size_t size = out_.size() - start - shortBy;
        for (std::size_t i = 0; i < 4; ++i) {
            out_[start - 4 + i] = static_cast<std::uint8_t>(size >> (8 * i));
        }
    }

private:
    void Put(std::uint32_t value, std::size_t bytes) {
        const std::uint8_t little[4] = {
            static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 24)};
        out_.insert(out_.end(), little, little + bytes);
    }

    std::vector<std::uint8_t>& out_;
};

void WriteNames(ByteWriter& out, const std::vector<Name32>& names) {
    for (const Name32& name : names) {
        out.Text(NameOf(name), ske::kNameLimit);
    }
}

void WriteAnims(ByteWriter& out, const std::vector<WirrelAnim>& anims) {
    out.U8(4);
    out.Count(anims.size());
    for (const WirrelAnim& anim : anims) {
        out.Text(NameOf(anim.name), ske::kNameLimit);
        out.F32(anim.speed);
        out.Count(anim.keys.size());
        out.Count(anim.keys.empty() ? 0 : anim.keys.front().pins.size());
        for (const WirrelKey& key : anim.keys) {
            out.U32(key.ticks);
            out.I32(key.eventFirst);
            out.I32(key.eventCount);
            for (const WirrelPin& pin : key.pins) {
                out.F32(pin.angle);
                out.F32(pin.length);
                out.I32(pin.parent);
                out.U32(pin.flags);
                out.I32(pin.skin);
                out.F32(pin.scale);
                out.I32(pin.aabb);
                out.I32(pin.id);
            }
        }
    }
}

void WriteEditorData(ByteWriter& out, const WirrelEditorData& editor) {
    out.U16(ske::kRecordSettings);
    out.U32(editor.snapFrames);
    out.F32(editor.spareScale);
    out.U8(editor.spareFlag ? 1 : 0);

    out.U16(ske::kRecordBackground);
    out.U8(1);
    out.Text(editor.backgroundPath.Utf8(), ske::kPathLimit);
    out.U8(editor.backgroundAlpha);
    out.F32(editor.backgroundOffsetX);
    out.F32(editor.backgroundOffsetY);
    out.F32(editor.backgroundScale);

    if (!editor.notes.empty() || !editor.notesImage.empty()) {
        const bool withPicture = !editor.notesImage.empty();
        out.U16(ske::kRecordNotes);
        out.U8(withPicture ? 2 : 1);
        out.Text(editor.notes.Utf8(), ske::kNotesLimit);
        if (withPicture) {
            out.Count(editor.notesImage.size());
            out.Bytes(editor.notesImage);
        }
    }
    out.U16(ske::kRecordEnd);
}

}  // namespace

std::vector<std::uint8_t> WriteWirrel(const Wirrel& wirrel, const std::vector<WirrelImageRecord>& images,
                                      const WirrelEditorData& editor) {
    std::vector<std::uint8_t> bytes;
    std::size_t pinRecords = 0;
    for (const WirrelAnim& anim : wirrel.anims) {
        for (const WirrelKey& key : anim.keys) {
            pinRecords += key.pins.size();
        }
    }
    bytes.reserve(4096 + 32 * pinRecords + editor.notes.size() + editor.notesImage.size());
    ByteWriter out(bytes);
    for (const char c : ske::kMagic) {
        out.U8(static_cast<std::uint8_t>(c));
    }
    out.U8(0);
    out.U8(ske::kVersion);
    out.U8(1);  // pixelsPerUnit follows
    out.Count(wirrel.pinNames.size());
    out.U32(wirrel.ticksPerSecond);
    out.I32(wirrel.pixelsPerUnit);

    std::size_t chunk = out.BeginChunk(ske::kChunkNames);
    out.U8(3);
    WriteNames(out, wirrel.pinNames);
    out.Count(wirrel.eventNames.size());
    WriteNames(out, wirrel.eventNames);
    out.Count(wirrel.spareNames.size());
    WriteNames(out, wirrel.spareNames);
    out.EndChunk(chunk);

    chunk = out.BeginChunk(ske::kChunkImages);
    out.U8(2);
    out.Count(images.size());
    for (const WirrelImageRecord& image : images) {
        out.Text(image.path.Utf8(), ske::kPathLimit);
        out.U32(image.colorKey);
    }
    out.Count(wirrel.textures.size());
    for (const WirrelTexture& t : wirrel.textures) {
        for (const std::int32_t value : {t.imageIndex, t.x, t.y, t.width, t.height}) {
            out.I32(value);
        }
    }
    out.EndChunk(chunk);

    chunk = out.BeginChunk(ske::kChunkAnims);
    WriteAnims(out, wirrel.anims);
    out.EndChunk(chunk);

    chunk = out.BeginChunk(ske::kChunkSkins);
    out.U8(2);
    out.Count(wirrel.skins.size());
    for (const WirrelSkin& s : wirrel.skins) {
        out.I32(s.texture);
        for (const float value : {s.offsetX, s.offsetY, s.scaleX, s.scaleY, s.angle}) {
            out.F32(value);
        }
        out.I32(s.collision);
    }
    out.EndChunk(chunk);

    chunk = out.BeginChunk(ske::kChunkAabbs);
    out.U8(1);
    out.Count(wirrel.aabbs.size());
    for (const WirrelAabb& a : wirrel.aabbs) {
        for (const float value : {a.left, a.top, a.right, a.bottom}) {
            out.F32(value);
        }
        out.I32(a.kind);
        out.I32(a.next);
    }
    out.EndChunk(chunk);

    chunk = out.BeginChunk(ske::kChunkEvents);
    out.U8(2);
    out.Count(wirrel.events.size());
    for (const WirrelEvent& e : wirrel.events) {
        out.U32(e.name);
        out.U32(e.types);
        for (const std::uint32_t value : e.vars) {
            out.U32(value);
        }
    }
    out.EndChunk(chunk);

    chunk = out.BeginChunk(ske::kChunkEditor);
    WriteEditorData(out, editor);
    out.EndChunk(chunk, 1);

    out.BeginChunk(ske::kChunkEnd);
    return bytes;
}

}  // namespace kovra
