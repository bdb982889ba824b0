#include "views/gui_frames.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "anim/playback.h"
#include "gui/virtual_keys.h"

namespace kovra {

namespace win = kestrel2::win;

namespace {

constexpr int kToolbarId = 2000;
constexpr int kSpeedId = 0x3FD;
constexpr int kSnapId = 0x3F7;
constexpr int kCountId = 0x3F9;
constexpr int kTimeId = 0x3FB;
constexpr int kScrollId = 1000;
constexpr int kZoomId = 0x3E9;
constexpr int kExtendedId = 0x3F4;
constexpr int kDualId = 0x3EC;
constexpr int kRippleId = 0x3EB;
constexpr int kPlayId = 0x3EE;

constexpr int kGap = 4;
constexpr int kEditWidth = 48;
constexpr int kEditTop = 3;
constexpr int kEditHeight = 20;
constexpr int kSnapWidth = 52;
constexpr int kZoomWidth = 100;

// A number as the edits show it: at most four significant digits, no trailing zeros.
std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

}  // namespace

GuiFrames::GuiFrames(WirrelDoc& document, EditorHub& editorHub, SelectionTracker& pinSelection,
                     aurel::Prompt& window)
    : document_(document),
      editorHub_(editorHub),
      view_(document, editorHub, pinSelection, window),
      eventListeners(view_.eventListeners),
      commandListeners(view_.commandListeners),
      dragEndListeners(view_.dragEndListeners),
      eventsDialogListeners(view_.eventsDialogListeners),
      list_(view_) {}

void GuiFrames::OnCreated() {
    BuildControls();
}

void GuiFrames::BuildControls() {
    const double ratio = PixelRatio();
    toolbar_ = MakeControlToolbar(*this, kToolbarId, 2, 1, "TIMELINE", ratio);
    toolbar_->changeListeners.Add(this, &GuiFrames::OnToolbar);
    int x = 2 + toolbar_->width + kGap;
    auto edit = [&](int id, const std::string& tooltip) {
        auto box = win::MakeChild<win::GuiEdit>(*this, id, x, kEditTop, kEditWidth, kEditHeight);
        box->SetLang("TIMELINE", "", tooltip);
        box->changeListeners.Add(this, &GuiFrames::CommitEdit);
        box->keyListeners.Add(this, &GuiFrames::OnEditKey);
        x += kEditWidth + kGap;
        return box;
    };
    speed_ = edit(kSpeedId, "FramesSpeed");
    speed_->SetText(aurel::DualString("100%"));
    snap_ = win::MakeChild<win::GuiComboBox>(*this, kSnapId, x, kEditTop - 1, kSnapWidth, kEditHeight + 2);
    snap_->SetLang("TIMELINE", "", "FramesSnap");
    for (int rate : kSnapRates) {
        snap_->AddString(aurel::DualString(std::to_string(rate)));
    }
    snap_->changeListeners.Add(this, &GuiFrames::OnControl);
    x += kSnapWidth + kGap;
    count_ = edit(kCountId, "FramesCount");
    time_ = edit(kTimeId, "FramesTime");
    zoom_ = win::MakeChild<win::GuiSlider>(*this, kZoomId, x, kEditTop, kZoomWidth, kEditHeight);
    zoom_->SetLang("TIMELINE", "", "FramesZoom");
    zoom_->SetRange(10, 400);
    zoom_->SetTickFrequency(50);
    zoom_->SetPos(100);
    zoom_->changeListeners.Add(this, &GuiFrames::OnControl);
    x += kZoomWidth + kGap;
    scroll_ = win::MakeChild<win::GuiScrollbar>(*this, kScrollId, 0, height - kScrollbarHeight, width,
                                                kScrollbarHeight, false);
    scroll_->SetAnchors(true, false, true, true);
    scroll_->changeListeners.Add(this, &GuiFrames::OnControl);
    list_.Build(*this, x, ratio);
    for (win::IGuiControl* control : std::initializer_list<win::IGuiControl*>{
             speed_.get(), snap_.get(), count_.get(), time_.get(), zoom_.get()}) {
        control->ApplyLanguage();
    }
    RefreshControls();
}

win::GuiEdit* GuiFrames::Edit(int id) const {
    switch (id) {
        case kSpeedId:
            return speed_.get();
        case kCountId:
            return count_.get();
        case kTimeId:
            return time_.get();
        default:
            return nullptr;
    }
}

void GuiFrames::OnResize() {
    view_.SetSize(width, height);
    view_.Sync();
    RefreshControls();
}

void GuiFrames::OnPaint(aurel::ImageSurface& target) {
    view_.SetFocused(HasFocus());
    const int w = width;
    const int h = height;
    view_.SetSize(w, h);
    if (w == target.Width() && h == target.Height()) {
        view_.Paint(target);
    } else if (w > 0 && h > 0) {
        // Each layout pixel is widened to the device pixels it covers.
        if (layoutBuffer_.Width() != w || layoutBuffer_.Height() != h) {
            layoutBuffer_.Resize(w, h);
        }
        view_.Paint(layoutBuffer_);
        std::vector<int> columns(static_cast<std::size_t>(target.Width()));
        for (int x = 0; x < target.Width(); ++x) {
            columns[x] = std::min(w - 1, x * w / target.Width());
        }
        for (int y = 0; y < target.Height(); ++y) {
            const std::uint32_t* from = layoutBuffer_.Row(std::min(h - 1, y * h / target.Height()));
            std::uint32_t* to = target.Row(y);
            for (int x = 0; x < target.Width(); ++x) {
                to[x] = from[columns[x]];
            }
        }
    }
    RefreshControls();
}

void GuiFrames::OnInput(win::InputEvent& event) {
    win::InputEvent scaled = event;
    const double ratio = PixelRatio();
    if (ratio != 1.0) {
        auto down = [ratio](int v) { return static_cast<int>(std::floor(v / ratio)); };
        scaled.x = down(event.x);
        scaled.y = down(event.y);
        scaled.pressX = down(event.pressX);
        scaled.pressY = down(event.pressY);
        scaled.dragX = down(event.dragX);
        scaled.dragY = down(event.dragY);
    }
    if (scaled.button == win::kButtonLeft) {
        if (scaled.type == win::kInputButtonDown || scaled.type == win::kInputDoubleClick) {
            SetTimer(kScrollTimer, kScrollInterval);
        } else if (scaled.type == win::kInputButtonUp) {
            KillTimer(kScrollTimer);
        }
    }
    view_.OnInput(scaled);
    RefreshControls();
    Redraw();
}

void GuiFrames::OnTimer(int timerId) {
    if (timerId == kScrollTimer) {
        view_.OnTimer();
        RefreshControls();
        Redraw();
    }
    IGuiCustomControl::OnTimer(timerId);
}

void GuiFrames::SetExtended(bool on) {
    view_.SetExtended(on);
    view_.Sync();
    RefreshControls();
    Redraw();
}

void GuiFrames::Invalidate() {
    view_.Invalidate();
    Redraw();
}

void GuiFrames::OnThemeChanged() {
    view_.InvalidateStrip();
    if (toolbar_) {
        RemoveChild(kToolbarId);
        toolbar_ = MakeControlToolbar(*this, kToolbarId, 2, 1, "TIMELINE", PixelRatio());
        toolbar_->changeListeners.Add(this, &GuiFrames::OnToolbar);
        list_.RebuildToolbar(*this, PixelRatio());
        RefreshControls();
    }
    Redraw();
}

void GuiFrames::OnToolbar(int id) {
    view_.OnControl(id, toolbar_->GetButtonState(id) ? 1 : 0);
    RefreshControls();
    Redraw();
}

void GuiFrames::OnControl(int id) {
    switch (id) {
        case kSnapId:
            view_.OnControl(id, snap_->GetSel());
            break;
        case kZoomId:
            view_.OnControl(id, zoom_->GetPos());
            break;
        case kScrollId:
            view_.OnControl(id, scroll_->GetPos());
            break;
        default:
            break;
    }
    RefreshControls();
    Redraw();
}

// Enter takes the text, Esc puts back what the edit held; both hand the focus back to the strip, and the
// edit's loss of focus reports the text.
void GuiFrames::OnEditKey(int id, int key) {
    win::GuiEdit* edit = Edit(id);
    if (edit != nullptr && key == win::kVkEscape) {
        edit->SetText(edit->LastAccepted());
    }
    SetFocus();
}

void GuiFrames::CommitEdit(int id) {
    win::GuiEdit* edit = Edit(id);
    if (edit == nullptr) {
        return;
    }
    const std::string text = edit->GetText().Utf8();
    if (text == edit->LastAccepted().Utf8()) {
        return;
    }
    if (id == kSpeedId) {
        view_.SetSpeedText(text);
    } else {
        char* end = nullptr;
        const float value = std::strtof(text.c_str(), &end);
        if (end != text.c_str() && std::isfinite(value)) {
            if (id == kCountId) {
                view_.SetFrameCount(value);
            } else {
                view_.SetTotalTime(value);
            }
        }
    }
    Redraw();
}

void GuiFrames::ShowEditText(win::GuiEdit* edit, const std::string& text) {
    if (edit != nullptr && !edit->HasFocus() && edit->GetText().Utf8() != text) {
        edit->SetText(aurel::DualString(text));
    }
}

void GuiFrames::RefreshControls() {
    if (!toolbar_) {
        return;
    }
    view_.Sync();
    if (toolbar_->GetButtonState(kExtendedId) != view_.Extended()) {
        toolbar_->SetButtonState(kExtendedId, view_.Extended());
    }
    if (toolbar_->GetButtonState(kRippleId) != view_.RippleMode()) {
        toolbar_->SetButtonState(kRippleId, view_.RippleMode());
    }
    if (toolbar_->GetButtonState(kPlayId) != editorHub_.IsPlaying()) {
        toolbar_->SetButtonState(kPlayId, editorHub_.IsPlaying());
    }
    // The placeholder's check never stays on.
    if (toolbar_->GetButtonState(kDualId)) {
        toolbar_->SetButtonState(kDualId, false);
    }
    const FrameStrip& strip = view_.Strip();
    if (document_.HasCurrentAnim()) {
        ShowEditText(speed_.get(), Number(std::round(document_.CurrentAnim().speed * 1000.0) / 10.0) + "%");
        ShowEditText(count_.get(), std::to_string(std::max(0, strip.LastCell())));
        ShowEditText(time_.get(),
                     Number(static_cast<double>(strip.TotalTicks()) / std::max(1u, strip.TicksPerSecond())));
    }
    if (snap_->GetSel() != static_cast<int>(document_.snapFrames)) {
        snap_->SetSel(static_cast<int>(document_.snapFrames));
    }
    const TimelineLayout& layout = view_.Layout();
    const int maximum = std::max(0, layout.ContentWidth() - 1);
    const int page = std::max(1, layout.Width() - layout.ClipLeft());
    if (scroll_->Maximum() != maximum || scroll_->Page() != page) {
        scroll_->SetRange(0, maximum);
        scroll_->SetPage(page);
    }
    if (scroll_->GetPos() != view_.ViewLeft()) {
        scroll_->SetPos(view_.ViewLeft());
    }
    list_.Refresh();
}

}  // namespace kovra
