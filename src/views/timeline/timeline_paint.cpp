// The timeline's frame: the static part (bands, ruler, cells) kept in a private bitmap and redrawn only
// when the cells change, then the lanes, the playhead, hover, the dragged key, the current cell and the
// end marker on top of the copy.

#include <algorithm>
#include <string>

#include "settings/theme.h"
#include "views/timeline/frame_edits.h"
#include "views/timeline/micro_timeline.h"
#include "views/timeline/thumbnail.h"
#include "views/timeline/timeline_paint.h"
#include "views/timeline/timeline_view.h"

namespace kovra {

namespace {

aurel::TextStyle LeftMiddle() {
    aurel::TextStyle style;
    style.vertical = aurel::TextAlign::Centre;
    return style;
}

aurel::TextFont FontOf(const aurel::FontInfo& info, bool bold) {
    return aurel::TextFont{info.face, info.height, info.bold || bold, info.italic, info.underline};
}

aurel::Color32 WithAlpha(aurel::Color32 colour, std::uint8_t alpha) {
    return aurel::Color32((colour.argb & 0x00FFFFFFu) | (std::uint32_t{alpha} << 24));
}

}  // namespace

// Vertical gradient over rows top to bottom inclusive.
void FillGradient(aurel::ImageSurface& target, int left, int top, int right, int bottom, aurel::Color32 from,
                  aurel::Color32 to) {
    const int rows = std::max(1, bottom - top);
    for (int y = top; y <= bottom; ++y) {
        const int k = y - top;
        auto mix = [&](std::uint8_t a, std::uint8_t b) {
            return static_cast<std::uint8_t>(a + (static_cast<int>(b) - a) * k / rows);
        };
        target.FillRect(
            left, y, right, y,
            aurel::Color32(mix(from.R(), to.R()), mix(from.G(), to.G()), mix(from.B(), to.B()), 255));
    }
}

// The label of cell c: seconds, then the snap step within the second counted from 1.
std::string CellLabel(int cell, int rate) {
    const int q = cell / rate;
    const int r = cell % rate;
    return std::to_string(q) + (rate >= 10 && r < 9 ? ":0" : ":") + std::to_string(r + 1);
}

class TimelinePainter {
public:
    TimelinePainter(TimelineView& view, aurel::ImageSurface& target)
        : v_(view), target_(target), theme_(aurel::CurrentTheme()), bounds_(view.thumbBounds_) {}

    void Paint();

private:
    const FrameStrip& Shown() const { return v_.drag_.Active() ? v_.preview_ : v_.strip_; }
    void PaintStatic(aurel::ImageSurface& cache);
    void PaintCell(aurel::ImageSurface& s, const FrameStrip& strip, int cell, const CellRect& r, bool hot);
    void PaintPlayhead();
    void PaintHot();
    void PaintDragged();
    void PaintEnd();

