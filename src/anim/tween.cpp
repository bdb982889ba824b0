#include "anim/tween.h"

#include "anim/forward.h"
#include "anim/interpolate.h"

namespace kovra {

namespace {

bool IsTweened(const WirrelKey& key, std::int32_t pinId) {
    const int index = IndexOfId(key.pins, pinId, -1);
    return index >= 0 && (key.pins[index].flags & kPinTweened) != 0;
}

}  // namespace

void Retween(std::vector<WirrelKey>& frames, int index, std::int32_t pinId) {
    const int count = static_cast<int>(frames.size());
    if (index < 0 || index >= count) {
        return;
    }
    if (index >= 1) {
        // A walk that wraps past frame 0 gives a start after `index`, and Tween then does nothing.
        int k = index - 1;
        while (k != index && IsTweened(frames[k], pinId)) {
            k = (k - 1 + count) % count;
        }
        Tween(frames, k, index, pinId);
    }
    if (index + 1 < count) {
        int m = index + 1;
        while (m % count != index && IsTweened(frames[m % count], pinId)) {
            ++m;
        }
        Tween(frames, index, m, pinId);
    }
}

void Tween(std::vector<WirrelKey>& frames, int a, int b, std::int32_t pinId) {
    const int count = static_cast<int>(frames.size());
    if (a < 0 || a >= b || count == 0) {
        return;
    }
    std::uint64_t total = 0;
    for (int k = a; k < b; ++k) {
        total += frames[k % count].ticks;
    }
    const Pose& from = frames[a % count].pins;
    const Pose& to = frames[b % count].pins;
    const int p = IndexOfId(from, pinId, -1);
    if (p < 0) {
        return;
    }
    std::uint64_t run = frames[a % count].ticks;
    Pose between;
    for (int k = a + 1; k < b; ++k) {
        const float t = total > 0 ? static_cast<float>(run) / static_cast<float>(total) : 0.0f;
        Interpolate(between, from, to, t);
        WirrelKey& key = frames[k % count];
        const int r = IndexOfId(key.pins, pinId, p);
        if (r >= 0) {
            const std::int32_t parent = key.pins[r].parent;
            key.pins[r] = between[p];
            key.pins[r].parent = parent;
            key.pins[r].flags |= kPinTweened;
        }
        run += key.ticks;
    }
}

}  // namespace kovra
