#pragma once
// Pictures for drawing tests: a bitmap written as a PNG file (8-bit RGBA, stored without compression, so
// the same pixels always give the same bytes), and a check of a bitmap against a reference picture kept in
// tests/data, byte for byte. With KOVRA_UPDATE_REFERENCES set in the environment the check writes the
// reference instead; on a mismatch it leaves the picture drawn in the temporary folder, as
// kovra-NAME.actual.png.

#include <gtest/gtest.h>

#include <string>

#include "bitmap/bitmap.h"

namespace kovra::test {

std::string EncodePng(const aurel::IBitmap& bitmap);

// `name` is a path under tests/data without the ".png", such as "bitmap/blit_mirror".
::testing::AssertionResult MatchesReference(const aurel::IBitmap& bitmap, const std::string& name);

}  // namespace kovra::test
