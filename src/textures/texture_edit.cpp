#include "textures/texture_edit.h"

#include <vector>

namespace kovra {
namespace {

// Erases the entries for which `doomed(index, entry)` holds and answers each old index's new one, -1 for
// the erased.
template <typename T, typename Pred>
std::vector<int> EraseRenumbered(std::vector<T>& list, Pred doomed) {
    std::vector<int> map(list.size(), -1);
    std::vector<T> kept;
    kept.reserve(list.size());
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!doomed(i, list[i])) {
            map[i] = static_cast<int>(kept.size());
            kept.push_back(list[i]);
        }
    }
    list = std::move(kept);
    return map;
}

// -1 stays -1; an index the map doesn't know is left alone.
void Renumber(std::int32_t& index, const std::vector<int>& map) {
    if (index >= 0 && index < static_cast<std::int32_t>(map.size())) {
        index = map[index];
    }
}

}  // namespace

void RemoveTextures(WirrelDoc& document, const std::set<int>& textures) {
    Wirrel& wirrel = document.Wirrel();
    auto usesSet = [&](std::size_t, const WirrelSkin& skin) { return textures.contains(skin.texture); };
    bool anySkin = false;
    for (const WirrelSkin& skin : wirrel.skins) {
        anySkin = anySkin || usesSet(0, skin);
    }
    if (anySkin) {
        const std::vector<int> skinMap = EraseRenumbered(wirrel.skins, usesSet);
        for (WirrelAnim& anim : wirrel.anims) {
            for (WirrelKey& key : anim.keys) {
                for (WirrelPin& pin : key.pins) {
                    Renumber(pin.skin, skinMap);
                }
            }
        }
    }
    const std::vector<int> textureMap = EraseRenumbered(
        wirrel.textures,
        [&](std::size_t i, const WirrelTexture&) { return textures.contains(static_cast<int>(i)); });
    for (WirrelSkin& skin : wirrel.skins) {
        Renumber(skin.texture, textureMap);
    }
}

}  // namespace kovra
