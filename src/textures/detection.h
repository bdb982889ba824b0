#pragma once
// Auto-detection: the connected regions of an image's non-transparent pixels become textures. The same
// routine serves the detect command, image loading, document opening and packing; with `keepTextures`
// set it only rebuilds the mask and the marks.

#include <cstdint>
#include <vector>

#include "base/prompt.h"
#include "bitmap/image_surface.h"
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

// Mask cell of a pixel with alpha that no region has reached yet.
constexpr std::uint32_t kCellUnfilled = 0xFFFFFFFFu;

// Fill modes: edge neighbours only, or diagonal neighbours too.
enum FloodMode : int { kFloodEdges = 0, kFloodDiagonals = 1 };

// Rebuilds the image's mask and marks and, unless `keepTextures`, replaces its textures by the regions
// found. `keyChoice` is -1 until the colour-key question is answered, then 0 (no) or 1 (yes); the
// answer is written back. False when the user cancelled.
bool ApplyDetection(bool keepTextures, WirrelTexImage& image, int imageIndex, WirrelDoc& document,
                    aurel::Prompt& window, SelectionTracker& textureSelection, int& keyChoice,
                    SelectionTracker& imageSelection);

// Decides the colour key (asking when the image's alpha is uniform and `keyChoice` is -1), rebuilds the
// mask and labels its regions, which come back in order of discovery.
void DetectRegions(std::vector<TexRegion>& regions, WirrelTexImage& image, aurel::Prompt& window,
                   int& keyChoice, SelectionTracker& imageSelection, int imageIndex);

// Labels the region of unfilled cells holding (x, y), within the inclusive bounds, by a scanline fill
// over an explicit queue. `rect`, when given, receives the region's inclusive bounding box.
void FloodRegion(std::uint32_t* cells, int strideBytes, int x, int y, int minX, int minY, int maxX, int maxY,
                 std::uint32_t label, TexRegion* rect, int mode);

// Keeps the regions that become textures: at least 4 pixels each way, and not inside another region's
// box. Of two equal boxes the later stays; overlapping boxes both stay.
void FilterRegions(std::vector<TexRegion>& regions);

// The background colour of a sheet: the most frequent pixel word along its border, the lowest word on a
// tie, 0 for an empty image.
std::uint32_t BorderKey(const aurel::ImageSurface& bitmap);

// Pixels whose low 24 bits equal `key` (all 32 bits of it) become transparent, keeping their colour;
// every other pixel becomes opaque.
void ConvertColorKey(aurel::ImageSurface& bitmap, std::uint32_t key);

}  // namespace kovra
