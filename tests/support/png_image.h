#pragma once
// Pictures for drawing tests: a check of a bitmap against a reference picture kept in tests/data as a
// PNG file, pixel for pixel, read and written through the image layer. With KOVRA_UPDATE_REFERENCES set
// in the environment the check writes the reference instead; on a mismatch it leaves the picture drawn
// in the temporary folder, as kovra-NAME.actual.png.

#include <gtest/gtest.h>

#include <string>

#include "bitmap/bitmap.h"

namespace kovra::test {

// `name` is a path under tests/data without the ".png", such as "bitmap/blit_mirror".
::testing::AssertionResult MatchesReference(const aurel::IBitmap& bitmap, const std::string& name);

}  // namespace kovra::test
