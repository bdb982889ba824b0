#pragma once
// Micro keyframes: a pin keyed in only some key frames gets computed in-between records, marked
// tweened, in the key frames between its real keys.

#include <cstdint>
#include <vector>

#include "doc/wirrel.h"

namespace kovra {

// Recomputes the tweened records of pin `pinId` on both sides of key frame `index`, up to the pin's
// nearest real keys before and after it.
void Retween(std::vector<WirrelKey>& frames, int index, std::int32_t pinId);

// Fills key frames a + 1 to b - 1 with the pin's record interpolated between frames a and b (modulo the
// frame count, so b may be the count or more to wrap, at most a + count), evenly in time. Nothing happens
// unless a < b.
void Tween(std::vector<WirrelKey>& frames, int a, int b, std::int32_t pinId);

}  // namespace kovra
