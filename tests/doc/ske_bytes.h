#pragma once
// Builds .ske files byte by byte, little-endian, so that tests state exactly what a file holds.

#include <bit>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kovra::test {

class SkeBytes {
public:
    SkeBytes& U8(std::uint8_t v) { return Put(v, 1); }
    SkeBytes& U16(std::uint16_t v) { return Put(v, 2); }
    SkeBytes& U32(std::uint32_t v) { return Put(v, 4); }
    SkeBytes& I32(std::int32_t v) { return Put(static_cast<std::uint32_t>(v), 4); }
    SkeBytes& F32(float v) { return Put(std::bit_cast<std::uint32_t>(v), 4); }
    SkeBytes& Raw(std::string_view text) {
        bytes.insert(bytes.end(), text.begin(), text.end());
        return *this;
    }
    // The length form: u32 length with the NUL, the bytes, the NUL.
    SkeBytes& Text(std::string_view text) {
        return U32(static_cast<std::uint32_t>(text.size() + 1)).Raw(text).U8(0);
    }

    // "Wrlm", 0, the version; for version 3 the byte saying whether pixelsPerUnit follows.
    SkeBytes& Head(std::uint8_t version, std::uint32_t pinCount, std::uint32_t ticksPerSecond,
                   std::int32_t pixelsPerUnit = -1) {
        Raw("Wrlm").U8(0).U8(version);
        if (version == 3) {
            U8(pixelsPerUnit >= 0 ? 1 : 0);
        }
        U32(pinCount).U32(ticksPerSecond);
        return pixelsPerUnit >= 0 ? I32(pixelsPerUnit) : *this;
    }

    // The id, the payload's size plus `sizeOffset`, and the payload.
    SkeBytes& Chunk(std::uint8_t id, const SkeBytes& payload, int sizeOffset = 0) {
        U8(id).U32(static_cast<std::uint32_t>(static_cast<int>(payload.bytes.size()) + sizeOffset));
        bytes.insert(bytes.end(), payload.bytes.begin(), payload.bytes.end());
        return *this;
    }

    SkeBytes& End() { return U8(255).U32(0); }

    // The part of a pin record that every chunk version has; version 3 adds the aabb and the id.
    SkeBytes& Pin(float angle, float length, std::int32_t parent, std::uint32_t flags, std::int32_t skin = -1,
                  float scale = 1) {
        return F32(angle).F32(length).I32(parent).U32(flags).I32(skin).F32(scale);
    }

    std::vector<std::uint8_t> bytes;

private:
    SkeBytes& Put(std::uint32_t v, int count) {
        for (int i = 0; i < count; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
        }
        return *this;
    }
};

}  // namespace kovra::test
