#pragma once
// The arithmetic of the timeline's strip: a row of equal cells, one for each 1/S second, where S is the
// snap rate the document chose. Each cell lists the key frames that begin in it; the cell after the
// last key frame's end marks the end of the animation. The strip holds its own copy of the key frames,
// so that one instance can follow the document and another can show a drag's preview.

#include <cstdint>
#include <vector>

#include "doc/wirrel.h"

namespace kovra {

class FrameStrip {
public:
    FrameStrip() = default;
    // The time base: ticks a second and the snap index into kSnapRates.
    FrameStrip(std::uint32_t ticksPerSecond, int snapIndex);

    void SetTimeBase(std::uint32_t ticksPerSecond, int snapIndex);
    // Takes a copy of the key frames and recomputes the start times and the cells.
    void Rebuild(const std::vector<WirrelKey>& frames);

    const std::vector<WirrelKey>& Frames() const { return frames_; }
    int CellCount() const { return lastCell_ + 1; }
    int LastCell() const { return lastCell_; }
    // Seconds from the start of the animation to the start of frame i.
    float FrameTime(int i) const { return frameTimes_[i]; }
    // Key frames that begin in cell c, in order.
    const std::vector<int>& CellKeys(int c) const { return cellKeys_[c]; }
    // The cell in which frame i begins.
    int CellOfFrame(int i) const { return CellOfTicks(startTicks_[i]); }
    std::uint64_t StartTicks(int i) const { return startTicks_[i]; }
    std::uint64_t TotalTicks() const { return totalTicks_; }

    int Rate() const { return rate_; }
    std::uint32_t TicksPerSecond() const { return ticksPerSecond_; }
    // S * t / R, the cell that holds the tick t.
    int CellOfTicks(std::uint64_t ticks) const;
    // R * c / S rounded to the nearest tick: where cell c begins.
    std::uint64_t TicksOfCell(int cell) const;
    // The play position at the start of cell c: a key frame index plus the fraction into that frame,
    // snapped to the whole number when within 1e-05 of it; the frame count beyond the end.
    float KeyTimeOfCell(int cell) const;

private:
    std::uint32_t ticksPerSecond_ = 1200;
    int rate_ = 5;
    std::vector<WirrelKey> frames_;
    std::vector<float> frameTimes_;
    std::vector<std::uint64_t> startTicks_;
    std::vector<std::vector<int>> cellKeys_;
    std::uint64_t totalTicks_ = 0;
    int lastCell_ = -1;
};

}  // namespace kovra
