#include "state/pin_clipboard.h"

#include "commands/frame_commands.h"
#include "doc/pin_tree.h"

namespace kovra {

void PinClipboard::Copy(const WirrelKey& frame, const std::vector<int>& positions) {
    pins.clear();
    for (const int position : positions) {
        WirrelPin pin = frame.pins[position];
        pin.parent = pin.parent >= 0 ? frame.pins[pin.parent].id : -1;
        pins.push_back(pin);
    }
    kind = kPins;
}

void PinClipboard::Clear() {
    kind = kEmpty;
    pins.clear();
}

std::vector<WirrelKey> PastedKeys(const WirrelDoc& doc, const PinClipboard& clipboard) {
    const WirrelAnim& anim = doc.Wirrel().anims[doc.cursor.animIndex];
    std::vector<WirrelKey> keys = anim.keys;
    const std::size_t current = doc.cursor.frameIndex;
    // Records written from the clipboard, by key frame and position; their parents still hold ids.
    std::vector<std::pair<std::size_t, std::size_t>> written;
    for (const WirrelPin& pin : clipboard.pins) {
        for (std::size_t k = 0; k < keys.size(); ++k) {
            std::vector<WirrelPin>& pins = keys[k].pins;
            const int position = IndexOfId(pins, pin.id, -1);
            if (k == current && position >= 0) {
                pins[position] = pin;
                written.emplace_back(k, position);
            } else if (position < 0) {
                WirrelPin added = pin;
                if (k != current) {
                    added.flags |= kPinHidden;
                }
                pins.push_back(added);
                written.emplace_back(k, pins.size() - 1);
            }
        }
    }
    for (const auto& [k, position] : written) {
        WirrelPin& pin = keys[k].pins[position];
        pin.parent = pin.parent >= 0 ? IndexOfId(keys[k].pins, pin.parent, -1) : -1;
    }
    return keys;
}

std::shared_ptr<ICommand> PastePins(WirrelDoc& doc, const PinClipboard& clipboard) {
    return std::make_shared<CommandFrameState>(doc, "Paste Pins", kKindPinPaste, PastedKeys(doc, clipboard));
}

}  // namespace kovra
