#pragma once
// What the timeline's gestures do to a list of key frames, as pure functions of the frames: the result
// that the preview strip shows during a drag and that the command stores at release.

#include <cstdint>
#include <vector>

#include "doc/wirrel.h"

namespace kovra {

// How a key dropped onto a cell that holds another key is placed.
enum class DropMode { Insert, Replace };

struct KeyMove {
    int source = 0;            // index of the dragged key frame
    std::uint64_t target = 0;  // tick of the drop, in the animation as it was before the move
    bool copy = false;         // the source stays where it was
    bool ripple = false;       // later keys move with the time taken out and put in
    DropMode mode = DropMode::Insert;
};

// The frames after a key was moved or copied. Without ripple the neighbours absorb durations: the frame
// before the source takes over its time, and the frame the drop falls into is split there. With ripple
// the gap at the source closes and the drop opens a gap of the key's own duration. Answers the index of
// the placed key.
int MoveKey(std::vector<WirrelKey>& frames, const KeyMove& move);

// The frames resized to a total of `ticks`: frames wholly past the new end are removed and the last that
// survives is shortened by the rest; a longer total lengthens frame `fromFrame` (-1: the last). Refuses,
// answering false with the frames untouched, when nothing would be left.
bool ResizeFrames(std::vector<WirrelKey>& frames, std::uint64_t ticks, int fromFrame);

// The key frame that the strip makes in an empty cell at `tick`: the pose interpolated between the frame
// that holds the tick and the next one, lasting to that frame's end. `previous` is the frame it splits.
WirrelKey KeyBetween(const std::vector<WirrelKey>& frames, std::uint64_t tick, int& previous);

// Index of the frame that holds `tick`, the last frame for a tick at or beyond the end.
int FrameAtTick(const std::vector<WirrelKey>& frames, std::uint64_t tick, std::uint64_t& start);

}  // namespace kovra
