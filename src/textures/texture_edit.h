#pragma once
// The one routine that deletes textures: skins that used them are erased, and what is left of the skins
// and the textures is renumbered in place, in key frames and skins alike.

#include <set>

#include "doc/wirrel_doc.h"

namespace kovra {

void RemoveTextures(WirrelDoc& document, const std::set<int>& textures);

}  // namespace kovra
