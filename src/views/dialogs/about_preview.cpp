#include "views/dialogs/about_preview.h"

#include <algorithm>
#include <cstring>

#include "anim/playback.h"
#include "settings/theme.h"

namespace kovra {

namespace {

constexpr int kTimerId = 1;
// The figure stands about eight units high, its waving hand above its head; the stage shows ten, a
// little above the origin.
constexpr float kStageUnits = 10.0f;
constexpr float kStageCentreY = -0.5f;

}  // namespace

AboutPreview::AboutPreview(const std::string& figureFile) {
    aurel::SilentPrompt silent;
    std::vector<WirrelImageRecord> images;
    if (!figure_.Load(aurel::DualString(figureFile), silent, images, true)) {
        figure_.Reset(false);
    }
    state_.playing = true;
}

void AboutPreview::OnCreated() {
    SetTimer(kTimerId, kFrameMs);
}

void AboutPreview::OnTimer(int timerId) {
    if (timerId == kTimerId) {
        Step(static_cast<float>(kFrameMs) / 1000.0f);
    }
}

void AboutPreview::Step(float seconds) {
    if (figure_.HasCurrentAnim() && !figure_.CurrentAnim().keys.empty()) {
        Advance(figure_, seconds);
    }
    Redraw();
}

void AboutPreview::OnPaint(aurel::ImageSurface& target) {
    const aurel::Theme& theme = aurel::CurrentTheme();
    const float ratio = static_cast<float>(PixelRatio());
    const WorkspaceTheme look = WorkspaceThemeOf(theme.workspace, ratio);
    WorkingColours colours = WorkingColours::FromTheme(look);
    colours.gridOn = false;
    const int width = ClientWidth();
    const int height = ClientHeight();
    state_.view = ViewTransform::OfClient(width, height);
    state_.view.zoom = static_cast<float>(height) / (kStageUnits * 32.0f);
    state_.view.cameraY = kStageCentreY;
    target.Clear(colours.background);
    if (!PaintWorkspace(figure_, state_, look, colours, DefaultEdgeFade(), buffers_,
                        kLayerBackdrop | kLayerSkins | kLayerBones | kLayerPins)) {
        return;
    }
    const int rows = std::min(height, buffers_.back.Height());
    const int columns = std::min(width, buffers_.back.Width());
    for (int y = 0; y < rows; ++y) {
        std::memcpy(target.Row(y), buffers_.back.Row(y), static_cast<std::size_t>(columns) * 4);
    }
}

}  // namespace kovra