    TimelineView& v_;
    aurel::ImageSurface& target_;
    const aurel::Theme& theme_;
    const PoseBounds& bounds_;
};

void TimelinePainter::Paint() {
    v_.Sync();
    // The cells mark the current frame, and the lanes show its pins: a new current frame redraws them.
    const std::uint32_t current = v_.doc_.cursor.frameIndex;
    const bool lanesChanged = v_.extended_ && v_.micro_->TakeChanged();
    aurel::ImageSurface& cache = v_.stripCache_;
    if (v_.cacheDirty_ || lanesChanged || current != v_.cachedFrame_ || cache.Width() != target_.Width() ||
        cache.Height() != target_.Height()) {
        if (cache.Width() != target_.Width() || cache.Height() != target_.Height()) {
            cache.Resize(target_.Width(), target_.Height());
        }
        PaintStatic(cache);
        if (v_.extended_) {
            v_.micro_->Paint(cache, Shown());
        }
        v_.cacheDirty_ = false;
        v_.cachedFrame_ = current;
    }
    std::copy_n(cache.Row(0), static_cast<std::size_t>(cache.Width()) * cache.Height(), target_.Row(0));
    if (v_.extended_) {
        v_.micro_->PaintHover(target_);
    }
    PaintPlayhead();
    PaintHot();
    PaintDragged();
    if (v_.focused_ && current < Shown().Frames().size()) {
        const int cell = Shown().CellOfFrame(static_cast<int>(current));
        if (cell < static_cast<int>(v_.layout_.Cells().size())) {
            const CellRect& r = v_.layout_.Cells()[cell];
            target_.FillRect(r.left, r.top, r.right, r.bottom,
                             WithAlpha(theme_.timeline.frameSelColor, 0x40));
        }
    }
    PaintEnd();
}

void TimelinePainter::PaintStatic(aurel::ImageSurface& s) {
    const TimelineLayout& layout = v_.layout_;
    const int w = s.Width();
    FillGradient(s, 0, 0, w - 1, kControlBandHeight - 1, theme_.panels.bgGrad2, theme_.panels.bgGrad1);
    FillGradient(s, 0, kRulerTop, w - 1, kRulerTop + kRulerHeight - 1, theme_.timeline.rulerGrad1,
                 theme_.timeline.rulerGrad2);
    s.FillRect(0, kRulerTop + kRulerHeight, w - 1, s.Height() - 1, theme_.panels.bgGrad1);
    const FrameStrip& strip = Shown();
    const int rate = strip.Rate();
    const aurel::TextFont plain = FontOf(theme_.timeline.rulerTextFont, false);
    const aurel::TextFont bold = FontOf(theme_.timeline.rulerTextFont, true);
    const std::vector<CellRect>& cells = layout.Cells();
    for (int c = 0; c < static_cast<int>(cells.size()); ++c) {
        const CellRect& r = cells[c];
        if (r.right < layout.ClipLeft() || r.left >= w) {
            continue;
        }
        const bool end = c == strip.LastCell();
        const aurel::Color32 textColour =
            end ? theme_.timeline.rulerEndColor : theme_.timeline.rulerTextColor;
        s.DrawText(CellLabel(c, rate), r.left + 2, kRulerTop, layout.Pitch() - 2, kRulerHeight, textColour,
                   c % rate == 0 ? bold : plain, LeftMiddle());
        PaintCell(s, strip, c, r, false);
    }
    if (layout.ClipLeft() > 0) {
        s.FillRect(0, kRulerTop, layout.ClipLeft() - 1, s.Height() - 1, theme_.panels.bgGrad1);
    }
}

void TimelinePainter::PaintCell(aurel::ImageSurface& s, const FrameStrip& strip, int cell, const CellRect& r,
                                bool hot) {
    const aurel::ThemeTimeline& t = theme_.timeline;
    const bool hasKey = cell <= strip.LastCell() && !strip.CellKeys(cell).empty();
    aurel::Color32 fill = hasKey ? t.frameColor : t.frameEmpty;
    if (hot) {
        fill = hasKey ? t.frameColorHot : t.frameEmptyHot;
    }
    s.FillRect(r.left, r.top, r.right, r.bottom, fill);
    s.DrawRect(r.left, r.top, r.right - 1, r.bottom - 1, t.frameBorder);
    if (hasKey) {
        for (int frame : strip.CellKeys(cell)) {
            DrawThumbnail(s, strip.Frames()[frame].pins, bounds_, r.left, r.top, r.right, r.bottom,
                          theme_.workspace.boneColorOutline);
        }
        const bool current = strip.CellKeys(cell).front() == static_cast<int>(v_.doc_.cursor.frameIndex);
        const auto x = static_cast<float>(r.left + 1);
        const auto y = static_cast<float>(r.top + 1);
        s.FillTriangle(x, y, x + 8.0f, y, x, y + 8.0f, current ? t.frameTriSel : t.frameTri, 1.0f);
        const WirrelKey& key = strip.Frames()[strip.CellKeys(cell).front()];
        const bool hasEvent = key.eventCount > 0;
        if (hasEvent || v_.hotEventFrame_ == strip.CellKeys(cell).front()) {
            // The event marker in the cell's lower left 12 by 12 pixels.
            const aurel::Color32 mark = hasEvent ? t.frameSelColor : WithAlpha(t.frameTri, 0x80);
            s.FillRect(r.left + 2, r.bottom - 10, r.left + 9, r.bottom - 3, mark);
        }
    }
}

void TimelinePainter::PaintPlayhead() {
    const TimelineLayout& layout = v_.layout_;
    const FrameStrip& strip = Shown();
    const double x = static_cast<double>(layout.Pitch()) * strip.Rate() *
                         static_cast<double>(v_.CurrentTicks()) / strip.TicksPerSecond() +
                     layout.Origin();
    const int column = static_cast<int>(x);
    if (column < layout.ClipLeft() || column >= target_.Width()) {
        return;
    }
    for (int y = kRulerTop; y < target_.Height() - kScrollbarHeight; ++y) {
        target_.Row(y)[column] ^= 0xFFFFAAAAu;
    }
}

void TimelinePainter::PaintHot() {
    const int cell = v_.hotCell_;
    if (cell < 0 || v_.drag_.Active() || cell >= static_cast<int>(v_.layout_.Cells().size())) {
        return;
    }
    CellRect r = v_.layout_.Cells()[cell];
    target_.FillRect(r.left - 3, r.top - 3, r.right + 3, r.bottom + 3, aurel::Color32(0x40000000u));
    r = CellRect{r.left - 2, r.top - 2, r.right + 2, r.bottom + 2};
    PaintCell(target_, v_.strip_, cell, r, true);
    target_.DrawRect(r.left, r.top, r.right, r.bottom, aurel::Color32(0xFF000000u));
    if (v_.hotGapCell_ == cell) {
        int previous = 0;
        const WirrelKey key = KeyBetween(v_.strip_.Frames(), v_.strip_.TicksOfCell(cell), previous);
        DrawThumbnail(target_, key.pins, bounds_, r.left, r.top, r.right, r.bottom,
                      theme_.workspace.boneColorOutline);
    }
}

void TimelinePainter::PaintDragged() {
    const TimelineDrag& drag = v_.drag_;
    if (drag.cell < 0 || drag.cell >= static_cast<int>(v_.layout_.Cells().size())) {
        return;
    }
    int shift = drag.dragX - drag.pressX;
    const CellRect& from = v_.layout_.Cells()[drag.cell];
    if (v_.rippleMode_ && drag.frame > 0) {
        // In ripple mode the key can't pass its left neighbour.
        const CellRect& left = v_.layout_.Cells()[v_.strip_.CellOfFrame(drag.frame - 1)];
        shift = std::max(shift, left.right - from.left);
    }
    const CellRect ghost{from.left + shift, from.top, from.right + shift, from.bottom};
    target_.FillRect(ghost.left - 1, ghost.top - 1, ghost.right + 1, ghost.bottom + 1,
                     aurel::Color32(0x40000000u));
    PaintCell(target_, v_.strip_, drag.cell, ghost, true);
    target_.DrawRect(ghost.left, ghost.top, ghost.right, ghost.bottom, aurel::Color32(0xFF000000u));
}

void TimelinePainter::PaintEnd() {
    const std::vector<CellRect>& cells = v_.layout_.Cells();
    const int end = v_.strip_.LastCell();
    if (end < 0 || end >= static_cast<int>(cells.size())) {
        return;
    }
    const CellRect& r = cells[end];
    if (r.left < v_.layout_.ClipLeft() || r.left >= target_.Width()) {
        return;
    }
    aurel::Color32 colour(v_.hoverEnd_ ? 0xFFA00000u : 0x80A00000u);
    if (v_.drag_.cell >= 0) {
        colour = aurel::Color32(0x80606060u);
    }
    target_.FillRect(r.left - 2, r.top, r.left + 2, r.bottom, colour);
    if (v_.drag_.resizingEnd) {
        const int count = v_.CellCountAt(v_.drag_.dragX);
        const int x = v_.layout_.Origin() + count * v_.layout_.Pitch();
        target_.FillRect(x - 2, r.top, x + 2, r.bottom, aurel::Color32(0x80A00000u));
        const int newEnd = std::min(v_.preview_.LastCell(), static_cast<int>(cells.size()) - 1);
        if (newEnd >= 0) {
            const CellRect& e = cells[newEnd];
            target_.FillRect(e.left, e.top, e.right, e.bottom, aurel::Color32(0x40A00000u));
        }
    }
}

void TimelineView::Paint(aurel::ImageSurface& target) {
    if (target.IsEmpty()) {
        return;
    }
    TimelinePainter(*this, target).Paint();
}

}  // namespace kovra
