#include "doc/image_extents.h"

#include <algorithm>

namespace kovra {

namespace {

void Grow(const WirrelTexture& texture, int& maxX, int& maxY) {
    maxX = std::max(maxX, texture.x + texture.width);
    maxY = std::max(maxY, texture.y + texture.height);
}

}  // namespace

bool TextureExtents(const Wirrel& wirrel, int image, int& maxX, int& maxY) {
    maxX = 0;
    maxY = 0;
    bool found = false;
    for (const WirrelTexture& texture : wirrel.textures) {
        if (texture.imageIndex == image) {
            Grow(texture, maxX, maxY);
            found = true;
        }
    }
    return found;
}

bool SkinExtents(const Wirrel& wirrel, int image, int& maxX, int& maxY) {
    maxX = 0;
    maxY = 0;
    bool found = false;
    for (const WirrelSkin& skin : wirrel.skins) {
        if (skin.texture < 0 || skin.texture >= static_cast<int>(wirrel.textures.size())) {
            continue;
        }
        const WirrelTexture& texture = wirrel.textures[skin.texture];
        if (texture.imageIndex == image) {
            Grow(texture, maxX, maxY);
            found = true;
        }
    }
    return found;
}

}  // namespace kovra
