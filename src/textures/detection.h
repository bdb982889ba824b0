#pragma once
// Auto-detection: the connected regions of an image's non-transparent pixels become textures. The same
// routine serves the detect command, image loading, document opening and packing; with `keepTextures`
// set it only rebuilds the mask and the marks.

#include <cstdint>
#include <vector>

#include "base/prompt.h"
#include "doc/selection_tracker.h"
#include "doc/wirrel_doc.h"
#include "images/wirrel_tex_image.h"

namespace kovra {

// A labelled region's bounding box; right and bottom are one past the last pixel.
struct TexRegion {
    std::int32_t label = 0;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    bool operator==(const TexRegion&) const = default;
};

// Rebuilds the image's mask and marks and, unless `keepTextures`, replaces its textures by the regions
// found. `keyChoice` is -1 until the colour-key question is answered, then 0 (no) or 1 (yes); the
// answer is written back. False when the user cancelled.
bool ApplyDetection(bool keepTextures, WirrelTexImage& image, int imageIndex, WirrelDoc& document,
                    aurel::Prompt& window, SelectionTracker& textureSelection, int& keyChoice,
                    SelectionTracker& imageSelection);

}  // namespace kovra
