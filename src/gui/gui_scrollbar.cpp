#include "gui/gui_scrollbar.h"

#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace kestrel2::win {

namespace {

int CodeOf(int action) {
    switch (action) {
        case QAbstractSlider::SliderSingleStepSub:
            return kScrollLineUp;
        case QAbstractSlider::SliderSingleStepAdd:
            return kScrollLineDown;
        case QAbstractSlider::SliderPageStepSub:
            return kScrollPageUp;
        case QAbstractSlider::SliderPageStepAdd:
            return kScrollPageDown;
        case QAbstractSlider::SliderMove:
            return kScrollThumbTrack;
        case QAbstractSlider::SliderToMinimum:
            return kScrollTop;
        case QAbstractSlider::SliderToMaximum:
            return kScrollBottom;
        default:
            return kScrollEnd;
    }
}

}  // namespace

std::optional<int> ScrollPosition(int code, int position, int track, int page, int minimum, int maximum) {
    int next = position;
    switch (code) {
        case kScrollLineUp:
            next = position - 1;
            break;
        case kScrollLineDown:
            next = position + 1;
            break;
        case kScrollPageUp:
            next = position - page;
            break;
        case kScrollPageDown:
            next = position + page;
            break;
        case kScrollThumbPosition:
        case kScrollThumbTrack:
            next = track;
            break;
        case kScrollEnd:
            return std::nullopt;
        default:
            break;
    }
    next = std::max(next, minimum);
    return std::min(next, maximum - page + 1);
}

void GuiScrollbar::SetRange(int minimum, int maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
    Sync();
}

void GuiScrollbar::SetPage(int page) {
    page_ = page;
    Sync();
}

void GuiScrollbar::SetPos(int position) {
    position_ = position;
    Sync();
}

void GuiScrollbar::Scroll(int code, int track) {
    const std::optional<int> next = ScrollPosition(code, position_, track, page_, minimum_, maximum_);
    if (!next || *next == position_) {
        return;
    }
    position_ = *next;
    changeListeners.Call(Id());
}

void GuiScrollbar::OnCreate() {
    auto* bar = new QScrollBar(vertical_ ? Qt::Vertical : Qt::Horizontal, ParentWidget());
    QObject::connect(bar, &QScrollBar::actionTriggered, [this, bar](int action) {
        Scroll(CodeOf(action), bar->sliderPosition());
        // The bar shows the position worked out here, not the one the toolkit would take.
        bar->setSliderPosition(position_);
    });
    QObject::connect(bar, &QScrollBar::sliderReleased,
                     [this, bar] { Scroll(kScrollThumbPosition, bar->sliderPosition()); });
    window = Window(bar, true);
    Sync();
}

// Shows the range, page and position on the native bar, whose own range ends where the last page begins.
void GuiScrollbar::Sync() {
    auto* bar = qobject_cast<QScrollBar*>(window.handle());
    if (!bar) {
        return;
    }
    const QSignalBlocker quiet(bar);
    bar->setRange(minimum_, std::max(minimum_, maximum_ - page_ + 1));
    bar->setPageStep(std::max(page_, 1));
    bar->setValue(position_);
}

}  // namespace kestrel2::win
