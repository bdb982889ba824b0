#include "views/gui_frames_list.h"

#include <algorithm>

#include "images/wirrel_tex_image.h"
#include "settings/theme.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_controls.h"

namespace kovra {

namespace win = kestrel2::win;

namespace {

constexpr int kSeparatorWidth = 8;

// Buttons that toggle, and buttons with a second picture for their on state, are check buttons.
win::ToolStyle StyleOf(const TimelineControl& control) {
    return control.kind == ControlKind::Check || control.iconAlt != nullptr ? win::ToolStyle::Check
                                                                            : win::ToolStyle::Button;
}

bool NewGroup(const TimelineControl& before, const TimelineControl& control) {
    return before.kind != control.kind ||
           (before.effect == ControlEffect::LaneHeights) != (control.effect == ControlEffect::LaneHeights);
}

}  // namespace

aurel::ImageSurface LoadThemeIcon(const std::string& file, double ratio) {
    WirrelTexImage image;
    if (image.Load(aurel::ThemeIconPath(file, ratio)) != 0) {
        return {};
    }
    return std::move(image.surface);
}

std::shared_ptr<win::GuiToolbar> MakeControlToolbar(win::IGuiWindow& parent, int id, int x, int y,
                                                    const std::string& section, double ratio) {
    const aurel::ThemeIcons& icons = aurel::CurrentTheme().icons;
    const double pictureRatio = ratio > 1.0 ? 2.0 : 1.0;
    auto toolbar = std::make_shared<win::GuiToolbar>(pictureRatio);
    toolbar->SetLang(section, "");
    int width = 0;
    const TimelineControl* before = nullptr;
    for (const TimelineControl& control : TimelineControls()) {
        if (control.section != section || control.icon == nullptr) {
            continue;
        }
        if (before != nullptr && NewGroup(*before, control)) {
            toolbar->AddSeparator();
            width += kSeparatorWidth;
        }
        win::ToolButton button;
        button.id = control.id;
        button.tooltipKey = control.tooltipKey;
        button.icon = LoadThemeIcon(icons.*control.icon, ratio);
        if (control.iconAlt != nullptr) {
            button.iconAlt = LoadThemeIcon(icons.*control.iconAlt, ratio);
        }
        button.style = StyleOf(control);
        toolbar->AddButton(std::move(button));
        width += win::GuiToolbar::kButtonSize;
        before = &control;
    }
    toolbar->Create(parent, id, x, y, width + 4, win::GuiToolbar::kButtonSize + 1);
    parent.AddChild(toolbar);
    toolbar->ApplyLanguage();
    return toolbar;
}

void GuiFramesList::Build(win::IGuiWindow& panel, int left, double ratio) {
    left_ = left;
    RebuildToolbar(panel, ratio);
    scroll_ = win::MakeChild<win::GuiScrollbar>(panel, kLaneScrollId, 0, 0, kScrollbarHeight, 1, true);
    scroll_->changeListeners.Add(this, &GuiFramesList::OnScroll);
    Refresh();
}

void GuiFramesList::RebuildToolbar(win::IGuiWindow& panel, double ratio) {
    if (toolbar_) {
        panel.RemoveChild(kToolbarId);
    }
    toolbar_ = MakeControlToolbar(panel, kToolbarId, left_, 1, "MICRO", ratio);
    toolbar_->changeListeners.Add(this, &GuiFramesList::OnToolbar);
    toolbar_->IGuiWindow::Show(view_.Extended());
}

void GuiFramesList::Refresh() {
    if (!toolbar_ || !scroll_) {
        return;
    }
    const bool shown = view_.Extended();
    if (toolbar_->IsVisible() != shown) {
        toolbar_->IGuiWindow::Show(shown);
    }
    const TimelineLayout& layout = view_.Layout();
    const int visible = layout.LanesBottom() - layout.LanesTop() + 1;
    const bool scrolls = shown && visible > 0;
    if (scroll_->IsVisible() != scrolls) {
        scroll_->Show(scrolls);
    }
    if (!scrolls) {
        return;
    }
    const int x = layout.Width() - kScrollbarHeight;
    if (scroll_->x != x || scroll_->y != layout.LanesTop() || scroll_->height != visible) {
        scroll_->SetPos(x, layout.LanesTop(), kScrollbarHeight, visible);
    }
    MicroTimeline& micro = view_.Micro();
    const int maximum = std::max(0, micro.TotalHeight() - 1);
    if (scroll_->Maximum() != maximum || scroll_->Page() != visible) {
        scroll_->SetRange(0, maximum);
        scroll_->SetPage(visible);
    }
    if (scroll_->GetPos() != micro.Scroll()) {
        scroll_->SetPos(micro.Scroll());
    }
}

void GuiFramesList::OnToolbar(int id) {
    view_.OnControl(id, 0);
    Refresh();
    if (win::IGuiWindow* panel = toolbar_->Parent()) {
        panel->Redraw();
    }
}

void GuiFramesList::OnScroll(int) {
    view_.Micro().SetScroll(scroll_->GetPos());
    if (win::IGuiWindow* panel = scroll_->Parent()) {
        panel->Redraw();
    }
}

}  // namespace kovra
