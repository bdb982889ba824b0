#pragma once
// Packing rectangles onto pages: a binary tree of free space per page, split as each rectangle is placed,
// with the padding to the right of and below each rectangle. The same input always gives the same
// placements, so the preview and the command agree.

#include <cstdint>
#include <vector>

namespace kovra {

// A rectangle to place or placed; sides are inclusive. Input records have page 0.
struct PackRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    std::int32_t texture = -1;
    std::int32_t page = 0;
    bool operator==(const PackRect&) const = default;
};

// A node of a page's tree; a first child of 0 marks a leaf, since the root is no one's child.
struct PackNode {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    std::int32_t occupant = -1;  // texture index, -1 when free
    std::int32_t spare = 0;      // stays 0
    std::int32_t first = 0;
    std::int32_t second = 0;
};

// Descending area; equal areas keep their order.
void SortPackRects(std::vector<PackRect>& rects);

// Places the sorted input in order, appending one record per placed rectangle to `output`, and answers
// the number of pages. A rectangle wider or higher than the page stops the placing: it and all later
// ones stay unplaced. One that fits on no page, not even an empty one, answers 0.
int PackRects(const std::vector<PackRect>& input, std::vector<PackRect>& output, int pageWidth,
              int pageHeight, int padding);

}  // namespace kovra
