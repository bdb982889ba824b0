#pragma once
// Truncation checks for the formats whose decoder makes up the rest of a picture when its data runs
// out, without saying so: a JPEG file must reach its end-of-image marker, and a PSD file must hold all
// of its merged image data. Every chunk of a PNG file must fit within it, since the decoder sets aside
// what a chunk claims before reading it. Other formats are left to their decoders.

#include <cstddef>
#include <cstdint>

namespace kovra {

// False when the bytes, of the library's format number `format`, visibly end early.
bool LooksComplete(int format, const std::uint8_t* bytes, std::size_t size);

}  // namespace kovra
