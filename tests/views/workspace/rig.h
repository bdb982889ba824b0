#pragma once
// Documents for the workspace tests: pins placed by world position, 8 x 8 textures on an in-memory image
// at 8 pixels a unit, and a view state of a small client at half zoom (16 pixels a unit).

#include <cmath>
#include <memory>
#include <string>

#include "bitmap/pictures.h"
#include "doc/wirrel_doc.h"
#include "views/workspace/workspace_state.h"

namespace kovra::test {

class Rig {
public:
    Rig() {
        doc.Reset(true);
        doc.Wirrel().pixelsPerUnit = 8;
        auto image = std::make_shared<WirrelTexImage>();
        image->surface.Resize(16, 8);
        const aurel::ImageSurface texture = Texture();
        texture.Blit(0, 0, 8, 8, image->surface, 0, 0, 8, 8, 1.0f, false);
        // The second texture: a solid blue square with a clear corner.
        for (int y = 0; y < 8; ++y) {
            for (int x = 8; x < 16; ++x) {
                image->surface.Row(y)[x] = x > 13 && y < 2 ? 0u : 0xFF3050E0u;
            }
        }
        doc.SetImage(-1, image);
        doc.Wirrel().textures = {WirrelTexture{0, 0, 0, 8, 8}, WirrelTexture{0, 8, 0, 8, 8}};
        state.view = ViewTransform::OfClient(64, 48);
        state.view.zoom = 0.5f;
    }

    // A pin at world (x, y) under `parent` (-1: a root); answers its index.
    int Pin(int parent, float x, float y, PinType type = Bone) {
        float px = 0.0f;
        float py = 0.0f;
        if (parent >= 0) {
            std::vector<WorldPoint> world;
            PinPositions(doc.CurrentKey(), world);
            px = world[parent].x;
            py = world[parent].y;
        }
        const float angle = NormalizeAngle(std::atan2(y - py, x - px));
        const int index =
            doc.AddPin(angle, std::hypot(x - px, y - py), parent, "P" + std::to_string(parent + 1));
        if (parent >= 0) {
            Record(index).SetType(type);
        }
        return index;
    }

    WirrelPin& Record(int pin) { return doc.CurrentKey().pins[pin]; }

    // Hangs texture `texture` on the pin with the skin values given.
    void Skin(int pin, int texture, WirrelSkin skin = {}) {
        skin.texture = texture;
        doc.Wirrel().skins.push_back(skin);
        Record(pin).skin = static_cast<int>(doc.Wirrel().skins.size() - 1);
    }

    WirrelDoc doc;
    WorkspaceState state;
};

}  // namespace kovra::test
