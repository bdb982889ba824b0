// The lanes of the extended view: the name column with the eye and the pin's name, the lane's band,
// and the items with their envelopes. The items painted are the items hit by the next mouse move.

#include <algorithm>
#include <cmath>

#include "settings/theme.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/timeline_paint.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

namespace {

aurel::TextStyle LeftMiddle() {
    aurel::TextStyle style;
    style.vertical = aurel::TextAlign::Centre;
    return style;
}

aurel::Color32 Darker(aurel::Color32 c) {
    auto down = [](std::uint8_t v) { return static_cast<std::uint8_t>(v > 0x20 ? v - 0x20 : 0); };
    return aurel::Color32(down(c.R()), down(c.G()), down(c.B()), c.A());
}

}  // namespace

float MicroTimeline::XOfTicks(std::uint64_t ticks, const FrameStrip& strip) const {
    const TimelineLayout& layout = owner_.Layout();
    const double pixelsPerSecond = static_cast<double>(layout.Pitch()) * strip.Rate();
    return static_cast<float>(
        std::round(pixelsPerSecond * static_cast<double>(ticks) / strip.TicksPerSecond()) + layout.Origin());
}

void MicroTimeline::IndexPins(const std::vector<WirrelKey>& frames) {
    const auto ids = static_cast<int>(doc_.Wirrel().pinNames.size());
    pinIndices_.resize(frames.size());
    for (std::size_t f = 0; f < frames.size(); ++f) {
        std::vector<int>& at = pinIndices_[f];
        at.assign(static_cast<std::size_t>(ids), -1);
        for (std::size_t i = 0; i < frames[f].pins.size(); ++i) {
            const std::int32_t id = frames[f].pins[i].id;
            if (id >= 0 && id < ids && at[id] < 0) {
                at[id] = static_cast<int>(i);
            }
        }
    }
}

void MicroTimeline::BuildItems(const std::vector<WirrelKey>& frames, const FrameStrip& strip) {
    items_.clear();
    laneItems_.assign(1, 0);
    const int pins = PinCount();
    if (frames.empty()) {
        laneItems_.assign(static_cast<std::size_t>(pins) + 1, 0);
        return;
    }
    IndexPins(frames);
    std::vector<std::uint64_t> starts{0};
    for (const WirrelKey& key : frames) {
        starts.push_back(starts.back() + key.ticks);
    }
    const int count = static_cast<int>(frames.size());
    const auto indexOf = [&](int frame, std::int32_t id) {
        const std::vector<int>& at = pinIndices_[frame];
        return id >= 0 && id < static_cast<int>(at.size()) ? at[id] : -1;
    };
    for (int lane = 0; lane < pins; ++lane) {
        const int pin = pins - 1 - lane;
        const std::int32_t id = doc_.CurrentKey().pins[pin].id;
        const int top = LaneTop(lane);
        int first = 0;
        for (int i = 1; i <= count; ++i) {
            if (i < count) {
                const int at = indexOf(i, id);
                if (at >= 0 && (frames[i].pins[at].flags & kPinTweened) != 0) {
                    continue;
                }
            }
            const int before = indexOf(i - 1, id);
            if (before < 0 || (frames[i - 1].pins[before].flags & kPinHidden) == 0) {
                items_.push_back(MicroItem{XOfTicks(starts[first], strip), static_cast<float>(top + 2),
                                           XOfTicks(starts[i], strip) - 1.0f,
                                           static_cast<float>(top + laneHeights_[lane] - 3), pin, first, i});
            }
            first = i;
        }
        laneItems_.push_back(static_cast<int>(items_.size()));
    }
}

void MicroTimeline::Paint(aurel::ImageSurface& target, const FrameStrip& strip) {
    FitLanes();
    const std::vector<WirrelKey>& frames = activeAction_ == kMicroDragKey ? frames_ : strip.Frames();
    BuildItems(frames, strip);
    const TimelineLayout& layout = owner_.Layout();
    const aurel::ThemeTimeline& t = aurel::CurrentTheme().timeline;
    const int height = layout.LanesBottom() - layout.LanesTop() + 1;
    if (height <= 0) {
        return;
    }
    // Lanes are drawn into a band of their own, so that nothing spills over the ruler or the strip.
    if (band_.Width() != target.Width() || band_.Height() != height) {
        band_.Resize(target.Width(), height);
    }
    band_.Clear(t.microBgColor);
    for (int lane = 0; lane < static_cast<int>(laneHeights_.size()); ++lane) {
        PaintLane(band_, lane, LaneTop(lane) - layout.LanesTop());
    }
    band_.DrawLine(kNameColumnWidth - 1, 0, kNameColumnWidth - 1, height - 1, t.microBorder);
    for (int y = 0; y < height; ++y) {
        std::copy_n(band_.Row(y), band_.Width(), target.Row(layout.LanesTop() + y));
    }
}

