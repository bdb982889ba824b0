#pragma once
// Small skeletons for command tests, written as records so that every value is known.

#include <vector>

#include "doc/wirrel_doc.h"

namespace kovra::test {

// Two trees: root 0 at the origin with the chain 1 (straight up, 2 long) and 2 (3 long, along x); root 3
// at (-5, 0) with the attachment 4. Ids are the indices.
inline std::vector<WirrelPin> TwoTrees() {
    return {WirrelPin{.angle = 0.0f, .length = 0.0f, .flags = Root, .parent = -1, .id = 0},
            WirrelPin{.angle = 1.5707964f, .length = 2.0f, .flags = Bone, .parent = 0, .id = 1},
            WirrelPin{.angle = 0.0f, .length = 3.0f, .flags = Bone, .parent = 1, .id = 2},
            WirrelPin{.angle = 3.1415927f, .length = 5.0f, .flags = Root, .parent = -1, .id = 3},
            WirrelPin{.angle = 4.712389f, .length = 1.0f, .flags = Attachment, .parent = 3, .id = 4}};
}

// Gives the document's current animation `frames` key frames of TwoTrees, each turned a little further,
// and the names of the five pins; the current frame is 1 when there are two or more.
inline void UseTwoTrees(WirrelDoc& doc, int frames) {
    doc.Wirrel().pinNames = {MakeName("hip"), MakeName("leg"), MakeName("foot"), MakeName("box"),
                             MakeName("lid")};
    std::vector<WirrelKey>& keys = doc.CurrentAnim().keys;
    keys.assign(frames, WirrelKey{.pins = TwoTrees(), .ticks = 600});
    for (int k = 0; k < frames; ++k) {
        keys[k].pins[2].angle = 0.25f * k;
        keys[k].pins[4].length = 1.0f + k;
    }
    doc.SetFrame(frames > 1 ? 1 : 0);
}

}  // namespace kovra::test
