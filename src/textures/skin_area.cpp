#include "textures/skin_area.h"

#include <algorithm>
#include <array>
#include <utility>

#include "doc/skins.h"

namespace kovra {
namespace {

float Dot(PinPoint a, PinPoint b) {
    return a.x * b.x + a.y * b.y;
}

// Whether the projections of the quad's corners and of the box's onto `axis` overlap.
bool OverlapOn(PinPoint axis, const std::array<PinPoint, 4>& quad, const PixelBox& box) {
    const std::array<PinPoint, 4> boxCorners{
        {{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}}};
    auto range = [&](const std::array<PinPoint, 4>& points) {
        float low = Dot(points[0], axis);
        float high = low;
        for (const PinPoint& point : points) {
            low = std::min(low, Dot(point, axis));
            high = std::max(high, Dot(point, axis));
        }
        return std::make_pair(low, high);
    };
    const auto [quadLow, quadHigh] = range(quad);
    const auto [boxLow, boxHigh] = range(boxCorners);
    return quadHigh >= boxLow && boxHigh >= quadLow;
}

// Whether any pixel of the quad's picture falls on the box's outline: the quad drawn into a strip along
// each of the box's four sides.
bool OutlineTouched(const aurel::ImageSurface& source, float sx, float sy, float sw, float sh,
                    const std::array<PinPoint, 4>& quad, const PixelBox& box) {
    aurel::ImageSurface row;
    aurel::ImageSurface column;
    row.Resize(static_cast<int>(box.right - box.left) + 1, 1);
    column.Resize(1, static_cast<int>(box.bottom - box.top) + 1);
    auto draw = [&](aurel::ImageSurface& strip, float x, float y) {
        std::array<float, 8> corners{};
        for (std::size_t i = 0; i < 4; ++i) {
            corners[i * 2] = quad[i].x - x;
            corners[i * 2 + 1] = quad[i].y - y;
        }
        source.DrawQuad(sx, sy, sw, sh, strip, corners, 1.0f, 0);
    };
    draw(row, box.left, box.top);
    draw(row, box.left, box.bottom);
    draw(column, box.left, box.top);
    draw(column, box.right, box.top);
    for (const aurel::ImageSurface* strip : {&row, &column}) {
        for (int y = 0; y < strip->Height(); ++y) {
            const std::uint32_t* pixels = strip->Row(y);
            if (std::any_of(pixels, pixels + strip->Width(), [](std::uint32_t word) { return word != 0; })) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

bool SkinInBox(const WirrelDoc& doc, const Pose& pose, const ViewTransform& view, std::size_t index,
               const PixelBox& box) {
    const Wirrel& wirrel = doc.Wirrel();
    const WirrelPin& pin = pose[index];
    if (pin.skin < 0 || pin.skin >= static_cast<int>(wirrel.skins.size())) {
        return false;
    }
    const WirrelSkin& skin = wirrel.skins[pin.skin];
    if (skin.texture < 0 || skin.texture >= static_cast<int>(wirrel.textures.size())) {
        return false;
    }
    const WirrelTexture& texture = wirrel.textures[skin.texture];
    const PinPixel& at = view.pinPixels[index];
    PinPoint parent{};
    if (pin.parent >= 0 && static_cast<std::size_t>(pin.parent) < view.pinPixels.size()) {
        parent = {view.pinPixels[pin.parent].x, view.pinPixels[pin.parent].y};
    }
    // Built from pixel positions, the quad's axes carry the pixels a unit.
    const SkinQuad q = MakeSkinQuad(pin, {at.x, at.y}, parent, skin, texture, wirrel.pixelsPerUnit);
    auto corner = [&](float along, float across) {
        return PinPoint{q.centre.x + q.axis.x * q.halfWidth * along + q.normal.x * q.halfHeight * across,
                        q.centre.y + q.axis.y * q.halfWidth * along + q.normal.y * q.halfHeight * across};
    };
    const std::array<PinPoint, 4> quad{corner(-1, -1), corner(1, -1), corner(1, 1), corner(-1, 1)};
    float minX = quad[0].x, maxX = quad[0].x, minY = quad[0].y, maxY = quad[0].y;
    for (const PinPoint& c : quad) {
        minX = std::min(minX, c.x);
        maxX = std::max(maxX, c.x);
        minY = std::min(minY, c.y);
        maxY = std::max(maxY, c.y);
    }
    const PinPoint along{quad[1].x - quad[0].x, quad[1].y - quad[0].y};
    const PinPoint across{quad[3].x - quad[0].x, quad[3].y - quad[0].y};
    if (maxX < box.left || minX > box.right || maxY < box.top || minY > box.bottom ||
        !OverlapOn(along, quad, box) || !OverlapOn(across, quad, box)) {
        return false;
    }
    const auto image = doc.Image(texture.imageIndex);
    if (image == nullptr || image->surface.IsEmpty()) {
        const aurel::ImageSurface& missing = doc.missingTextureImage;
        return OutlineTouched(missing, 0, 0, static_cast<float>(missing.Width()),
                              static_cast<float>(missing.Height()), quad, box);
    }
    if (const auto marks = image->marks.find(skin.texture); marks != image->marks.end()) {
        for (const auto& [u, v] : marks->second) {
            const float x = quad[0].x + along.x * u + across.x * v;
            const float y = quad[0].y + along.y * u + across.y * v;
            if (x >= box.left && x <= box.right && y >= box.top && y <= box.bottom) {
                return true;
            }
        }
    }
    return OutlineTouched(image->surface, static_cast<float>(texture.x), static_cast<float>(texture.y),
                          static_cast<float>(texture.width), static_cast<float>(texture.height), quad, box);
}

}  // namespace kovra
