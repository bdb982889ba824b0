#include "doc/wirrel_reader.h"

#include <algorithm>
#include <bit>
#include <string>
#include <type_traits>

namespace kovra {

namespace {

// A read position in the file's bytes. A read that would run past the end fails and takes nothing; a
// skip may pass the end, after which every read fails.
class ByteCursor {
public:
    explicit ByteCursor(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint64_t Pos() const { return pos_; }
    std::uint64_t Left() const { return pos_ < bytes_.size() ? bytes_.size() - pos_ : 0; }
    void Skip(std::uint64_t count) { pos_ += count; }

    // Whether `count` items of at least `each` bytes can still be in the file.
    bool Fits(std::uint64_t count, std::uint64_t each) const { return count <= Left() / each; }

    template <class T>
    bool Get(T& value) {
        static_assert(sizeof(T) <= 4);
        if (Left() < sizeof(T)) {
            return false;
        }
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            bits |= static_cast<std::uint32_t>(bytes_[pos_ + i]) << (8 * i);
        }
        pos_ += sizeof(T);
        if constexpr (std::is_same_v<T, float>) {
            value = std::bit_cast<float>(bits);
        } else {
            value = static_cast<T>(bits);
        }
        return true;
    }

    template <class... T>
    bool GetAll(T&... values) {
        return (Get(values) && ...);
    }

    // A u32 length with the NUL counted, at most `limit`, then that many bytes ending with NUL. The text
    // is what stands before the first NUL.
    bool Text(std::uint32_t limit, std::string& out) {
        std::uint32_t length = 0;
        if (!Get(length) || length == 0 || length > limit || length > Left() ||
            bytes_[pos_ + length - 1] != 0) {
            return false;
        }
        const auto begin = bytes_.begin() + static_cast<std::ptrdiff_t>(pos_);
        out.assign(begin, std::find(begin, begin + length, std::uint8_t{0}));
        pos_ += length;
        return true;
    }

    // The old form of a text: bytes up to a NUL, at most `limit` of them. It never fails.
    void NulText(std::size_t limit, std::string& out) {
        out.clear();
        std::uint8_t c = 0;
        while (out.size() < limit && Get(c) && c != 0) {
            out += static_cast<char>(c);
        }
    }

    bool Bytes(std::uint64_t count, std::vector<std::uint8_t>& out) {
        if (!Fits(count, 1)) {
            return false;
        }
        const auto begin = bytes_.begin() + static_cast<std::ptrdiff_t>(pos_);
        out.assign(begin, begin + static_cast<std::ptrdiff_t>(count));
        pos_ += count;
        return true;
    }

