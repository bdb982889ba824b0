#include "views/workspace/paint_pins.h"

namespace kovra {

void PaintPins(aurel::ImageSurface& target, const PinLayer& layer) {
    for (const PinDot& pin : layer.pins) {
        if (pin.dot) {
            target.FillCircle(pin.x, pin.y, pin.radius, pin.colour);
            target.DrawCircle(pin.x, pin.y, pin.radius, layer.outline);
            if (pin.locked) {
                target.FillCircle(pin.x, pin.y, pin.radius - 3.0f, layer.lockColour);
            }
        }
        if (pin.root) {
            target.DrawCircle(pin.x, pin.y, layer.rootRadius, layer.rootColour);
        }
    }
}

}  // namespace kovra
