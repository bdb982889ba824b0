#include "anim/playback.h"

#include <algorithm>
#include <cmath>

namespace kovra {

namespace {

// Loops a play position back below count - 1e-05; a position below 0 becomes 0.
float Wrap(float pos, std::size_t count) {
    const auto n = static_cast<float>(count);
    while (pos >= n - 1e-05f) {
        pos -= n;
    }
    return pos < 0.0f ? 0.0f : pos;
}

}  // namespace

void Advance(WirrelDoc& doc, float seconds) {
    PlayCursor& cursor = doc.cursor;
    const Wirrel& wirrel = doc.Wirrel();
    if (!doc.HasCurrentAnim()) {
        return;
    }
    const WirrelAnim& anim = wirrel.anims[cursor.animIndex];
    if (cursor.frameIndex >= anim.keys.size()) {
        return;
    }
    const float s = seconds * anim.speed;
    // The step is measured in the current key frame's duration even when it crosses into the next.
    const float duration =
        static_cast<float>(anim.keys[cursor.frameIndex].ticks) / static_cast<float>(wirrel.ticksPerSecond);
    if (!(duration > 0.0f) || !std::isfinite(s / duration)) {
        return;
    }
    const std::uint32_t oldFrame = cursor.frameIndex;
    cursor.framePos = Wrap(cursor.framePos + s / duration, anim.keys.size());
    cursor.frameIndex = static_cast<std::uint32_t>(cursor.framePos);

    if (cursor.blending) {
        const int other = doc.FindAnim(NameOf(cursor.otherAnimName));
        if (other >= 0 && !wirrel.anims[other].keys.empty()) {
            cursor.otherFramePos = Wrap(cursor.otherFramePos + s, wirrel.anims[other].keys.size());
            cursor.otherFrameIndex = static_cast<std::uint32_t>(cursor.otherFramePos);
        }
        cursor.blendPos += s;
        if (cursor.blendPos >= 0.99999f) {
            cursor.blending = false;
        }
    }
    if (cursor.frameIndex != oldFrame) {
        doc.onFrameChanged.Call(static_cast<int>(oldFrame), static_cast<int>(cursor.frameIndex));
    }
}

void SwitchAnimation(WirrelDoc& doc, int index) {
    PlayCursor& cursor = doc.cursor;
    const std::vector<WirrelAnim>& anims = doc.Wirrel().anims;
    if (index < -1 || index >= static_cast<int>(anims.size())) {
        return;
    }
    if (index != -1 && NameOf(anims[index].name) == NameOf(cursor.animName)) {
        return;
    }
    cursor.otherAnimName = cursor.animName;
    cursor.otherFrameIndex = cursor.frameIndex;
    cursor.otherFramePos = cursor.framePos;
    cursor.blendPos = 0.0f;
    cursor.blending = false;
    cursor.blendLength = 1.0f;
    cursor.animName = index >= 0 ? anims[index].name : Name32{};
    cursor.animIndex = index;
    cursor.frameIndex = 0;
    cursor.framePos = 0.0f;
}

std::uint64_t TotalTicks(const WirrelAnim& anim) {
    std::uint64_t total = 0;
    for (const WirrelKey& key : anim.keys) {
        total += key.ticks;
    }
    return total;
}

SnapGrid::SnapGrid(int snapIndex, std::uint32_t ticksPerSecond)
    : rate_(kSnapRates[std::clamp(snapIndex, 0, static_cast<int>(kSnapRates.size()) - 1)]),
      ticksPerSecond_(ticksPerSecond) {}

float SnapGrid::Seconds(std::uint32_t ticks) const {
    return static_cast<float>(ticks) / static_cast<float>(ticksPerSecond_);
}

float SnapGrid::TicksToSnaps(std::uint32_t ticks) const {
    return static_cast<float>(rate_) * static_cast<float>(ticks) / static_cast<float>(ticksPerSecond_);
}

std::int64_t SnapGrid::SecondsToTicks(float snaps) const {
    return std::llround(static_cast<float>(ticksPerSecond_) * snaps / static_cast<float>(rate_));
}

std::int64_t SnapGrid::SnapCells(std::uint64_t totalTicks) const {
    const auto tps = static_cast<std::int64_t>(ticksPerSecond_);
    return (rate_ * static_cast<std::int64_t>(totalTicks) + tps - 1) / tps;
}

std::int64_t SnapGrid::DisplayedTicks(std::int64_t cells) const {
    return static_cast<std::int64_t>(ticksPerSecond_) * cells / rate_;
}

std::vector<std::int64_t> SnapGrid::SnapPositions(const WirrelAnim& anim) const {
    std::vector<std::int64_t> positions;
    positions.reserve(anim.keys.size());
    float seconds = 0.0f;
    for (const WirrelKey& key : anim.keys) {
        float position = static_cast<float>(rate_) * seconds;
        // A sum of durations that falls a hair short of a cell boundary still starts on it.
        const float next = std::floor(position) + 1.0f;
        if (next - position < 1e-05f) {
            position = next;
        }
        positions.push_back(static_cast<std::int64_t>(position));
        seconds += Seconds(key.ticks);
    }
    return positions;
}

float SnapGrid::PositionOfSnap(const WirrelAnim& anim, float x) const {
    const auto rate = static_cast<float>(rate_);
    float seconds = 0.0f;
    for (std::size_t i = 0; i < anim.keys.size(); ++i) {
        const float d = Seconds(anim.keys[i].ticks);
        if (rate * (seconds + d) > x) {
            float p = (x / rate - seconds) / d + static_cast<float>(i);
            const float next = std::floor(p) + 1.0f;
            if (next - p < 1e-5f) {
                p = next;
            }
            return p;
        }
        seconds += d;
    }
    return static_cast<float>(anim.keys.size());
}

}  // namespace kovra
