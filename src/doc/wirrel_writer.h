#pragma once
// The .ske writer: the bytes of a whole document file, in the order and with the chunk versions that
// every reader of the format expects: the head, chunks 8, 4, 6, 7, 10, 9, the editor chunk 5, and the
// end chunk.

#include <cstdint>
#include <vector>

#include "doc/wirrel.h"
#include "doc/wirrel_file.h"

namespace kovra {

// `images` hold the paths as they are to be stored, relative to the file. A text longer than its field
// allows (only the notes can be) is cut there, so that the file always reads back.
std::vector<std::uint8_t> WriteWirrel(const Wirrel& wirrel, const std::vector<WirrelImageRecord>& images,
                                      const WirrelEditorData& editor);

}  // namespace kovra
