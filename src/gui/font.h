#pragma once
// A logical font of the window layer: a face, a size and a style. It is what native controls are given
// and what the text drawer renders with.

#include <string>

#include "bitmap/text.h"

namespace kestrel2::win {

struct Font {
    static constexpr int kNormal = 0;
    static constexpr int kBold = 2;

    std::string face = "Segoe UI";
    int size = 12;  // pixel height of a line
    int style = kNormal;

    aurel::TextFont ToTextFont() const { return aurel::TextFont{face, size, style == kBold}; }
    bool operator==(const Font&) const = default;
};

}  // namespace kestrel2::win
