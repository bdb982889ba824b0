#include "views/gui_texture.h"

#include "gui/file_dialog.h"
#include "settings/theme.h"
#include "textures/image_commands.h"
#include "views/texture/texture_paint.h"

namespace kovra {

namespace win = kestrel2::win;

namespace {

constexpr int kLoadButtonWidth = 60;
constexpr int kLoadButtonHeight = 28;

std::vector<win::FileFilter> ImageFilters() {
    return {
        {"All Files", "*.*"},   {"All Supported Images", "*.bmp;*.png;*.tga;*.jpg;*.jpeg;*.gif;*.pct;*.psd"},
        {"Bmp Files", "*.bmp"}, {"Png Files", "*.png"},
        {"Tga Files", "*.tga"}, {"Jpeg Files", "*.jpg"},
        {"Gif Files", "*.gif"}, {"Pct Files", "*.pct"},
        {"Psd Files", "*.psd"}};
}

}  // namespace

GuiTexture::GuiTexture(WirrelDoc& document, SelectionTracker& texSelection, SelectionTracker& imageSelection,
                       aurel::Prompt& window)
    : document_(document),
      texSelection_(texSelection),
      imageSelection_(imageSelection),
      window_(window),
      input_(document, texSelection, window, state),
      eventListeners(input_.eventListeners),
      commandListeners(input_.commandListeners),
      dragEndListeners(input_.dragEndListeners) {}

void GuiTexture::OnCreated() {
    loadButton_ =
        win::MakeChild<win::GuiButton>(*this, kLoadButtonId, 0, 0, kLoadButtonWidth, kLoadButtonHeight);
    loadButton_->SetText("&Load");
    loadButton_->changeListeners.Add(this, &GuiTexture::Load);
    PlaceLoadButton();
    loadButton_->Show(document_.images.empty());
}

void GuiTexture::Load(int) {
    win::FileDialog dialog(ImageFilters(), 1);
    std::vector<aurel::DualString> files = dialog.Open(this, "Load", true);
    if (files.empty()) {
        return;
    }
    auto load = std::make_shared<CommandImgLoad>(document_, std::move(files), window_, texSelection_,
                                                 imageSelection_, kImgLoadAdd, false);
    if (load->succeeded) {
        commandListeners.Call(std::move(load));
    }
    Redraw();
}

void GuiTexture::OnResize() {
    FitClient();
    UpdateBounds();
    PlaceLoadButton();
    kovra::AddZoom(state.view, state.limits, 0.0f);
}

void GuiTexture::Update() {
    IGuiCustomControl::Update();
    kovra::AddZoom(state.view, state.limits, 0.0f);
}

// At zoom 1 an image pixel covers a layout pixel: on a screen of pixel ratio 2 that is two client
// pixels, so the picture looks the same size on every screen.
void GuiTexture::FitClient() {
    if (ClientWidth() == 0 || ClientHeight() == 0) {
        return;
    }
    const auto ratio = static_cast<float>(PixelRatio());
    state.view.clientWidth = ClientWidth();
    state.view.clientHeight = ClientHeight();
    state.view.viewWidth = static_cast<float>(ClientWidth()) / ratio;
    state.view.viewHeight = static_cast<float>(ClientHeight()) / ratio;
}

void GuiTexture::UpdateBounds() {
    const auto image = document_.Image(state.imageIndex);
    const bool any = image && !image->surface.IsEmpty();
    SetBounds(state, 0.0f, 0.0f, any ? static_cast<float>(image->surface.Width()) : 0.0f,
              any ? static_cast<float>(image->surface.Height()) : 0.0f);
}

void GuiTexture::PlaceLoadButton() {
    if (loadButton_) {
        loadButton_->SetPos((width - kLoadButtonWidth) / 2, (height - kLoadButtonHeight) / 2,
                            kLoadButtonWidth, kLoadButtonHeight);
    }
}

void GuiTexture::OnPaint(aurel::ImageSurface& target) {
    if (state.view.clientWidth != target.Width() || state.view.clientHeight != target.Height()) {
        FitClient();
    }
    // The image on show may have changed size or place since the last frame.
    UpdateBounds();
    kovra::AddZoom(state.view, state.limits, 0.0f);
    if (loadButton_ && loadButton_->IsVisible() != document_.images.empty()) {
        loadButton_->Show(document_.images.empty());
    }
    const TextureTheme theme = TextureThemeOf(aurel::CurrentTheme(), static_cast<float>(PixelRatio()));
    PaintTextureView(target, document_, texSelection_, state, theme);
}

void GuiTexture::OnInput(win::InputEvent& event) {
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

// The grip held, or the one under the mouse, shows which way it sizes; the body moves, another texture
// can be taken.
win::Cursor GuiTexture::OnCursor() {
    if (state.panning || state.rubberBand) {
        return win::Cursor::Arrow;
    }
    const int part = state.dragging ? texSelection_.currentPart : texSelection_.hotPart;
    const bool onCurrent = state.dragging || texSelection_.hotItem == texSelection_.currentItem;
    if (texSelection_.hotItem == -1 && !state.dragging) {
        return win::Cursor::Arrow;
    }
    if (!onCurrent || part < 0) {
        return win::Cursor::Hand;
    }
    switch (part) {
        case kGripTop:
        case kGripBottom:
            return win::Cursor::SizeVertical;
        case kGripLeft:
        case kGripRight:
            return win::Cursor::SizeHorizontal;
        case kGripTopLeft:
        case kGripBottomRight:
            return win::Cursor::SizeDiagonal;
        case kGripTopRight:
        case kGripBottomLeft:
            return win::Cursor::SizeAntiDiagonal;
        default:
            return win::Cursor::SizeAll;
    }
}

void GuiTexture::OnTimer(int timerId) {
    if (timerId == kScrollTimer) {
        input_.OnTimer();
        Redraw();
    }
}

void GuiTexture::OnShow(bool shown) {
    input_.ClearHot();
    IGuiCustomControl::OnShow(shown);
}

void GuiTexture::SetImage(int index) {
    state.imageIndex = index;
    UpdateBounds();
    kovra::AddZoom(state.view, state.limits, 0.0f);
    Redraw();
}

void GuiTexture::ClearForLoad() {
    if (loadButton_) {
        loadButton_->Show(true);
    }
    input_.ClearHot();
    Redraw();
}

void GuiTexture::Pan(float dxPixels, float dyPixels) {
    kovra::Pan(state.view, state.limits, dxPixels, dyPixels);
    Redraw();
}

void GuiTexture::AddZoom(float delta) {
    kovra::AddZoom(state.view, state.limits, delta);
    Redraw();
}

}  // namespace kovra
