#include "support/png_image.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "images/wirrel_tex_image.h"
#include "support/image_library.h"

namespace kovra::test {

namespace {

WirrelTexImage Copy(const aurel::IBitmap& bitmap) {
    WirrelTexImage image;
    image.surface.Resize(bitmap.getWidth(), bitmap.getHeight());
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        std::memcpy(image.surface.Row(y), bitmap.Row(y), static_cast<std::size_t>(bitmap.getWidth()) * 4);
    }
    return image;
}

bool SamePixels(const aurel::IBitmap& bitmap, const aurel::ImageSurface& surface) {
    if (bitmap.getWidth() != surface.Width() || bitmap.getHeight() != surface.Height()) {
        return false;
    }
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        if (std::memcmp(bitmap.Row(y), surface.Row(y), static_cast<std::size_t>(bitmap.getWidth()) * 4) !=
            0) {
            return false;
        }
    }
    return true;
}

}  // namespace

::testing::AssertionResult MatchesReference(const aurel::IBitmap& bitmap, const std::string& name) {
    StartImageLibrary();
    const std::filesystem::path reference = std::filesystem::path(KOVRA_TEST_DATA) / (name + ".png");
    if (std::getenv("KOVRA_UPDATE_REFERENCES")) {
        std::filesystem::create_directories(reference.parent_path());
        return Copy(bitmap).Save(reference.string())
                   ? ::testing::AssertionSuccess()
                   : ::testing::AssertionFailure() << "can't write " << reference;
    }
    WirrelTexImage expected;
    if (expected.Load(reference.string()) == 0 && SamePixels(bitmap, expected.surface)) {
        return ::testing::AssertionSuccess();
    }
    const std::filesystem::path actual =
        std::filesystem::temp_directory_path() /
        ("kovra-" + std::filesystem::path(name).filename().string() + ".actual.png");
    Copy(bitmap).Save(actual.string());
    return ::testing::AssertionFailure()
           << "the drawing differs from " << reference << "; it is in " << actual;
}

}  // namespace kovra::test
