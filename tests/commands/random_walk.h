#pragma once
// A seeded random walk over the commands: a new document is built by random gestures as the editor's
// views would make them (pins made, posed by FK and IK drags, re-parented, retyped, reordered, deleted;
// frames made, chosen, deleted, reflected; animations made, renamed, deleted, chosen; repeats; skins set
// and dragged by every grip; textures cut, moved, deleted, detected and packed; image files added, put in
// place of an image, or refused, and images deleted; editor modes, settings, events, selections and the
// background; now and then a few undos, also during playback, so that new commands cut redo tails). Then the
// whole history is undone and redone, and the document compared by the bytes its writer makes, with the play
// cursor.

#include <cstddef>
#include <cstdint>
#include <string>

#include "doc/wirrel.h"

namespace kovra::test {

struct WalkResult {
    std::size_t commands = 0;  // on the stack at the end
    std::string failure;       // what went wrong first, empty when nothing did
    Wirrel end;                // the document's tables at the end
};

WalkResult RunRandomWalk(std::uint32_t seed, int steps);

}  // namespace kovra::test
