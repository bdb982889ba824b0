#pragma once
// The one routine that deletes textures: skins that used them lose their texture, later skin and mark
// references are renumbered.

#include <set>

#include "doc/wirrel_doc.h"

namespace kovra {

void RemoveTextures(WirrelDoc& document, const std::set<int>& textures);

}  // namespace kovra
