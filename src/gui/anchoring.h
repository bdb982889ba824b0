#pragma once
// How a child follows its parent's size. A child remembers its distances to the parent's right and
// bottom edges when it is anchored; at each size change of the parent it keeps those distances on the
// sides it is anchored to. Sizes may go to zero or below: nothing is clamped here.

namespace kestrel2::win {

struct Anchors {
    bool left = false;
    bool top = false;
    bool right = false;
    bool bottom = false;
};

struct Box {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const Box&) const = default;
};

struct Margins {
    int right = 0;
    int bottom = 0;
};

// The distances from the child's far edges to the parent's.
Margins MeasureMargins(const Box& child, int parentWidth, int parentHeight);

// Right anchored alone: the child moves to keep its right margin. Left and right: it stretches. The
// same vertically with top, bottom and the bottom margin. Otherwise it stays.
Box AnchorBox(const Box& child, const Anchors& anchors, const Margins& margins, int parentWidth,
              int parentHeight);

}  // namespace kestrel2::win
