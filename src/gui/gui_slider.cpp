#include "gui/gui_slider.h"

#include <QSignalBlocker>
#include <QSlider>

namespace kestrel2::win {

void GuiSlider::SetRange(int minimum, int maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
    Sync();
}

void GuiSlider::SetPos(int position) {
    position_ = position;
    Sync();
}

void GuiSlider::SetTickFrequency(int frequency) {
    tickFrequency_ = frequency;
    Sync();
}

void GuiSlider::HideTicks(bool hide) {
    hideTicks_ = hide;
    Sync();
}

void GuiSlider::Moved(int position, bool ended) {
    dragging_ = !ended;
    position_ = position;
    changeListeners.Call(Id());
}

void GuiSlider::OnCreate() {
    auto* slider = new QSlider(Qt::Horizontal, ParentWidget());
    QObject::connect(slider, &QSlider::actionTriggered,
                     [this, slider](int) { Moved(slider->sliderPosition(), !slider->isSliderDown()); });
    QObject::connect(slider, &QSlider::sliderReleased,
                     [this, slider] { Moved(slider->sliderPosition(), true); });
    window = Window(slider, true);
    Sync();
}

void GuiSlider::Sync() {
    auto* slider = qobject_cast<QSlider*>(window.handle());
    if (!slider) {
        return;
    }
    const QSignalBlocker quiet(slider);
    slider->setRange(minimum_, maximum_);
    slider->setValue(position_);
    slider->setTickInterval(tickFrequency_);
    slider->setTickPosition(hideTicks_ ? QSlider::NoTicks : QSlider::TicksBelow);
}

}  // namespace kestrel2::win
