#pragma once
// Where playback stands: the current animation and the position in its key frames, and the animation
// being left while a transition blends from it.

#include <cstdint>

#include "doc/wirrel.h"

namespace kovra {

struct PlayCursor {
    std::int32_t animIndex = -1;  // -1 when there is none
    Name32 animName{};            // kept so that the animation can be found again by name
    std::uint32_t frameIndex = 0;  // whole part of framePos
    float framePos = 0.0f;         // 2.25 is a quarter of the way from key frame 2 to key frame 3

    Name32 otherAnimName{};
    std::uint32_t otherFrameIndex = 0;
    float otherFramePos = 0.0f;
    bool blending = false;
    float blendPos = 0.0f;
    float blendLength = 1.0f;
};

}  // namespace kovra
