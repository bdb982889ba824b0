#include "views/timeline/frame_edits.h"

#include <algorithm>

#include "anim/interpolate.h"

namespace kovra {

int FrameAtTick(const std::vector<WirrelKey>& frames, std::uint64_t tick, std::uint64_t& start) {
    start = 0;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (tick < start + frames[i].ticks || i + 1 == frames.size()) {
            return static_cast<int>(i);
        }
        start += frames[i].ticks;
    }
    return -1;
}

namespace {

std::uint64_t Total(const std::vector<WirrelKey>& frames) {
    std::uint64_t total = 0;
    for (const WirrelKey& key : frames) {
        total += key.ticks;
    }
    return total;
}

// Takes the key out; the frame before it (or, for the first, the one after) keeps the time unless the
// gap is to close.
void TakeOut(std::vector<WirrelKey>& frames, int index, bool closeGap) {
    const std::uint32_t ticks = frames[index].ticks;
    frames.erase(frames.begin() + index);
    if (!closeGap && !frames.empty()) {
        frames[index > 0 ? index - 1 : 0].ticks += ticks;
    }
}

}  // namespace

int MoveKey(std::vector<WirrelKey>& frames, const KeyMove& move) {
    WirrelKey key = frames[move.source];
    // The key begins at the drop in the result: with ripple the keys between move up by its duration.
    const std::uint64_t target = move.target;
    if (!move.copy) {
        TakeOut(frames, move.source, move.ripple);
    }
    const std::uint64_t total = Total(frames);
    if (frames.empty()) {
        frames.push_back(key);
        return 0;
    }
    if (target >= total) {
        // Past the end: the last frame reaches the drop, and the key keeps its own duration.
        frames.back().ticks += static_cast<std::uint32_t>(target - total);
        frames.push_back(key);
        return static_cast<int>(frames.size()) - 1;
    }
    std::uint64_t start = 0;
    const int at = FrameAtTick(frames, target, start);
    if (start == target && (move.mode == DropMode::Replace || !move.ripple)) {
        // Without ripple a drop on a key can only replace it: the key takes that key's time.
        key.ticks = frames[at].ticks;
        frames[at] = key;
        return at;
    }
    if (start == target) {
        frames.insert(frames.begin() + at, key);
        return at;
    }
    const auto before = static_cast<std::uint32_t>(target - start);
    const std::uint32_t rest = frames[at].ticks - before;
    frames[at].ticks = before;
    key.ticks = move.ripple ? key.ticks + rest : rest;
    frames.insert(frames.begin() + at + 1, key);
    return at + 1;
}

bool ResizeFrames(std::vector<WirrelKey>& frames, std::uint64_t ticks, int fromFrame) {
    if (frames.empty() || ticks == 0) {
        return false;
    }
    const std::uint64_t total = Total(frames);
    if (ticks >= total) {
        const int index = fromFrame >= 0 && fromFrame < static_cast<int>(frames.size())
                              ? fromFrame
                              : static_cast<int>(frames.size()) - 1;
        frames[index].ticks += static_cast<std::uint32_t>(ticks - total);
        return true;
    }
    std::uint64_t start = 0;
    const int last = FrameAtTick(frames, ticks - 1, start);
    frames.resize(static_cast<std::size_t>(last) + 1);
    frames.back().ticks = static_cast<std::uint32_t>(ticks - start);
    return true;
}

WirrelKey KeyBetween(const std::vector<WirrelKey>& frames, std::uint64_t tick, int& previous) {
    std::uint64_t start = 0;
    previous = FrameAtTick(frames, tick, start);
    const WirrelKey& a = frames[previous];
    const WirrelKey& b = frames[(previous + 1) % frames.size()];
    WirrelKey key;
    const float t = a.ticks == 0 ? 0.0f : static_cast<float>(tick - start) / static_cast<float>(a.ticks);
    Interpolate(key.pins, a.pins, b.pins, t);
    key.ticks = static_cast<std::uint32_t>(start + a.ticks - std::min(tick, start + a.ticks));
    return key;
}

}  // namespace kovra
