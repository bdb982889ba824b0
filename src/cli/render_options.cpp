#include "cli/render_options.h"

#include <algorithm>
#include <sstream>

#include "cli/subcommand.h"
#include "views/workspace/workspace_camera.h"
#include "views/workspace/workspace_layers.h"
#include "views/workspace/workspace_state.h"

namespace kovra::cli {

namespace {

// Two values around `separator`, each read by `parse`.
template <class T, class Parse>
bool ParsePair(const std::string& text, char separator, Parse parse, T& first, T& second) {
    const std::size_t at = text.find(separator);
    return at != std::string::npos && parse(text.substr(0, at), first) && parse(text.substr(at + 1), second);
}

bool ParseSide(const std::string& text, int& value) {
    return ParseIndex(text, value) && value >= 1 && value <= kMaxRenderSide;
}

// The skin painter blends onto a picture that is opaque in the editor and leaves its alpha alone, so
// that skins on a clear picture come out with their colours over black and no alpha. The alpha is found
// by painting the skins once more over white: where the two pictures differ, the background showed
// through. The colours are then taken back out of the black one.
void MatteOverWhite(const WirrelDoc& doc, const WorkspaceState& state, const WorkspaceTheme& theme,
                    aurel::ImageSurface& overBlack) {
    const int width = overBlack.Width();
    const int height = overBlack.Height();
    aurel::ImageSurface overWhite;
    aurel::ImageSurface pick;
    overWhite.Resize(width, height);
    overWhite.Clear(aurel::Color32(0xFFFFFFFFu));
    pick.Resize(width, height);
    pick.Clear(aurel::Color32(kPickNothing));
    const WorkingColours colours = WorkingColours::FromTheme(theme);
    PaintSkins(overWhite, pick, SkinsOf(FrameInput{doc, state, theme, colours}));
    for (int y = 0; y < height; ++y) {
        std::uint32_t* black = overBlack.Row(y);
        const std::uint32_t* white = overWhite.Row(y);
        for (int x = 0; x < width; ++x) {
            const auto channel = [](std::uint32_t word, int shift) {
                return static_cast<int>((word >> shift) & 0xFF);
            };
            const int alpha = 255 - std::clamp(channel(white[x], 8) - channel(black[x], 8), 0, 255);
            std::uint32_t pixel = static_cast<std::uint32_t>(alpha) << 24;
            for (int shift = 0; alpha > 0 && shift < 24; shift += 8) {
                const int colour = std::min(255, (channel(black[x], shift) * 255 + alpha / 2) / alpha);
                pixel |= static_cast<std::uint32_t>(colour) << shift;
            }
            black[x] = pixel;
        }
    }
}

}  // namespace

bool ParseRenderView(const std::string& size, const std::string& zoom, const std::string& center,
                     RenderView& view) {
    if (!ParsePair(size, 'x', ParseSide, view.width, view.height)) {
        Fail("size " + size + " is not WxH with sides from 1 to " + std::to_string(kMaxRenderSide));
        return false;
    }
    if (!ParseCoordinate(zoom, view.zoom) || view.zoom <= 0.0f) {
        Fail("zoom " + zoom + " is not a positive number");
        return false;
    }
    if (!ParsePair(center, ',', ParseCoordinate, view.centerX, view.centerY)) {
        Fail("center " + center + " is not X,Y");
        return false;
    }
    return true;
}

bool PlaceCursor(WirrelDoc& doc, const std::string& name, float framePos) {
    const int anim = doc.FindAnim(name);
    if (anim < 0) {
        Fail("no animation named \"" + name + "\"");
        return false;
    }
    const WirrelAnim& animation = doc.Wirrel().anims[anim];
    if (framePos < 0.0f || framePos >= static_cast<float>(animation.keys.size())) {
        std::ostringstream message;
        message << "play position " << framePos << " is not within the " << animation.keys.size()
                << " key frames of \"" << name << "\"";
        Fail(message.str());
        return false;
    }
    doc.cursor = PlayCursor{.animIndex = anim,
                            .animName = animation.name,
                            .frameIndex = static_cast<std::uint32_t>(framePos),
                            .framePos = framePos};
    return true;
}

bool PaintFrame(WirrelDoc& doc, const RenderView& view, const WorkspaceTheme& theme, bool skinsOnly,
                WorkspaceBuffers& buffers) {
    WorkspaceState state;
    state.editMode = kModeAnimate;
    state.view = ViewTransform::OfClient(view.width, view.height);
    state.view.zoom = view.zoom;
    SetCamera(state.view, state.limits, view.centerX, view.centerY);
    if (!skinsOnly) {
        return PaintWorkspace(doc, state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(), buffers,
                              kAllLayers & ~kLayerTexts & ~kLayerMarquee);
    }
    // A sprite shows the skins whatever the document's view switches say, and nothing else.
    doc.viewFlags[kViewSkins] = true;
    doc.viewFlags[kViewCollision] = false;
    if (!PaintWorkspace(doc, state, theme, WorkingColours::FromTheme(theme), DefaultEdgeFade(), buffers,
                        kLayerSkins)) {
        return false;
    }
    MatteOverWhite(doc, state, theme, buffers.back);
    return true;
}

}  // namespace kovra::cli
