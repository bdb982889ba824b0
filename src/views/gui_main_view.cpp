#include "views/gui_main_view.h"

#include "settings/theme.h"

namespace kovra {

GuiMainView::GuiMainView(WirrelDoc& document, EditorHub& editorHub, aurel::Prompt& window)
    : document_(document),
      editorHub_(editorHub),
      edgeFade_(DefaultEdgeFade()),
      input_(document, editorHub, window, state, buffers_),
      eventListeners(input_.eventListeners),
      commandListeners(input_.commandListeners),
      dragEndListeners(input_.dragEndListeners) {}

void GuiMainView::OnResize() {
    ResizeView(state.view, ClientWidth(), ClientHeight());
}

void GuiMainView::OnPaint(aurel::ImageSurface& target) {
    if (state.view.clientWidth != target.Width() || state.view.clientHeight != target.Height()) {
        ResizeView(state.view, target.Width(), target.Height());
    }
    const auto ratio = static_cast<float>(PixelRatio());
    const WorkspaceTheme theme = WorkspaceThemeOf(aurel::CurrentTheme().workspace, ratio);
    input_.SetPinRadius(theme.pinRadSm);
    // The frame is painted straight into the control's back buffer.
    buffers_.back.Attach(target);
    PaintWorkspace(document_, state, theme, WorkingColours::FromHub(editorHub_), edgeFade_, buffers_);
}

void GuiMainView::OnInput(kestrel2::win::InputEvent& event) {
    const bool timerWasOn = state.scrollTimer;
    input_.OnInput(event);
    if (state.scrollTimer != timerWasOn) {
        if (state.scrollTimer) {
            SetTimer(kScrollTimer, kScrollInterval);
        } else {
            KillTimer(kScrollTimer);
        }
    }
    Redraw();
}

kestrel2::win::Cursor GuiMainView::OnCursor() {
    return input_.WantsHandCursor() ? kestrel2::win::Cursor::Hand : kestrel2::win::Cursor::Arrow;
}

void GuiMainView::OnTimer(int timerId) {
    if (timerId == kScrollTimer && state.marquee) {
        input_.OnTimer();
        Redraw();
    }
}

void GuiMainView::OnShow(bool shown) {
    state.pinSelection.SetHot(-1, 0);
    IGuiCustomControl::OnShow(shown);
}

void GuiMainView::SetEditMode(int mode) {
    input_.SetEditMode(mode);
    Redraw();
}

void GuiMainView::SetSkinTool(int tool) {
    state.skinTool = tool;
    Redraw();
}

void GuiMainView::SetPlaying(bool playing) {
    state.playing = playing;
    Redraw();
}

void GuiMainView::Pan(float dxPixels, float dyPixels) {
    kovra::Pan(state.view, state.limits, dxPixels, dyPixels);
    Redraw();
}

void GuiMainView::SetCamera(float x, float y) {
    kovra::SetCamera(state.view, state.limits, x, y);
    Redraw();
}

void GuiMainView::AddZoom(float delta) {
    kovra::AddZoom(state.view, state.limits, delta);
    Redraw();
}

void GuiMainView::ResetView() {
    kovra::ResetView(state.view, state.limits);
    Redraw();
}

void GuiMainView::ClearSelections() {
    input_.ClearSelections();
    Redraw();
}

void GuiMainView::Refresh() {
    // Before the first size the view has no pixels to place pins on.
    if (state.view.clientWidth <= 0 || state.view.clientHeight <= 0) {
        return;
    }
    if (!input_.PoseStep()) {
        state.pose.clear();
        state.view.pinPixels.clear();
        state.skinHandles.clear();
        state.gripPins.clear();
    }
    Redraw();
}

void GuiMainView::PressKey(std::uint8_t key) {
    kestrel2::win::InputEvent event;
    event.key = key;
    event.keys[key] = 1;
    event.x = state.mouseX;
    event.y = state.mouseY;
    event.type = kestrel2::win::kInputKeyDown;
    OnInput(event);
    event.keys[key] = 0;
    event.type = kestrel2::win::kInputKeyUp;
    OnInput(event);
}

void GuiMainView::SetPaletteSkin(const WirrelSkin* skin) {
    state.hasPaletteSkin = skin != nullptr;
    state.paletteSkin = skin != nullptr ? *skin : WirrelSkin{};
}

}  // namespace kovra