    bool Name(Name32& name) {
        std::string text;
        if (!Text(ske::kNameLimit, text)) {
            return false;
        }
        SetName(name, text);
        return true;
    }

private:
    std::span<const std::uint8_t> bytes_;
    std::uint64_t pos_ = 0;
};

struct Head {
    std::uint8_t version = 0;
    std::uint32_t pinCount = 0;
};

// The magic, a zero byte and a version this reader knows.
bool ReadStart(ByteCursor& in, std::uint8_t& version) {
    char magic[4];
    std::uint8_t zero = 1;
    return in.GetAll(magic[0], magic[1], magic[2], magic[3], zero, version) &&
           std::equal(magic, magic + 4, ske::kMagic) && zero == 0 && version >= 1 && version <= ske::kVersion;
}

// Reads the head and the header; the cursor then stands on the first chunk. Only version 3 has the byte
// that says whether pixelsPerUnit follows.
bool ReadHead(ByteCursor& in, Head& head, Wirrel* wirrel) {
    std::uint8_t hasPixelsPerUnit = 0;
    std::uint32_t ticksPerSecond = 0;
    std::uint32_t pixelsPerUnit = 150;
    if (!ReadStart(in, head.version) || (head.version == 3 && !in.Get(hasPixelsPerUnit)) ||
        !in.GetAll(head.pinCount, ticksPerSecond) || (hasPixelsPerUnit != 0 && !in.Get(pixelsPerUnit))) {
        return false;
    }
    if (wirrel) {
        wirrel->ticksPerSecond = ticksPerSecond;
        wirrel->pixelsPerUnit = static_cast<std::int32_t>(pixelsPerUnit);
    }
    return true;
}

bool ReadVersion(ByteCursor& in, std::uint8_t lowest, std::uint8_t highest, std::uint8_t& version) {
    return in.Get(version) && version >= lowest && version <= highest;
}

bool ReadNameList(ByteCursor& in, std::vector<Name32>& names) {
    std::uint32_t count = 0;
    if (!in.Get(count) || !in.Fits(count, 5)) {
        return false;
    }
    names.resize(count);
    return std::all_of(names.begin(), names.end(), [&in](Name32& name) { return in.Name(name); });
}

bool ReadNames(ByteCursor& in, Wirrel& wirrel, std::uint32_t pinCount) {
    std::uint8_t version = 0;
    if (!ReadVersion(in, 1, 3, version) || !in.Fits(pinCount, 5)) {
        return false;
    }
    wirrel.pinNames.resize(pinCount);
    for (Name32& name : wirrel.pinNames) {
        if (!in.Name(name)) {
            return false;
        }
        // The first version kept a list of numbers after each name; nothing reads them.
        std::uint32_t skipped = 0;
        if (version == 1 && (!in.Get(skipped) || !in.Fits(skipped, 4))) {
            return false;
        }
        in.Skip(std::uint64_t{skipped} * 4);
    }
    return version < 3 || (ReadNameList(in, wirrel.eventNames) && ReadNameList(in, wirrel.spareNames));
}

bool ReadImages(ByteCursor& in, Wirrel& wirrel, std::vector<WirrelImageRecord>& images) {
    std::uint8_t version = 0;
    std::uint32_t count = 0;
    if (!ReadVersion(in, 1, 2, version) || !in.Get(count) || !in.Fits(count, version >= 2 ? 9 : 5)) {
        return false;
    }
    images.resize(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        std::string path;
        if (!in.Text(ske::kPathLimit, path) || (version >= 2 && !in.Get(images[i].colorKey))) {
            return false;
        }
        images[i].path = aurel::DualString(std::move(path));
        images[i].index = static_cast<std::int32_t>(i);
    }
    if (!in.Get(count) || !in.Fits(count, 20)) {
        return false;
    }
    wirrel.textures.resize(count);
    return std::all_of(wirrel.textures.begin(), wirrel.textures.end(), [&in](WirrelTexture& t) {
        return in.GetAll(t.imageIndex, t.x, t.y, t.width, t.height);
    });
}

bool ReadKey(ByteCursor& in, std::uint8_t version, WirrelKey& key) {
    if (!in.Get(key.ticks) || (version >= 2 && !in.GetAll(key.eventFirst, key.eventCount))) {
        return false;
    }
    for (std::size_t i = 0; i < key.pins.size(); ++i) {
        WirrelPin& pin = key.pins[i];
        pin.id = static_cast<std::int32_t>(i);
        if (!in.GetAll(pin.angle, pin.length, pin.parent, pin.flags, pin.skin, pin.scale) ||
            (version >= 3 && !in.GetAll(pin.aabb, pin.id))) {
            return false;
        }
    }
    return true;
}

bool ReadAnims(ByteCursor& in, Wirrel& wirrel, std::uint32_t headerPinCount) {
    std::uint8_t version = 0;
    std::uint32_t count = 0;
    if (!ReadVersion(in, 1, 4, version) || !in.Get(count) || !in.Fits(count, version >= 4 ? 17 : 13)) {
        return false;
    }
    wirrel.anims.resize(count);
    for (WirrelAnim& anim : wirrel.anims) {
        std::uint32_t keyCount = 0;
        std::uint32_t pinCount = headerPinCount;
        if (!in.Name(anim.name) || !in.GetAll(anim.speed, keyCount) || (version >= 4 && !in.Get(pinCount))) {
            return false;
        }
        const std::uint64_t keyBytes =
            (version >= 2 ? 12 : 4) + std::uint64_t{pinCount} * (version >= 3 ? 32 : 24);
        if (!in.Fits(keyCount, keyBytes)) {
            return false;
        }
        anim.keys.resize(keyCount);
        for (WirrelKey& key : anim.keys) {
            key.pins.resize(pinCount);
            if (!ReadKey(in, version, key)) {
                return false;
            }
        }
    }
    return true;
}

bool ReadSkins(ByteCursor& in, Wirrel& wirrel) {
    std::uint8_t version = 0;
    std::uint32_t count = 0;
    if (!ReadVersion(in, 1, 2, version) || !in.Get(count) || !in.Fits(count, version >= 2 ? 28 : 24)) {
        return false;
    }
    wirrel.skins.resize(count);
    for (WirrelSkin& skin : wirrel.skins) {
        if (!in.GetAll(skin.texture, skin.offsetX, skin.offsetY, skin.scaleX, skin.scaleY, skin.angle) ||
            (version >= 2 && !in.Get(skin.collision))) {
            return false;
        }
        // There are at most 8 collision kinds; anything beyond means none.
        skin.collision = skin.collision > 8 ? -1 : skin.collision;
    }
    return true;
}

bool ReadAabbs(ByteCursor& in, Wirrel& wirrel) {
    std::uint8_t version = 0;
    std::uint32_t count = 0;
    if (!ReadVersion(in, 1, 1, version) || !in.Get(count) || !in.Fits(count, 24)) {
        return false;
    }
    wirrel.aabbs.resize(count);
    return std::all_of(wirrel.aabbs.begin(), wirrel.aabbs.end(), [&in](WirrelAabb& a) {
        return in.GetAll(a.left, a.top, a.right, a.bottom, a.kind, a.next);
    });
}

bool ReadEvents(ByteCursor& in, Wirrel& wirrel) {
    std::uint8_t version = 0;
    std::uint32_t count = 0;
    if (!ReadVersion(in, 1, 2, version) || !in.Get(count) || !in.Fits(count, version >= 2 ? 32 : 16)) {
        return false;
    }
    wirrel.events.resize(count);
    return std::all_of(wirrel.events.begin(), wirrel.events.end(), [&](WirrelEvent& e) {
        std::array<std::uint32_t, 6>& v = e.vars;
        return in.Get(e.name) && (version < 2 || in.Get(e.types)) && in.GetAll(v[0], v[1], v[2]) &&
               (version < 2 || in.GetAll(v[3], v[4], v[5]));
    });
}

bool ReadBackgroundValues(ByteCursor& in, WirrelEditorData& out) {
    return in.GetAll(out.backgroundAlpha, out.backgroundOffsetX, out.backgroundOffsetY, out.backgroundScale);
}

bool ReadEditorRecords(ByteCursor& in, WirrelEditorData& out) {
    for (;;) {
        std::uint16_t type = 0;
        std::uint8_t version = 0;
        std::string text;
        if (!in.Get(type)) {
            return false;
        }
        switch (type) {
            case ske::kRecordEnd:
                return true;
            case ske::kRecordOldBackground:
                in.NulText(ske::kPathLimit, text);
                out.backgroundPath = aurel::DualString(std::move(text));
                if (!ReadBackgroundValues(in, out)) {
                    return false;
                }
                break;
            case ske::kRecordSettings: {
                std::uint8_t spareFlag = 0;
                if (!in.GetAll(out.snapFrames, out.spareScale, spareFlag)) {
                    return false;
                }
                out.spareFlag = spareFlag != 0;
                break;
            }
            case ske::kRecordBackground:
                if (!in.Get(version) || version == 0 || !in.Text(ske::kPathLimit, text)) {
                    return false;
                }
                out.backgroundPath = aurel::DualString(std::move(text));
                if (!ReadBackgroundValues(in, out)) {
                    return false;
                }
                break;
            case ske::kRecordNotes: {
                std::uint32_t size = 0;
                if (!in.Get(version) || version == 0 || !in.Text(ske::kNotesLimit, text) ||
                    (version == 2 && !(in.Get(size) && in.Bytes(size, out.notesImage)))) {
                    return false;
                }
                out.notes = aurel::DualString(std::move(text));
                break;
            }
            default:  // a record type of no known content: nothing to skip
                break;
        }
    }
}

}  // namespace

int WirrelVersion(std::span<const std::uint8_t> file) {
    ByteCursor in(file);
    std::uint8_t version = 0;
    return ReadStart(in, version) ? version : 0;
}

bool ReadWirrel(Wirrel& wirrel, std::vector<WirrelImageRecord>& imagesOut,
                std::span<const std::uint8_t> file) {
    wirrel = Wirrel{};
    wirrel.pixelsPerUnit = 150;  // what files without the field were made with
    imagesOut.clear();
    ByteCursor in(file);
    Head head;
    if (!ReadHead(in, head, &wirrel) || head.version < 2) {
        return false;
    }
    for (;;) {
        std::uint8_t id = 0;
        std::uint32_t size = 0;
        if (!in.GetAll(id, size)) {
            return false;
        }
        const std::uint64_t start = in.Pos();
        bool ok = true;
        switch (id) {
            case ske::kChunkEnd:
                return true;
            case ske::kChunkNames:
                ok = ReadNames(in, wirrel, head.pinCount);
                break;
            case ske::kChunkImages:
                ok = ReadImages(in, wirrel, imagesOut);
                break;
            case ske::kChunkAnims:
                ok = ReadAnims(in, wirrel, head.pinCount);
                break;
            case ske::kChunkSkins:
                ok = ReadSkins(in, wirrel);
                break;
            case ske::kChunkAabbs:
                ok = ReadAabbs(in, wirrel);
                break;
            case ske::kChunkEvents:
                ok = ReadEvents(in, wirrel);
                break;
            default:  // the editor chunk, read by the second pass, and chunks of later versions
                in.Skip(size);
                break;
        }
        if (!ok || in.Pos() != start + size) {
            return false;
        }
    }
}

bool ReadWirrel(Wirrel& wirrel, std::vector<WirrelImageRecord>& imagesOut, aurel::BinReader& stream) {
    std::vector<std::uint8_t> bytes;
    if (!ReadAllBytes(stream, bytes)) {
        wirrel = Wirrel{};
        imagesOut.clear();
        return false;
    }
    return ReadWirrel(wirrel, imagesOut, bytes);
}

bool ReadEditorData(std::span<const std::uint8_t> file, WirrelEditorData& out) {
    ByteCursor in(file);
    Head head;
    if (!ReadHead(in, head, nullptr)) {
        return false;
    }
    for (;;) {
        std::uint8_t id = 0;
        std::uint32_t size = 0;
        if (!in.GetAll(id, size)) {
            return false;
        }
        if (id == ske::kChunkEnd) {
            return true;
        }
        if (id != ske::kChunkEditor) {
            in.Skip(size);
        } else if (!ReadEditorRecords(in, out)) {
            return false;
        }
    }
}

bool ReadAllBytes(aurel::BinReader& stream, std::vector<std::uint8_t>& out) {
    if (!stream.Seek(0, aurel::kSeekEnd)) {
        return false;
    }
    const std::int64_t size = stream.Tell();
    if (size < 0 || size > ske::kFileLimit || !stream.Seek(0, aurel::kSeekStart)) {
        return false;
    }
    out.resize(static_cast<std::size_t>(size));
    return stream.Read(out.size(), out.data());
}

bool ReadDocumentFile(const aurel::DualString& path, std::vector<std::uint8_t>& out, std::string* why) {
    out.clear();
    aurel::FileStream stream;
    if (!aurel::OpenBinReader(stream, path, why)) {
        return false;
    }
    constexpr std::size_t kStart = 6;  // magic, zero, version
    out.resize(kStart);
    if (!stream.Read(kStart, out.data()) || WirrelVersion(out) == 0) {
        out.clear();
        return false;
    }
    const std::int64_t size = stream.Size();
    if (size > ske::kFileLimit) {
        out.clear();
        if (why) {
            *why = "it is " + std::to_string(size) + " bytes, more than the 1 GiB a document can be";
        }
        return false;
    }
    out.resize(static_cast<std::size_t>(std::max<std::int64_t>(size, kStart)));
    if (!stream.Read(out.size() - kStart, out.data() + kStart)) {
        out.clear();
        if (why) {
            *why = "it could not be read whole";
        }
        return false;
    }
    return true;
}

}  // namespace kovra
