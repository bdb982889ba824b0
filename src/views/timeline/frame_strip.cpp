#include "views/timeline/frame_strip.h"

#include <algorithm>
#include <cmath>

#include "anim/playback.h"

namespace kovra {

FrameStrip::FrameStrip(std::uint32_t ticksPerSecond, int snapIndex) {
    SetTimeBase(ticksPerSecond, snapIndex);
}

void FrameStrip::SetTimeBase(std::uint32_t ticksPerSecond, int snapIndex) {
    ticksPerSecond_ = std::max<std::uint32_t>(ticksPerSecond, 1);
    rate_ = kSnapRates[std::clamp(snapIndex, 0, static_cast<int>(kSnapRates.size()) - 1)];
}

int FrameStrip::CellOfTicks(std::uint64_t ticks) const {
    return static_cast<int>(static_cast<std::uint64_t>(rate_) * ticks / ticksPerSecond_);
}

std::uint64_t FrameStrip::TicksOfCell(int cell) const {
    const auto twice = 2 * static_cast<std::uint64_t>(ticksPerSecond_) * static_cast<std::uint64_t>(cell);
    return (twice + static_cast<std::uint64_t>(rate_)) / (2 * static_cast<std::uint64_t>(rate_));
}

void FrameStrip::Rebuild(const std::vector<WirrelKey>& frames) {
    frames_ = frames;
    frameTimes_.clear();
    startTicks_.clear();
    std::uint64_t ticks = 0;
    for (const WirrelKey& key : frames_) {
        startTicks_.push_back(ticks);
        frameTimes_.push_back(static_cast<float>(ticks) / static_cast<float>(ticksPerSecond_));
        ticks += key.ticks;
    }
    totalTicks_ = ticks;
    // The end cell is the first one that lies wholly past the animation's end.
    const std::uint64_t scaled = static_cast<std::uint64_t>(rate_) * ticks;
    lastCell_ = frames_.empty() ? -1 : static_cast<int>((scaled + ticksPerSecond_ - 1) / ticksPerSecond_);
    cellKeys_.assign(static_cast<std::size_t>(lastCell_ + 1), {});
    for (int i = 0; i < static_cast<int>(frames_.size()); ++i) {
        cellKeys_[std::min(CellOfFrame(i), lastCell_)].push_back(i);
    }
}

float FrameStrip::KeyTimeOfCell(int cell) const {
    const auto rate = static_cast<float>(rate_);
    const float at = static_cast<float>(cell) / rate;
    float before = 0.0f;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        const float duration = static_cast<float>(frames_[i].ticks) / static_cast<float>(ticksPerSecond_);
        if ((before + duration) * rate > static_cast<float>(cell)) {
            float time = static_cast<float>(i) + (at - before) / duration;
            const float whole = std::round(time);
            if (std::fabs(time - whole) < 1e-05f) {
                time = whole;
            }
            return time;
        }
        before += duration;
    }
    return static_cast<float>(frames_.size());
}

}  // namespace kovra
