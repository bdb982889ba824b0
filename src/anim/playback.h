#pragma once
// Playback of the document's play cursor (advancing in time, switching animations) and the arithmetic of
// the timeline that maps ticks to snap cells and back.

#include <array>
#include <cstdint>
#include <vector>

#include "doc/wirrel.h"
#include "doc/wirrel_doc.h"

namespace kovra {

// Moves the play position by `seconds` of playback at the current animation's speed, looping, and calls
// the document's frame-change listeners when the key frame changes. The current key frame must have a
// duration: in a key frame of zero ticks nothing moves.
void Advance(WirrelDoc& doc, float seconds);

// Makes animation `index` (-1: none) current and remembers the one left in the cursor's other fields.
// Nothing happens when the animation is already the current one.
void SwitchAnimation(WirrelDoc& doc, int index);

// Steps per second that the timeline snaps to, by snap index.
inline constexpr std::array<int, 12> kSnapRates{1, 2, 3, 4, 5, 8, 10, 15, 20, 30, 50, 60};

// Timeline arithmetic at one snap rate.
class SnapGrid {
public:
    SnapGrid(int snapIndex, std::uint32_t ticksPerSecond);

    int Rate() const { return rate_; }
    float TicksToSnaps(std::uint32_t ticks) const;
    // `snaps` is a position on the snap scale; the result is rounded to the nearest tick.
    std::int64_t SecondsToTicks(float snaps) const;
    // Cells needed to show `totalTicks`, rounded up.
    std::int64_t SnapCells(std::uint64_t totalTicks) const;
    // The length in ticks that `cells` cells show.
    std::int64_t DisplayedTicks(std::int64_t cells) const;
    // The snap cell at which each key frame of the animation begins.
    std::vector<std::int64_t> SnapPositions(const WirrelAnim& anim) const;
    // The play position (key frame index and fraction) at snap position `x`; the key frame count when
    // `x` lies beyond the end.
    float PositionOfSnap(const WirrelAnim& anim, float x) const;

private:
    float Seconds(std::uint32_t ticks) const;

    int rate_;
    std::uint32_t ticksPerSecond_;
};

// Sum of the ticks of all key frames.
std::uint64_t TotalTicks(const WirrelAnim& anim);

}  // namespace kovra
