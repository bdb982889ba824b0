#pragma once
// The pure data of a skeleton-and-animation document: flat tables of plain records that refer to each
// other by index, -1 meaning none. A whole Wirrel is copied by plain assignment, which is how commands
// take snapshots of it.

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kovra {

// A name of at most 31 bytes of UTF-8, NUL terminated within its 32 bytes.
using Name32 = std::array<char, 32>;

// Stores `text` into `name`, cut to at most 31 bytes without splitting a UTF-8 character.
void SetName(Name32& name, std::string_view text);
Name32 MakeName(std::string_view text);
std::string_view NameOf(const Name32& name);

// Pin types, the low three bits of WirrelPin::flags.
enum PinType : std::uint32_t { Bone = 0, Root = 1, Attachment = 2, Tail = 3, Tracker = 4, Orientation = 5 };

// Bits of WirrelPin::flags.
constexpr std::uint32_t kPinTypeMask = 0x7;
constexpr std::uint32_t kPinHidden = 0x10;      // takes no part in drawing in this key frame
constexpr std::uint32_t kPinTweened = 0x20;     // computed between the pin's real keys
constexpr std::uint32_t kTailEnd = 0x1000;      // last pin of a tail
constexpr std::uint32_t kTailAnchor = 0x2000;   // first pin of a tail
constexpr std::uint32_t kTailSegment = 0x3000;  // a segment in between; also the mask of both bits
constexpr std::uint32_t kSkinSeparated = 0x4000;
constexpr std::uint32_t kPinIkLock = 0x8000;     // the solver doesn't move this pin
constexpr std::uint32_t kPinMark = 0x80000000u;  // transient mark while a pose is sampled

// One pin in one key frame. Each key frame holds a whole vector of these; the same pin is found in
// another key frame by its id, since order and parent may differ between key frames.
struct WirrelPin {
    float angle = 0.0f;   // radians; direction from the parent's position (from the origin for a root)
    float length = 0.0f;  // distance from the parent's position, in workspace units
    float scale = 1.0f;   // applied to the skin of this pin
    std::uint32_t flags = 0;
    std::int32_t skin = -1;    // index into Wirrel::skins
    std::int32_t aabb = -1;    // head of this pin's chain in Wirrel::aabbs
    std::int32_t parent = -1;  // position of the parent in the same vector
    std::int32_t id = 0;       // index in Wirrel::pinNames, the same in all key frames

    PinType Type() const { return static_cast<PinType>(flags & kPinTypeMask); }
    void SetType(PinType type) { flags = (flags & ~kPinTypeMask) | type; }
    bool operator==(const WirrelPin&) const = default;
};

// A whole pose with its duration and its span of events.
struct WirrelKey {
    std::vector<WirrelPin> pins;
    std::uint32_t ticks = 1920;    // duration until the next key frame, in 1/ticksPerSecond seconds
    std::int32_t eventFirst = -1;  // first entry in Wirrel::events
    std::int32_t eventCount = 0;
    bool operator==(const WirrelKey&) const = default;
};

struct WirrelAnim {
    Name32 name{};
    std::vector<WirrelKey> keys;
    float speed = 1.0f;

    WirrelKey& KeyAt(std::size_t index) { return keys[index]; }
    const WirrelKey& KeyAt(std::size_t index) const { return keys[index]; }
    // The key frame after `index`; the animation wraps, so after the last comes the first.
    WirrelKey& NextKeyOf(std::size_t index) { return keys[(index + 1) % keys.size()]; }
    const WirrelKey& NextKeyOf(std::size_t index) const { return keys[(index + 1) % keys.size()]; }
    bool operator==(const WirrelAnim&) const = default;
};

// The time one pass of the animation takes: the sum of its key frames' ticks; 0 without a time base.
float AnimLengthSeconds(const WirrelAnim& anim, std::uint32_t ticksPerSecond);

// A rectangle of an image, in that image's pixels.
struct WirrelTexture {
    std::int32_t imageIndex = -1;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const WirrelTexture&) const = default;
};

// A texture placed on a pin: offset along and across the bone, scale and rotation relative to it.
struct WirrelSkin {
    std::int32_t texture = -1;
    float offsetX = 0.0f;
    float offsetY = 0.0f;
    float scaleX = 1.0f;
    float scaleY = 1.0f;
    float angle = 0.0f;
    std::int32_t collision = -1;  // collision kind, -1 for none, at most 8
    bool operator==(const WirrelSkin&) const = default;
};

// A collision rectangle in workspace units, one link of a pin's chain.
struct WirrelAabb {
    float left = 0.0f;
    float top = 0.0f;
    float right = 0.0f;
    float bottom = 0.0f;
    std::int32_t kind = 0;
    std::int32_t next = -1;
    bool operator==(const WirrelAabb&) const = default;
};

// An event with up to six variables, each an int32 or a float by two bits of `types` (0 none, 1 float,
// 2 integer); `vars` holds the raw 32 bits of each.
struct WirrelEvent {
    std::uint32_t name = 0;  // index into Wirrel::eventNames
    std::uint32_t types = 0;
    std::array<std::uint32_t, 6> vars{};

    // Type bits of variable i, counted from 0.
    std::uint32_t VarType(int i) const { return (types >> (i * 2)) & 3; }
    bool operator==(const WirrelEvent&) const = default;
};

struct Wirrel {
    std::uint32_t ticksPerSecond = 1200;
    std::int32_t pixelsPerUnit = 30;
    std::vector<WirrelAnim> anims;
    std::vector<WirrelTexture> textures;
    std::vector<WirrelSkin> skins;
    std::vector<WirrelEvent> events;
    std::vector<WirrelAabb> aabbs;
    std::vector<Name32> pinNames;  // its length is the number of pins
    std::vector<Name32> eventNames;
    std::vector<Name32> spareNames;  // read and written with the file, never shown
    bool operator==(const Wirrel&) const = default;
};

}  // namespace kovra
