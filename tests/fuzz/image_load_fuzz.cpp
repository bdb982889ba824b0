// Feeds arbitrary bytes to the image layer's memory load, with the resource limits the program runs with.
// Whatever the bytes, the load must end without touching memory it doesn't own; a picture that loads
// comes back with pixels, and written as PNG it reads back to the same pixels.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "images/vyl_lib.h"
#include "images/wirrel_tex_image.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    kovra::VylLibInit();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kovra::WirrelTexImage image;
    const bool loaded = image.LoadMemory(data, size);
    if (loaded == image.surface.IsEmpty()) {
        __builtin_trap();
    }
    if (!loaded) {
        return 0;
    }
    std::vector<std::uint8_t> png(image.surface.ByteSize() * 2 + 4096);
    const std::uint32_t written = image.SaveMemory(png.data(), static_cast<std::uint32_t>(png.size()));
    kovra::WirrelTexImage back;
    if (written == 0 || !back.LoadMemory(png.data(), written) ||
        back.surface.ByteSize() != image.surface.ByteSize() ||
        std::memcmp(back.surface.Row(0), image.surface.Row(0), image.surface.ByteSize()) != 0) {
        __builtin_trap();
    }
    return 0;
}
