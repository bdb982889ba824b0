#pragma once
// Icons of native controls, made from surfaces the program loaded: the pictures stay in the program's own
// pixel format until a control shows them.

#include "bitmap/image_surface.h"

class QIcon;

namespace kestrel2::win {

// An icon of the picture, and of `checked` for the on state of a checkable control when it isn't empty.
// `ratio` is the pictures' pixels per layout pixel (2 for pictures drawn for a doubled screen).
QIcon MakeIcon(const aurel::ImageSurface& picture, const aurel::ImageSurface& checked, double ratio);

}  // namespace kestrel2::win