void MicroTimeline::PaintHover(aurel::ImageSurface& target) const {
    if (hoverItem_ < 0 || hoverItem_ >= static_cast<int>(items_.size()) ||
        (hoverAction_ != kMicroDragKey && activeAction_ != kMicroDragKey)) {
        return;
    }
    const MicroItem& item = items_[hoverItem_];
    const TimelineLayout& layout = owner_.Layout();
    const int left = std::max(kNameColumnWidth, static_cast<int>(item.left));
    const int x = dragSourceFrame_ == item.firstFrame ? left : static_cast<int>(item.right);
    const int top = std::max(layout.LanesTop(), static_cast<int>(item.top));
    const int bottom = std::min(layout.LanesBottom(), static_cast<int>(item.bottom));
    if (top <= bottom) {
        target.FillRect(std::max(kNameColumnWidth, x - 2), top, x + 2, bottom,
                        aurel::CurrentTheme().timeline.frameSelColor);
    }
}

void MicroTimeline::PaintLane(aurel::ImageSurface& s, int lane, int top) {
    const aurel::Theme& theme = aurel::CurrentTheme();
    const aurel::ThemeTimeline& t = theme.timeline;
    const int height = laneHeights_[lane];
    if (top + height < 0 || top >= s.Height()) {
        return;
    }
    const int pin = PinCount() - 1 - lane;
    const WirrelPin& record = doc_.CurrentKey().pins[pin];
    const int bottom = top + height - 1;
    if (selection_.IsSelected(pin)) {
        s.FillRect(0, top, kNameColumnWidth - 2, top + kMinLaneHeight - 1, t.microColor1);
    }
    // The eye: an open circle when the pin shows in this frame, a bar when it is hidden.
    const float eyeY = static_cast<float>(top) + 9.5f;
    if ((record.flags & kPinHidden) == 0) {
        s.DrawCircle(12.0f, eyeY, 4.0f, t.rulerTextColor);
        s.FillCircle(12.0f, eyeY, 1.5f, t.rulerTextColor);
    } else {
        s.DrawLine(7, top + 9, 17, top + 9, t.rulerTextColor);
    }
    const auto& names = doc_.Wirrel().pinNames;
    if (record.id >= 0 && record.id < static_cast<int>(names.size())) {
        const aurel::FontInfo& f = t.rulerTextFont;
        s.DrawText(std::string(NameOf(names[record.id])), 37, top, kNameColumnWidth - 40, kMinLaneHeight,
                   t.rulerTextColor, aurel::TextFont{f.face, f.height, f.bold, f.italic, f.underline},
                   LeftMiddle());
    }
    s.FillRect(kNameColumnWidth, top, s.Width() - 1, bottom, lane % 2 == 1 ? t.microColor1 : t.microColor2);
    const int current = static_cast<int>(doc_.cursor.frameIndex);
    for (int i = laneItems_[lane]; i < laneItems_[lane + 1]; ++i) {
        const MicroItem& item = items_[i];
        // Items wholly outside the time area are skipped: a long animation has most of them there.
        if (item.right < static_cast<float>(kNameColumnWidth) || item.left >= static_cast<float>(s.Width())) {
            continue;
        }
        const std::vector<int>& at = pinIndices_[item.firstFrame];
        const int pinAt = record.id >= 0 && record.id < static_cast<int>(at.size()) ? at[record.id] : -1;
        const bool diffZ = pinAt >= 0 && pinAt != pin;
        const aurel::Color32 c = diffZ ? t.microItemDiffZ : (lane % 2 == 1 ? t.microItem2 : t.microItem1);
        const int left = std::max(kNameColumnWidth, static_cast<int>(item.left));
        const int right = static_cast<int>(item.right);
        const int itemTop = top + 2;
        const int itemBottom = bottom - 2;
        if (right <= left) {
            continue;
        }
        FillGradient(s, left, itemTop, right, itemBottom, c, Darker(c));
        const auto w = static_cast<float>(right - left + 1);
        const auto h = static_cast<float>(itemBottom - itemTop + 1);
        s.DrawRoundRect(static_cast<float>(left), static_cast<float>(itemTop), w, h, 4.0f, Darker(c), 1.0f,
                        true);
        if (selection_.IsSelected(pin) && current >= item.firstFrame && current < item.lastFrame) {
            s.FillRect(left + 1, itemTop + 1, right - 1, itemBottom - 1, t.microItemSelOverlay);
        }
        // The envelope: the tween's progress over the item, linear from the lower left to the upper right.
        const float base = static_cast<float>(itemBottom - 5);
        s.DrawLineF(static_cast<float>(left), base, static_cast<float>(right),
                    static_cast<float>(itemTop + 2), diffZ ? t.microEnvDiffZ : t.microEnv, 1.0f, true);
    }
    s.DrawLine(0, bottom, s.Width() - 1, bottom, t.microBorder);
}

}  // namespace kovra
